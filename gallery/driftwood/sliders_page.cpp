#include "gallery/driftwood/driftwood_pages.hpp"
#include "gallery/driftwood/state_board.hpp"

#include "driftwood/bridges/resource_bundle_accessor.hpp"
#include "driftwood/controls/styled_slider.hpp"
#include "driftwood/controls/tracking_slider.hpp"
#include "driftwood/declarative/drift_slider.hpp"
#include "gallery/parts.hpp"

#include <QBoxLayout>
#include <QLabel>

namespace gallery {
namespace {

using driftwood::SliderKind;
using driftwood::StyledScrollableSlider;
using driftwood::TrackingSlider;

const platform::ImageAsset* kitGlyph(const char* name) {
    return driftwood::resourceBundle().assets().image(QString::fromLatin1(name));
}

void sizeFor(driftwood::StyledSlider& slider) {
    slider.setAccessibleName(QStringLiteral("Level"));
    if (slider.sliderType() == SliderKind::vertical) {
        slider.setFixedHeight(96);
    }
}

Specimen sliderAs(const char* caption, SliderKind kind, double value,
                  std::function<void(driftwood::StyledSlider&)> change = {}) {
    return {QString::fromLatin1(caption), [=] {
                auto* const slider = new driftwood::StyledSlider(kind);
                slider->setDoubleValue(value);
                sizeFor(*slider);
                if (change) {
                    change(*slider);
                }
                return slider;
            }};
}

/// A live slider that writes what it tells into a label.
QWidget* reporting(SliderKind kind, QLabel& report) {
    auto* const slider = new StyledScrollableSlider(kind);
    slider->setRange(0, 100);
    slider->setDoubleValue(40);
    slider->setUnit(QStringLiteral("%"));
    sizeFor(*slider);
    const auto tell = [&report](const char* what) {
        return [&report, what](double value) {
            report.setText(
                QStringLiteral("%1 at %2").arg(QLatin1String(what)).arg(value, 0, 'f', 1));
        };
    };
    slider->onSlideStarted = tell("Started");
    slider->onSlideOngoing = tell("Going on");
    slider->onSlideComplete = tell("Complete");
    return slider;
}

std::shared_ptr<driftwood::DriftSliderModel> levels(std::vector<double> starts) {
    return std::make_shared<driftwood::DriftSliderModel>(
        std::move(starts), 50, 0, 100, 10, driftwood::SliderIconClickBehaviour::increment);
}

driftwood::DriftSlider* makeDriftSlider(std::vector<double> starts) {
    auto* const slider =
        new driftwood::DriftSlider(levels(std::move(starts)), kitGlyph("dwk-customslider-less"),
                                   kitGlyph("dwk-customslider-more"));
    slider->setValueName(QStringLiteral("Level"), QStringLiteral("%"));
    return slider;
}

Specimen driftAs(const char* caption, std::vector<double> starts,
                 std::function<void(driftwood::DriftSlider&)> change = {}) {
    return {QString::fromLatin1(caption), [=] {
                auto* const slider = makeDriftSlider(starts);
                if (change) {
                    change(*slider);
                }
                return slider;
            }};
}

} // namespace

Page slidersPage() {
    return {QStringLiteral("sliders"), QStringLiteral("Driftwood controls"),
            QStringLiteral("StyledSlider"),
            QStringLiteral("Sliders lying, standing and round; they tell of a drag's start, course "
                           "and end."),
            [](QWidget& view) {
                auto* const report =
                    makeLabel(QStringLiteral("Drag, scroll, or use the arrows, Page, Home and End"),
                              11, "Grey 60%");
                auto* const card = new Card(QStringLiteral("Live"));
                auto* const row = new QHBoxLayout;
                row->setSpacing(24);
                for (const SliderKind kind :
                     {SliderKind::horizontal, SliderKind::vertical, SliderKind::circular}) {
                    row->addWidget(reporting(kind, *report));
                }
                card->column().addLayout(row);
                card->column().addWidget(report);
                view.layout()->addWidget(card);
                using Slider = driftwood::StyledSlider;
                const auto held = [](Slider& s) { s.setHighlighted(true); };
                const auto focused = [](Slider& s) { s.setFocusRingPictured(true); };
                const auto disabled = [](Slider& s) { s.setEnabled(false); };
                std::vector<Specimen> all{
                    sliderAs("Minimum", SliderKind::horizontal, 0),
                    sliderAs("In between", SliderKind::horizontal, 0.4),
                    sliderAs("Maximum", SliderKind::horizontal, 1),
                    sliderAs("Held", SliderKind::horizontal, 0.4, held),
                    sliderAs("Focused", SliderKind::horizontal, 0.4, focused),
                    sliderAs("Disabled", SliderKind::horizontal, 0.4, disabled)};
                for (const SliderKind kind : {SliderKind::vertical, SliderKind::circular}) {
                    all.push_back(sliderAs("In between", kind, 0.4));
                    all.push_back(sliderAs("Held", kind, 0.4, held));
                    all.push_back(sliderAs("Disabled", kind, 0.4, disabled));
                }
                addStateBoards(view, all, 3);
            }};
}

Page trackingSliderPage() {
    return {QStringLiteral("tracking-slider"), QStringLiteral("Driftwood controls"),
            QStringLiteral("TrackingSlider"),
            QStringLiteral("An image that is a knob: drags, wheels and keys move it by one "
                           "increment at a time."),
            [](QWidget& view) {
                auto* const slider = new TrackingSlider(kitGlyph("dwk-slider-handle-multi"));
                slider->setAccessibleName(QStringLiteral("Detune"));
                slider->setFixedSize(48, 48);
                slider->setRange(-50, 50);
                slider->setIncrementBy(1);
                slider->setUnit(QStringLiteral("ct"));
                slider->setContinuous(true);
                auto* const value = makeLabel(QStringLiteral("0 ct"), 20, "Grey 85%");
                slider->setAction(
                    [slider, value](platform::ActionTarget&, platform::Control&) {
                        value->setText(slider->valueText());
                    },
                    *slider);
                addLiveCard(view, {{slider, QStringLiteral("Drag it upwards, scroll, or use the "
                                                           "arrows")},
                                   {value, {}}});
                const auto as = [](const char* caption, auto change) -> Specimen {
                    return {QString::fromLatin1(caption), [change] {
                                auto* const shown =
                                    new TrackingSlider(kitGlyph("dwk-slider-handle-multi"));
                                shown->setFixedSize(48, 32);
                                change(*shown);
                                return shown;
                            }};
                };
                addStateBoards(
                    view,
                    {as("At rest", [](TrackingSlider&) {}),
                     as("Held", [](TrackingSlider& s) { s.setAlphaValue(0.5); }),
                     as("Focused", [](TrackingSlider& s) { s.setFocusRingPictured(true); }),
                     as("Disabled", [](TrackingSlider& s) { s.setEnabled(false); })},
                    4);
            }};
}

Page driftSliderPage() {
    return {
        QStringLiteral("drift-slider"), QStringLiteral("Driftwood declarative"),
        QStringLiteral("DriftSlider"),
        QStringLiteral("Edits one number of several objects at once; while they disagree, a "
                       "faint knob stands for each."),
        [](QWidget& view) {
            addLiveCard(view,
                        {{makeDriftSlider({30}), QStringLiteral("Shift snaps, Alt resets")},
                         {makeDriftSlider({10, 55, 80}), QStringLiteral("Mixed until moved")}});
            using Slider = driftwood::DriftSlider;
            addStateBoards(
                view,
                {driftAs("One value", {30, 30}), driftAs("Minimum", {0}), driftAs("Maximum", {100}),
                 driftAs("Two values", {20, 70}), driftAs("Five values", {5, 20, 45, 60, 95}),
                 driftAs("More than five", {1, 2, 3, 4, 5, 6}),
                 driftAs("Focused", {30}, [](Slider& s) { s.track().setFocusRingPictured(true); }),
                 driftAs("Disabled", {30}, [](Slider& s) { s.setEnabled(false); })},
                2);
        }};
}

} // namespace gallery
