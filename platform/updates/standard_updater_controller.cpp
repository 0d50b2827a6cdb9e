#include "platform/updates/standard_updater_controller.hpp"

#include "platform/ui/workspace.hpp"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace platform {

SPUStandardUpdaterController::SPUStandardUpdaterController(Starting starting,
                                                           SPUUpdaterDelegate* updaterDelegate,
                                                           QObject* parent)
    : QObject(parent), updaterDelegate_(updaterDelegate) {
    if (starting == Starting::now) {
        startUpdater();
    }
}

void SPUStandardUpdaterController::startUpdater() {
    isStarted_ = true;
}

void SPUStandardUpdaterController::checkForUpdates() {
    if (!isStarted_ || updaterDelegate_ == nullptr) {
        return;
    }
    const QUrl feed(updaterDelegate_->feedURLString(*this));
    auto* const box = new QMessageBox(QApplication::activeWindow());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIcon(QMessageBox::Information);
    box->setText(tr("This version can't update itself."));
    box->setInformativeText(tr("The newest version is on %1.").arg(feed.host()));
    QPushButton* const visit = box->addButton(tr("Open Website"), QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(QMessageBox::Close));
    connect(visit, &QPushButton::clicked, this, [feed] {
        Workspace::shared().open(QUrl(QStringLiteral("https://") + feed.host() + u'/'));
    });
    box->open();
}

} // namespace platform
