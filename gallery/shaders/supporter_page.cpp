#include "gallery/parts.hpp"
#include "gallery/shaders/shader_pages.hpp"
#include "gallery/shaders/visual_stage.hpp"

#include "driftwood/controls/styled_button.hpp"
#include "shaders/supporter_visual.hpp"

#include <QBoxLayout>

#include <array>

namespace gallery {
namespace {

using platform::StateValue;

/// A button that stays on, and tells how it is pressed.
class Switch final : public driftwood::StyledButton {
  public:
    Switch(const char* title, int index, kestrel::SupporterShaderViewController& visual)
        : StyledButton(QString::fromLatin1(title)), visual_(visual), index_(index) {
        setShowsState(true);
        setFixedWidth(88);
    }

    void tell() {
        state() == StateValue::on ? visual_.switchOn(index_) : visual_.switchOff(index_);
    }

  protected:
    void highlightDidChange(bool isHighlighted) override {
        isHighlighted ? visual_.switchDown(index_) : visual_.switchUp(index_);
    }

  private:
    kestrel::SupporterShaderViewController& visual_;
    int index_;
};

/// The visual, and below each of its lamps the switch that works it.
class SupporterCard final : public Card, public platform::ActionTarget {
  public:
    SupporterCard() : Card(QStringLiteral("Press, hold and switch")) {
        auto* const stage = new VisualStage(260);
        auto* const container = new QWidget;
        auto* const visual = new kestrel::SupporterShaderViewController(
            container, QStringLiteral("Supporter")); // owned by the container
        visual->setInitialButtonStates(isOn[0], isOn[1], isOn[2], isOn[3], isOn[4], isOn[5]);
        stage->show(container);
        column().addWidget(stage);
        auto* const row = new QHBoxLayout;
        row->setSpacing(0);
        for (std::size_t i = 0; i < titles.size(); ++i) {
            auto* const button = new Switch(titles[i], static_cast<int>(i), *visual);
            button->setState(isOn[i] ? StateValue::on : StateValue::off);
            button->setAction(
                [](platform::ActionTarget&, platform::Control& sender) {
                    static_cast<Switch&>(sender).tell();
                },
                *this);
            row->addWidget(button, 1, Qt::AlignHCenter);
        }
        column().addLayout(row);
    }
    ~SupporterCard() override { retire(); }

  private:
    static constexpr std::array titles{"Chorus", "Delay", "Drive", "Reverb", "Shimmer", "Width"};
    static constexpr std::array isOn{false, true, false, false, true, false};
};

} // namespace

Page supporterPage() {
    return {.identifier = QStringLiteral("supporter-visual"),
            .group = QStringLiteral("KestrelShaders"),
            .title = QStringLiteral("Supporter"),
            .summary = QStringLiteral(
                "Six lamps on a band of strands that follow six switches, and send a "
                "pulse when one turns on."),
            .build =
                [](QWidget& view) {
                    static_cast<QBoxLayout&>(*view.layout()).addWidget(new SupporterCard);
                },
            .settlingTime = visualSettlingTime,
            .hasVisual = true};
}

} // namespace gallery
