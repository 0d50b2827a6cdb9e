#include "app/content_view.hpp"

#include "app/addresses.hpp"
#include "app/header_view.hpp"
#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/declarative/button_styles.hpp"
#include "platform/assets/bundle.hpp"
#include "platform/assets/system_font.hpp"
#include "platform/controls/image_view.hpp"
#include "platform/controls/padded_item.hpp"

#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

namespace larkvox {
namespace {

constexpr auto productName = "Larkvox"; // never translated
constexpr int stackSpacing = 8;

/// Lines of one style above each other, centred.
QLayout* makeLines(const QStringList& lines, const QFont& font, const QColor& color) {
    auto* const column = new QVBoxLayout;
    column->setSpacing(1);
    for (const QString& line : lines) {
        auto* const label = new QLabel(line);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setFont(font);
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, color);
        label->setPalette(palette);
        column->addWidget(label);
    }
    return column;
}

} // namespace

ContentView::ContentView(int buttonWidth, const platform::Bundle& bundle,
                         platform::Workspace& workspace)
    : bundle_(bundle),
      workspace_(workspace),
      textColor_(bundle.assets().color(QStringLiteral("buttonText"))) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(stackSpacing);
    column->addWidget(new HeaderView(QString::fromLatin1(productName)));
    column->addStretch();
    column->addWidget(makeMessages());
    column->addWidget(makeLogo(), 0, Qt::AlignHCenter);
    column->addStretch();
    addButtons(*column, buttonWidth);
}

QString ContentView::versionLine(const platform::Bundle& bundle) {
    return bundle.information(QStringLiteral("CFBundleShortVersionString")) + QStringLiteral(" (") +
           bundle.information(QStringLiteral("CFBundleVersion")) + u')';
}

QWidget* ContentView::makeMessages() {
    using platform::FontDesign;
    const QString name = QString::fromLatin1(productName);
    auto* const messages = new QWidget;
    auto* const column = new QVBoxLayout(messages);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(16);
    //: %1 is the name of the product
    column->addLayout(makeLines({tr("%1 is now available as an Audio Unit.").arg(name),
                                 tr("Keep this app in your applications folder.")},
                                platform::systemFont(15, QFont::Bold, FontDesign::rounded),
                                textColor_));
    const QFont small = platform::systemFont(12, QFont::Medium, FontDesign::rounded);
    //: %1 is the name of the product; the sentence goes on with "a plugin on an instrument track."
    column->addLayout(
        makeLines({tr("To use %1, insert it as").arg(name), tr("a plugin on an instrument track.")},
                  small, textColor_));
    column->addLayout(makeLines({versionLine(bundle_)}, small, textColor_));
    return messages;
}

QWidget* ContentView::makeLogo() {
    return new platform::ImageView(
        driftwood::resourceBundle().assets().image(QStringLiteral("window-fennick")), textColor_,
        QStringLiteral("Fennick"));
}

void ContentView::addButtons(QBoxLayout& column, int width) {
    const auto style = std::make_shared<driftwood::FennickButtonStyle>();
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 14);
    row->setSpacing(16);
    const auto add = [&](const QString& label) {
        auto* const button = new platform::Button(label, style, this);
        button->setLabelWidth(width);
        row->addItem(new platform::PaddedItem(button, style->padding()));
        return button;
    };
    row->addStretch();
    connect(add(tr("Help")), &QAbstractButton::clicked, this, &ContentView::openHelp);
    connect(add(tr("Fennick Website")), &QAbstractButton::clicked, this,
            [this] { workspace_.open(QUrl(QString::fromLatin1(addresses::website))); });
    row->addStretch();
    column.addLayout(row);
}

void ContentView::openHelp() {
    const auto page = [this](const QString& language) {
        return bundle_.path(QString::fromLatin1(addresses::helpPage).arg(language));
    };
    //: the language of the help page: en, de or fr
    const QString translated = page(tr("en"));
    workspace_.open(
        QUrl::fromLocalFile(QFile::exists(translated) ? translated : page(QStringLiteral("en"))));
}

} // namespace larkvox
