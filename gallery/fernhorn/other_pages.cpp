#include "fernhorn/controls/chaos_toggle_button.hpp"
#include "fernhorn/controls/mode_toggle_button.hpp"
#include "fernhorn/controls/toggle_button.hpp"
#include "gallery/fernhorn/plugin_parts.hpp"
#include "gallery/fernhorn/vocoder/vocoder_settings.hpp"

#include <QVBoxLayout>

namespace gallery {

namespace {

using namespace fernhorn;
using Which = VocoderParameter;

QVBoxLayout* makePage(QWidget& page) {
    auto* const column = new QVBoxLayout(&page);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    return column;
}

void addRow(QVBoxLayout& column, std::initializer_list<Panel*> panels) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(12);
    for (Panel* const panel : panels) {
        row->addWidget(panel, 1);
    }
    column.addLayout(row);
}

} // namespace

QWidget* makeCarrierPage(VocoderSettings& settings) {
    auto* const page = new QWidget;
    auto* const column = makePage(*page);
    auto* const oscillator = new Panel(QStringLiteral("Oscillator"));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::pitch), SmallDialColor::red));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::width), SmallDialColor::blue));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::noise), SmallDialColor::yellow));
    auto* const voices = new Panel(QStringLiteral("Voices"));
    for (const auto which : {Which::unison, Which::detune, Which::glide}) {
        voices->row().addWidget(makeChaosCell(settings.parameter(which)));
    }
    addRow(*column, {oscillator, voices});
    auto* const octave = new Panel(QStringLiteral("Octave"));
    std::vector<QWidget*> keys;
    for (int index = 0; index < 3; ++index) {
        keys.push_back(new ChaosToggleButton(settings.parameter(Which::octave), index,
                                             ChaosButtonColor::yellow, QSizeF(72, 36)));
    }
    octave->row().addWidget(makeGroup(QStringLiteral("Octave"), keys, 3), 0,
                            Qt::AlignTop | Qt::AlignLeading);
    auto* const character = new Panel(QStringLiteral("Character"));
    character->row().addWidget(makeTinyCell(settings.parameter(Which::velocity)));
    character->row().addWidget(makeTinyCell(settings.parameter(Which::drift)));
    character->row().addStretch(1);
    addRow(*column, {octave, character});
    column->addStretch(1);
    return page;
}

QWidget* makeMotionPage(VocoderSettings& settings) {
    auto* const page = new QWidget;
    auto* const column = makePage(*page);
    auto* const wave = new Panel(QStringLiteral("Wave"));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::rate), SmallDialColor::purple));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::depth), SmallDialColor::blue));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::phase), SmallDialColor::red));
    auto* const feel = new Panel(QStringLiteral("Feel"));
    feel->row().addWidget(makeChaosCell(settings.parameter(Which::swing)));
    feel->row().addWidget(makeChaosCell(settings.parameter(Which::smooth)));
    feel->row().addStretch(1);
    addRow(*column, {wave, feel});
    auto* const shape = new Panel(QStringLiteral("Shape"));
    const auto ink = kitColor("buttonText");
    std::vector<QWidget*> shapes;
    for (int index = 0; index < 4; ++index) {
        shapes.push_back(new ModeToggleButton(settings.parameter(Which::shape), index,
                                              ToggleButtonStyle::modern, 13, ink, QSizeF(80, 27)));
    }
    shape->row().addWidget(makeGroup(QStringLiteral("Shape"), shapes, 4), 0,
                           Qt::AlignTop | Qt::AlignLeading);
    auto* const clock = new Panel(QStringLiteral("Clock"));
    std::vector<QWidget*> switches;
    for (const auto which : {Which::sync, Which::follow}) {
        switches.push_back(
            new ToggleButton(settings.parameter(which), std::nullopt, 13, ink, QSizeF(92, 27)));
    }
    clock->row().addWidget(makeGroup(QStringLiteral("Clock"), switches, 2), 0,
                           Qt::AlignTop | Qt::AlignLeading);
    addRow(*column, {shape, clock});
    column->addStretch(1);
    return page;
}

} // namespace gallery
