#include "plugin/window/plugin_parts.hpp"

#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "platform/controls/accessible_role.hpp"
#include "platform/controls/padded_item.hpp"
#include "plugin/settings/gain_formatter.hpp"
#include "plugin/settings/value_formatter.hpp"

#include <QGridLayout>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include <algorithm>

namespace larkvox {

namespace {

using fernhorn::FernFont;
using fernhorn::LabelDisplayOptions;

QColor white(double opacity) {
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

// The values of both kinds of dial stand on one line. Points.
constexpr int chaosDrop = 10;
constexpr int chaosSpare = 16; // below the field that a value is typed into
constexpr int mediumSpare = 26;

/// The panels write the names, so the dials do not.
LabelDisplayOptions valueOptions(double size, bool showSuffix = true) {
    const QColor ink = fernhorn::kitColor("buttonText");
    return {.valueColor = {ink.redF(), ink.greenF(), ink.blueF(), ink.alphaF()},
            .labelFontSize = 11,
            .valueFontSize = size,
            .editingFontSize = size,
            .showSuffix = showSuffix,
            .showName = false,
            .labelWidth = size * 5};
}

using Unit = platform::AudioUnitParameterUnit;

QString nameOfParameter(const Parameter& parameter) {
    return QString::fromStdString(parameter->name());
}

/// Where the name of a dial stands.
enum class NamePlace { above, below };

QWidget* makeCell(fernhorn::Dial* dial, const QMargins& room, NamePlace place,
                  const QString& name) {
    auto* const cell = new QWidget;
    auto* const column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* const label = makePluginLabel(name.toUpper(), 12, "pluginGrey");
    if (place == NamePlace::above) {
        column->addWidget(label, 0, Qt::AlignHCenter);
    }
    dial->setParent(cell);
    auto* const item = new platform::PaddedItem(dial, room);
    item->setAlignment(Qt::AlignHCenter);
    column->addItem(item);
    if (place == NamePlace::below) {
        column->addWidget(label, 0, Qt::AlignHCenter);
    }
    column->addStretch(1);
    return cell;
}

} // namespace

Panel::Panel(const QString& heading) : row_(new QHBoxLayout) {
    platform::setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(heading);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(16, 10, 16, 10);
    column->setSpacing(8);
    auto* const title = makePluginLabel(heading.toUpper(), 11, "versionInfo");
    column->addWidget(title);
    column->addLayout(row_, 1);
    row_->setSpacing(8);
}

void Panel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double pixel = 1 / devicePixelRatioF();
    const QRectF sheet = QRectF(rect()).adjusted(0, 0, 0, -1);
    QPainterPath shape;
    shape.addRoundedRect(sheet, 6, 6);
    painter.fillPath(shape.translated(0, 1), QColor(0, 0, 0, 110));
    QLinearGradient light(sheet.topLeft(), sheet.bottomLeft());
    light.setColorAt(0, QColor(0x25, 0x21, 0x2e));
    light.setColorAt(1, QColor(0x1d, 0x1a, 0x25));
    painter.fillPath(shape, light);
    // A thin rim where the sheet faces the light, fading down its sides.
    QLinearGradient rim(sheet.topLeft(), sheet.bottomLeft());
    rim.setColorAt(0, white(0.13));
    rim.setColorAt(std::min(1.0, 24 / sheet.height()), white(0.045));
    rim.setColorAt(1, white(0.02));
    painter.setPen(QPen(QBrush(rim), pixel));
    painter.drawRoundedRect(sheet.adjusted(pixel / 2, pixel / 2, -pixel / 2, -pixel / 2), 6, 6);
}

QLabel* makePluginLabel(const QString& text, double size, const char* color) {
    auto* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    fernhorn::fernFont(*label, FernFont::dosisMedium, size);
    if (text == text.toUpper()) { // capitals need room, or they touch where pixels are few
        QFont font = label->font();
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.8);
        label->setFont(font);
    }
    QPalette palette = label->palette();
    QColor ink = fernhorn::kitColor(color);
    palette.setColor(QPalette::WindowText, ink);
    ink.setAlphaF(0.5F);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
}

QWidget* makeChaosCell(const Parameter& parameter) {
    return makeCell(new fernhorn::ChaosDial(parameter, fernhorn::ModernDialColor::grey,
                                            valueOptions(14), makeFormatter(*parameter)),
                    {0, chaosDrop, 0, -chaosSpare}, NamePlace::above, nameOfParameter(parameter));
}

QWidget* makeMediumCell(const Parameter& parameter, fernhorn::SmallDialColor color) {
    return makeCell(
        new fernhorn::MediumDial(parameter, color, valueOptions(13), makeFormatter(*parameter)),
        {0, 0, 0, -mediumSpare}, NamePlace::above, nameOfParameter(parameter));
}

QWidget* makeTinyCell(const Parameter& parameter, const QString& name) {
    // There is no room for the unit in the window of the knob.
    auto options = valueOptions(10, false);
    options.labelWidth = 40;
    auto formatter = makeFormatter(*parameter);
    if (parameter->units() == Unit::decibels) {
        formatter = std::make_shared<GainFormatter>();
    }
    return makeCell(new fernhorn::TinyDial(parameter, options, formatter), {}, NamePlace::below,
                    name.isEmpty() ? nameOfParameter(parameter) : name);
}

QWidget* makeGroup(const QString& name, const std::vector<QWidget*>& buttons, int columns) {
    auto* const group = new QWidget;
    platform::setAccessibleRole(*group, QAccessible::Grouping);
    group->setAccessibleName(name);
    auto* const grid = new QGridLayout(group);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(rowSpacing);
    grid->setColumnStretch(columns, 1); // what is left over is behind them
    int place = 0;
    for (QWidget* const button : buttons) {
        grid->addWidget(button, place / columns, place % columns, Qt::AlignVCenter);
        grid->setRowMinimumHeight(place / columns, rowHeight);
        ++place;
    }
    return group;
}

} // namespace larkvox
