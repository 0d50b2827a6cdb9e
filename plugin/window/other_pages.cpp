#include "fernhorn/buttons/parameter_buttons.hpp"
#include "plugin/dsp/waves.hpp"
#include "plugin/settings/vocoder_settings.hpp"
#include "plugin/window/plugin_parts.hpp"
#include "plugin/window/screen.hpp"

#include <QVBoxLayout>

namespace larkvox {

namespace {

using namespace fernhorn;
using Which = VocoderParameter;

QVBoxLayout* makePage(QWidget& page) {
    auto* const column = new QVBoxLayout(&page);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    return column;
}

void addRow(QVBoxLayout& column, std::initializer_list<Panel*> panels, int stretch = 0) {
    auto* const row = new QHBoxLayout;
    row->setSpacing(12);
    for (Panel* const panel : panels) {
        row->addWidget(panel, 1);
    }
    column.addLayout(row, stretch);
}

Panel* makeCarrierScreen(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Waveform"));
    const auto source = settings.parameter(Which::source);
    const auto width = settings.parameter(Which::width);
    const auto detune = settings.parameter(Which::detune);
    const auto unison = settings.parameter(Which::unison);
    panel->row().addWidget(
        new WaveScreen(QStringLiteral("Waveform of the carrier"), {source, width, detune, unison},
                       4, [=](double turns) {
                           const auto& voices = *unison->valueStrings();
                           const auto index = static_cast<std::size_t>(unison->value());
                           return Carrier{.wave = static_cast<Source>(source->value()),
                                          .width = static_cast<double>(width->value()) / 100,
                                          .detune = static_cast<double>(detune->value()),
                                          .voices = std::stoi(voices.at(index))}
                               .at(turns);
                       }));
    return panel;
}

Panel* makeMotionScreen(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Shape over four turns"));
    const auto shape = settings.parameter(Which::shape);
    const auto depth = settings.parameter(Which::depth);
    const auto phase = settings.parameter(Which::phase);
    const auto swing = settings.parameter(Which::swing);
    panel->row().addWidget(new WaveScreen(
        QStringLiteral("Shape of the motion"), {shape, depth, phase, swing}, 4, [=](double turns) {
            return Motion{.shape = static_cast<MotionShape>(shape->value()),
                          .depth = static_cast<double>(depth->value()) / 100,
                          .offset = static_cast<double>(phase->value()) / 360,
                          .swing = static_cast<double>(swing->value()) / 100}
                .at(turns);
        }));
    return panel;
}

} // namespace

QWidget* makeCarrierPage(VocoderSettings& settings) {
    auto* const page = new QWidget;
    auto* const column = makePage(*page);
    auto* const oscillator = new Panel(QStringLiteral("Oscillator"));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::pitch), SmallDialColor::purple));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::width), SmallDialColor::purple));
    oscillator->row().addWidget(
        makeMediumCell(settings.parameter(Which::noise), SmallDialColor::yellow));
    auto* const voices = new Panel(QStringLiteral("Voices"));
    for (const auto which : {Which::unison, Which::detune, Which::glide}) {
        voices->row().addWidget(makeChaosCell(settings.parameter(which)));
    }
    addRow(*column, {oscillator, voices});
    addRow(*column, {makeCarrierScreen(settings)}, 1);
    auto* const octave = new Panel(QStringLiteral("Octave"));
    std::vector<QWidget*> keys;
    for (int index = 0; index < 3; ++index) {
        keys.push_back(new ChaosToggleButton(settings.parameter(Which::octave), index,
                                             ChaosButtonColor::yellow, QSizeF(120, 36)));
    }
    octave->row().addWidget(makeGroup(QStringLiteral("Octave"), keys, 3), 0,
                            Qt::AlignTop | Qt::AlignLeading);
    auto* const character = new Panel(QStringLiteral("Character"));
    character->row().addWidget(makeTinyCell(settings.parameter(Which::velocity)));
    character->row().addWidget(makeTinyCell(settings.parameter(Which::drift)));
    addRow(*column, {octave, character});
    return page;
}

QWidget* makeMotionPage(VocoderSettings& settings) {
    auto* const page = new QWidget;
    auto* const column = makePage(*page);
    auto* const wave = new Panel(QStringLiteral("Wave"));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::rate), SmallDialColor::purple));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::depth), SmallDialColor::purple));
    wave->row().addWidget(makeMediumCell(settings.parameter(Which::phase), SmallDialColor::purple));
    auto* const feel = new Panel(QStringLiteral("Feel"));
    feel->row().addWidget(makeChaosCell(settings.parameter(Which::swing)));
    feel->row().addWidget(makeChaosCell(settings.parameter(Which::smooth)));
    addRow(*column, {wave, feel});
    addRow(*column, {makeMotionScreen(settings)}, 1);
    auto* const shape = new Panel(QStringLiteral("Shape"));
    const auto ink = kitColor("buttonText");
    std::vector<QWidget*> shapes;
    for (int index = 0; index < 4; ++index) {
        shapes.push_back(new ModeToggleButton(settings.parameter(Which::shape), index,
                                              ToggleButtonStyle::modern, 13, ink, QSizeF(90, 27)));
    }
    shape->row().addWidget(makeGroup(QStringLiteral("Shape"), shapes, 4), 0,
                           Qt::AlignTop | Qt::AlignLeading);
    auto* const clock = new Panel(QStringLiteral("Clock"));
    std::vector<QWidget*> switches;
    for (const auto which : {Which::sync, Which::follow}) {
        switches.push_back(
            new ToggleButton(settings.parameter(which), std::nullopt, 13, ink, QSizeF(184, 27)));
    }
    clock->row().addWidget(makeGroup(QStringLiteral("Clock"), switches, 2), 0,
                           Qt::AlignTop | Qt::AlignLeading);
    addRow(*column, {shape, clock});
    return page;
}

} // namespace larkvox
