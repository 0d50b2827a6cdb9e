#include "platform/ui/about_panel.hpp"

#include "platform/assets/bundle.hpp"
#include "platform/assets/system_font.hpp"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace platform {
namespace {

QLabel* addLine(QVBoxLayout& column, const QString& text, const QFont& font) {
    if (text.isEmpty()) {
        return nullptr;
    }
    auto* const label = new QLabel(text);
    label->setAlignment(Qt::AlignHCenter);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(font);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column.addWidget(label);
    return label;
}

} // namespace

AboutPanel::AboutPanel(const Bundle& bundle, QWidget* parent) : QDialog(parent) {
    const auto information = [&](const char* key) {
        return bundle.information(QString::fromLatin1(key));
    };
    const QString name = information("CFBundleName");
    //: %1 is the name of the program
    setWindowTitle(tr("About %1").arg(name));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(32, 24, 32, 20);
    column->setSpacing(8);
    column->setSizeConstraint(QLayout::SetFixedSize);
    if (const ImageAsset* const icon =
            bundle.assets().image(QStringLiteral("application-icon-64"))) {
        auto* const picture = new QLabel;
        QPixmap pixmap = QPixmap::fromImage(icon->image(devicePixelRatioF()));
        pixmap.setDevicePixelRatio(devicePixelRatioF());
        picture->setPixmap(pixmap);
        picture->setAlignment(Qt::AlignHCenter);
        column->addWidget(picture);
    }
    addLine(*column, name, systemFont(18, QFont::Bold, FontDesign::rounded));
    //: %1 is the version, %2 the build number
    addLine(*column,
            tr("Version %1 (%2)")
                .arg(information("CFBundleShortVersionString"), information("CFBundleVersion")),
            systemFont(12, QFont::Medium, FontDesign::rounded));
    if (QLabel* const credits = addLine(*column, information("Credits"),
                                        systemFont(12, QFont::Medium, FontDesign::rounded))) {
        credits->setFixedWidth(280);
        credits->setContentsMargins(0, 8, 0, 4);
    }
    QLabel* const copyright =
        addLine(*column, information("NSHumanReadableCopyright"), systemFont(11, QFont::Normal));
    if (copyright != nullptr) {
        copyright->setForegroundRole(QPalette::PlaceholderText);
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->setCenterButtons(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addSpacing(4);
    column->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setFocus();
}

void orderFrontStandardAboutPanel() {
    static QPointer<AboutPanel> panel;
    if (panel == nullptr) {
        // Deletes itself when it is closed.
        panel = new AboutPanel(Bundle::main(), QApplication::activeWindow());
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

} // namespace platform
