#include "fernhorn/buttons/button_face.hpp"
#include "fernhorn/buttons/callback_buttons.hpp"
#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/fonts/resource_bundle_accessor.hpp"
#include "fernhorn/model/parameter_gesture.hpp"
#include "platform/controls/button.hpp"
#include "plugin/settings/comparison.hpp"
#include "plugin/settings/vocoder_settings.hpp"
#include "plugin/window/plugin_parts.hpp"
#include "plugin/window/screen.hpp"

#include <QGridLayout>
#include <QVBoxLayout>

#include <array>
#include <random>
#include <tuple>

namespace larkvox {

namespace {

using namespace fernhorn;
using Which = VocoderParameter;

constexpr QSizeF keySize(88, 36);
constexpr QSizeF narrowSize(44, 36);

const platform::ImageAsset* kitImage(const char* name) {
    return resourceBundle().assets().image(QString::fromLatin1(name));
}

/// A column of things that belong together, the first at the top.
QVBoxLayout* makeColumn(QBoxLayout& row) {
    auto* const column = new QVBoxLayout;
    column->setSpacing(8);
    row.addLayout(column);
    return column;
}

Panel* makeVoicePanel(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Tone"));
    auto& row = panel->row();
    row.addWidget(makeMediumCell(settings.parameter(Which::cutoff), SmallDialColor::purple));
    row.addWidget(makeMediumCell(settings.parameter(Which::drive), SmallDialColor::yellow));
    row.addWidget(makeMediumCell(settings.parameter(Which::formant), SmallDialColor::purple));
    row.addWidget(makeMediumCell(settings.parameter(Which::blend), SmallDialColor::purple));
    return panel;
}

Panel* makeEnvelopePanel(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Envelope"));
    for (const auto which : {Which::attack, Which::bands, Which::release, Which::tilt}) {
        panel->row().addWidget(makeChaosCell(settings.parameter(which)));
    }
    return panel;
}

/// Latches while the other set of values is heard.
platform::Button* makeCompareButton(const VocoderSettings& settings) {
    const auto off = std::make_shared<ModernButtonStyle>(false, kitColor("pluginGrey"));
    const auto on = std::make_shared<ModernButtonStyle>(true, kitColor("pluginGrey"));
    auto* const button = new platform::Button(QStringLiteral("COMPARE"), off);
    button->setCheckable(true);
    button->setLabelWidth(keySize.width() - 24); // as wide as the key below it
    const auto comparison = std::make_shared<Comparison>(settings.parameters());
    QObject::connect(button, &platform::Button::toggled, button,
                     [button, comparison, off, on](bool isOn) {
                         comparison->swap();
                         button->setButtonStyle(isOn ? on : off);
                     });
    return button;
}

Panel* makeBandsPanel(const std::shared_ptr<VocoderSettings>& settings) {
    static constexpr std::array frequencies{"90",   "150", "240", "380",  "600", "900",
                                            "1.4k", "2k",  "3k",  "4.5k", "7k",  "11k"};
    static_assert(frequencies.size() == bandCount);
    auto* const panel = new Panel(QStringLiteral("Band gains"));
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(8);
    std::vector<Parameter> bands;
    for (std::size_t band = 0; band < bandCount; ++band) {
        const int column = static_cast<int>(band);
        bands.push_back(settings->band(band));
        grid->addWidget(makeTinyCell(bands.back(), QString::fromLatin1(frequencies.at(band))), 1,
                        column);
        grid->setColumnStretch(column, 1);
    }
    grid->addWidget(new BandScreen(bands, settings->parameter(Which::tilt)), 0, 0, 1, bandCount);
    panel->row().addLayout(grid, 1);
    const auto level = [settings] {
        for (std::size_t band = 0; band < bandCount; ++band) {
            ParameterGesture(settings->band(band)).change(0);
        }
    };
    panel->row().addSpacing(8);
    auto* const side = makeColumn(panel->row());
    side->addWidget(makeCompareButton(*settings));
    side->addStretch(1);
    auto* const flatten =
        new platform::Button(QStringLiteral("FLATTEN"),
                             std::make_shared<ModernButtonStyle>(false, kitColor("pluginGrey")));
    flatten->setLabelWidth(keySize.width() - 24);
    QObject::connect(flatten, &platform::Button::clicked, flatten, level);
    side->addWidget(flatten);
    return panel;
}

Panel* makeModePanel(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Mode"));
    std::vector<QWidget*> keys;
    for (int index = 0; index < 4; ++index) {
        keys.push_back(new ChaosToggleButton(settings.parameter(Which::mode), index,
                                             ChaosButtonColor::yellow, keySize));
    }
    panel->row().addWidget(makeGroup(QStringLiteral("Mode"), keys, 2), 0, Qt::AlignTop);
    return panel;
}

Panel* makeSourcePanel(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Source"));
    auto* const column = makeColumn(panel->row());
    column->setSpacing(rowSpacing);
    const auto ink = kitColor("buttonText");
    std::vector<QWidget*> sources;
    for (int index = 0; index < 4; ++index) {
        sources.push_back(new ModeToggleButton(settings.parameter(Which::source), index,
                                               ToggleButtonStyle::modern, 13, ink, QSizeF(60, 27)));
    }
    column->addWidget(makeGroup(QStringLiteral("Source"), sources, 4));
    std::vector<QWidget*> tones;
    for (int index = 0; index < 2; ++index) {
        tones.push_back(new ModeToggleButton(settings.parameter(Which::tone), index,
                                             ToggleButtonStyle::retro, 13, ink, QSizeF(76, 27)));
    }
    tones.push_back(
        new LeftRightArrowButton(settings.parameter(Which::direction), 1, QSizeF(40, 28)));
    column->addWidget(makeGroup(QStringLiteral("Tone"), tones, 3));
    column->addStretch(1);
    return panel;
}

Panel* makeSwitchPanel(VocoderSettings& settings) {
    auto* const panel = new Panel(QStringLiteral("Output"));
    const auto ink = kitColor("buttonText");
    std::vector<QWidget*> switches;
    for (const auto& [wide, narrow, caption] : {std::tuple(Which::sibilance, Which::bypass, "BYP"),
                                                std::tuple(Which::limiter, Which::solo, "SOLO")}) {
        switches.push_back(
            new ToggleButton(settings.parameter(wide), std::nullopt, 13, ink, QSizeF(92, 27)));
        switches.push_back(new ChaosToggleButtonNarrow(settings.parameter(narrow),
                                                       QString::fromLatin1(caption), narrowSize));
    }
    panel->row().addWidget(makeGroup(QStringLiteral("Output"), switches, 2), 0, Qt::AlignTop);
    return panel;
}

/// New values for what makes the sound's character; with Alt, the values it came with.
void roll(const VocoderSettings& settings, bool isOptionHeld, std::minstd_rand& random) {
    std::uniform_real_distribution<float> position(0.1F, 0.9F);
    for (const auto which : {Which::cutoff, Which::drive, Which::formant, Which::blend,
                             Which::attack, Which::release, Which::tilt}) {
        const auto& parameter = settings.parameter(which);
        ParameterGesture(parameter).change(
            isOptionHeld ? parameter->defaultValue()
                         : parameter->valueForNormalizedPosition(position(random)));
    }
}

QWidget* makeCaptioned(QWidget* button, const QString& caption) {
    auto* const cell = new QWidget;
    auto* const column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(button, 1, Qt::AlignCenter);
    column->addWidget(makePluginLabel(caption.toUpper(), 12, "pluginGrey"), 0, Qt::AlignHCenter);
    return cell;
}

Panel* makePlayPanel(const std::shared_ptr<VocoderSettings>& settings) {
    auto* const panel = new Panel(QStringLiteral("Play"));
    auto* const pad = new ParameterHoldButton(settings->parameter(Which::freeze),
                                              kitImage("hold-pad"), kitImage("hold-pad-down"));
    panel->row().addWidget(makeCaptioned(pad, QStringLiteral("Freeze")));
    const auto random = std::make_shared<std::minstd_rand>();
    auto* const die = new ImageButton(
        kitImage("die-button"), kitImage("die-button-down"),
        [settings, random](bool isOptionHeld) { roll(*settings, isOptionHeld, *random); },
        QSizeF(36, 36));
    die->setAccessibleName(QStringLiteral("Roll the die"));
    die->setToolTip(QStringLiteral("New values; with Alt the original ones"));
    panel->row().addWidget(makeCaptioned(die, QStringLiteral("Roll")));
    return panel;
}

} // namespace

QWidget* makeVoicePage(const std::shared_ptr<VocoderSettings>& settings) {
    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    const auto addRow = [column](std::initializer_list<Panel*> panels, int stretch) {
        auto* const row = new QHBoxLayout;
        row->setSpacing(12);
        for (Panel* const panel : panels) {
            row->addWidget(panel, 1);
        }
        column->addLayout(row, stretch);
    };
    addRow({makeVoicePanel(*settings), makeEnvelopePanel(*settings)}, 0);
    addRow({makeBandsPanel(settings)}, 1);
    addRow({makeModePanel(*settings), makeSourcePanel(*settings), makeSwitchPanel(*settings),
            makePlayPanel(settings)},
           0);
    return page;
}

} // namespace larkvox
