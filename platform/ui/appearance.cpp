#include "platform/ui/appearance.hpp"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace platform {
namespace {

QPalette darkPalette() {
    const QColor ground(0x15, 0x11, 0x1f);
    const QColor field(0x18, 0x16, 0x1d);
    const QColor raised(0x2a, 0x28, 0x30);
    const QColor text(0xd8, 0xd6, 0xdc);
    const QColor faint(0x8a, 0x88, 0x90);
    const QColor highlight(0x77, 0x61, 0xdd);
    QPalette palette(raised, ground);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::ToolTipBase, raised);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7f, 0xb6, 0xff));
    palette.setColor(QPalette::LinkVisited, QColor(0xb2, 0xb0, 0xb6));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

} // namespace

void setAppearance(QApplication& application, Appearance appearance) {
    switch (appearance) {
    case Appearance::darkAqua:
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        application.setPalette(darkPalette());
        break;
    }
}

} // namespace platform
