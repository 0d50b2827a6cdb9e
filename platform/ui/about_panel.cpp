#include "platform/ui/about_panel.hpp"

#include "platform/assets/bundle.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/padded_item.hpp"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace platform {
namespace {

constexpr int textWidth = 280;
constexpr int margin = 32;
constexpr double buttonWidth = 112;

QLabel* addLine(QVBoxLayout& column, const QString& text, const QFont& font) {
    if (text.isEmpty()) {
        return nullptr;
    }
    auto* const label = new QLabel(text);
    label->setAlignment(Qt::AlignHCenter);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(font);
    label->setFixedWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column.addWidget(label);
    return label;
}

void addIcon(QVBoxLayout& column, const Bundle& bundle, qreal scale) {
    if (const ImageAsset* const icon =
            bundle.assets().image(QStringLiteral("application-icon-64"))) {
        auto* const picture = new QLabel;
        QPixmap pixmap = QPixmap::fromImage(icon->image(scale));
        pixmap.setDevicePixelRatio(scale);
        picture->setPixmap(pixmap);
        picture->setAlignment(Qt::AlignHCenter);
        column.addSpacing(24);
        column.addWidget(picture);
    }
}

std::function<AboutPanelLook()>& standardLook() {
    static std::function<AboutPanelLook()> look;
    return look;
}

} // namespace

AboutPanel::AboutPanel(const Bundle& bundle, const AboutPanelLook& look, QWidget* parent)
    : QDialog(parent) {
    const auto information = [&](const char* key) {
        return bundle.information(QString::fromLatin1(key));
    };
    const QString name = information("CFBundleName");
    //: %1 is the name of the program
    setWindowTitle(tr("About %1").arg(name));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 20);
    column->setSpacing(8);
    column->setSizeConstraint(QLayout::SetFixedSize);
    if (QWidget* const picture = look.picture ? look.picture(*this) : nullptr) {
        column->addWidget(picture);
        picture->setMinimumWidth(textWidth + 2 * margin);
    } else {
        addIcon(*column, bundle, devicePixelRatioF());
    }
    column->addSpacing(4);
    auto* const texts = new QVBoxLayout;
    texts->setContentsMargins(margin, 0, margin, 0);
    texts->setSpacing(8);
    column->addLayout(texts);
    const QFont small = systemFont(12, QFont::Medium, FontDesign::rounded);
    addLine(*texts, name, look.nameFont.value_or(systemFont(18, QFont::Bold, FontDesign::rounded)));
    addLine(*texts,
            //: %1 is the version, %2 the build number
            tr("Version %1 (%2)")
                .arg(information("CFBundleShortVersionString"), information("CFBundleVersion")),
            small);
    const QByteArray credits = information("Credits").toUtf8();
    if (QLabel* const label = addLine(
            *texts, QCoreApplication::translate("Information", credits.constData()), small)) {
        label->setContentsMargins(0, 8, 0, 4);
    }
    QLabel* const copyright = addLine(*texts, information("NSHumanReadableCopyright"),
                                      systemFont(11, QFont::Medium, FontDesign::rounded));
    if (copyright != nullptr) {
        copyright->setForegroundRole(QPalette::PlaceholderText);
    }
    column->addSpacing(8);
    if (look.button != nullptr) {
        auto* const button = new Button(tr("Close"), look.button, this);
        button->setLabelWidth(buttonWidth);
        connect(button, &QAbstractButton::clicked, this, &QDialog::reject);
        auto* const place = new PaddedItem(button, look.button->padding());
        place->setAlignment(Qt::AlignHCenter);
        column->addItem(place);
        button->setFocus();
    } else {
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        buttons->setCenterButtons(true);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        column->addWidget(buttons);
        buttons->button(QDialogButtonBox::Close)->setFocus();
    }
}

void setStandardAboutPanelLook(std::function<AboutPanelLook()> look) {
    standardLook() = std::move(look);
}

void orderFrontStandardAboutPanel() {
    static QPointer<AboutPanel> panel;
    if (panel == nullptr) {
        // Deletes itself when it is closed.
        panel = new AboutPanel(Bundle::main(), standardLook() ? standardLook()() : AboutPanelLook(),
                               QApplication::activeWindow());
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

} // namespace platform
