#include "updates/dialogs/progress_dialog.hpp"

#include "platform/assets/system_font.hpp"
#include "updates/dialogs/update_progress_bar.hpp"

#include <QBoxLayout>
#include <QLabel>
#include <QLocale>

namespace updates {
namespace {

QString sizeText(double bytes) {
    return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeSIFormat);
}

} // namespace

ProgressDialog::ProgressDialog(const DialogContext& context, QWidget* parent)
    : UpdateDialog(context, parent), bar_(new UpdateProgressBar), detail_(new QLabel) {
    bar_->setAccessibleName(tr("Progress"));
    detail_->setFont(platform::systemFont(12, QFont::Medium, platform::FontDesign::rounded));
    detail_->setForegroundRole(QPalette::PlaceholderText);
    detail_->setTextFormat(Qt::PlainText);
    content().addWidget(bar_);
    content().addWidget(detail_);
}

bool ProgressDialog::isFor(const UpdateScene& scene) {
    return std::holds_alternative<scene::Checking>(scene) ||
           std::holds_alternative<scene::Downloading>(scene) ||
           std::holds_alternative<scene::Unpacking>(scene) ||
           std::holds_alternative<scene::Ready>(scene) ||
           std::holds_alternative<scene::Installing>(scene);
}

QString ProgressDialog::progressText(const DownloadProgress& progress) {
    const QString sizes =
        //: sizes such as "1.2 MB"
        tr("%1 of %2")
            .arg(sizeText(static_cast<double>(progress.received)),
                 sizeText(static_cast<double>(progress.length)));
    return progress.bytesPerSecond < 1
               ? sizes
               //: %1 is the progress such as "1 MB of 2 MB", %2 a size
               : tr("%1, %2/s").arg(sizes, sizeText(progress.bytesPerSecond));
}

bool ProgressDialog::show(const UpdateScene& scene) {
    const QString& product = context().product;
    if (std::holds_alternative<scene::Checking>(scene)) {
        say(tr("Checking for updates…"), {});
        measure(-1, {});
        offer(Choice::cancel);
    } else if (const auto* const downloading = std::get_if<scene::Downloading>(&scene)) {
        const DownloadProgress& progress = downloading->progress;
        //: %1 is the name of the program, %2 the new version
        say(tr("Downloading %1 %2…").arg(product, downloading->version), {});
        measure(static_cast<double>(progress.received) / static_cast<double>(progress.length),
                progressText(progress));
        offer(Choice::cancel);
    } else if (const auto* const unpacking = std::get_if<scene::Unpacking>(&scene)) {
        say(tr("Preparing %1 %2…").arg(product, unpacking->version), {});
        measure(unpacking->share > 0 ? unpacking->share : -1,
                unpacking->share > 0 ? tr("Unpacking") : tr("Checking who made it"));
        offer(Choice::cancel);
    } else if (const auto* const ready = std::get_if<scene::Ready>(&scene)) {
        say(tr("%1 %2 is ready").arg(product, ready->version),
            tr("To install it, %1 quits and starts again.").arg(product));
        bar_->hide();
        detail_->hide();
        offer(Choice::relaunch);
    } else if (const auto* const installing = std::get_if<scene::Installing>(&scene)) {
        say(tr("Installing %1 %2…").arg(product, installing->version), {});
        bar_->show();
        measure(-1, {});
        offer(Choice::none);
    } else {
        return false;
    }
    return true;
}

void ProgressDialog::measure(double share, const QString& text) {
    bar_->setShare(share);
    detail_->setText(text);
    bar_->setAccessibleDescription(text);
}

void ProgressDialog::offer(Choice choice) {
    if (offered_ == choice) {
        return;
    }
    offered_ = choice;
    clearButtons();
    switch (choice) {
    case Choice::cancel:
        addButton(tr("Cancel"), Prominence::quiet, context().dismiss)->setFocus();
        break;
    case Choice::relaunch:
        addButton(tr("Remind Me Later"), Prominence::quiet, context().dismiss)->setFocus();
        addButton(tr("Install and Relaunch"), Prominence::prominent, context().relaunch);
        break;
    case Choice::none:
        break;
    }
}

} // namespace updates
