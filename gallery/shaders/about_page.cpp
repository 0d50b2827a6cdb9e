#include "gallery/parts.hpp"
#include "gallery/shaders/shader_pages.hpp"
#include "gallery/shaders/visual_stage.hpp"

#include "driftwood/controls/styled_button.hpp"
#include "shaders/about_visual.hpp"

#include <QBoxLayout>

namespace gallery {
namespace {

/// A container whose controller shows the visual.
QWidget* makeControlledView() {
    auto* const container = new QWidget;
    new kestrel::AboutShaderViewController(container); // owned by the container
    return container;
}

/// The stage, and a button for each way to host the visual.
class AboutCard final : public Card, public platform::ActionTarget {
  public:
    AboutCard() : Card(QStringLiteral("Hosted by")), stage_(new VisualStage(420)) {
        auto* const row = new QHBoxLayout;
        row->setSpacing(8);
        report_ = makeLabel({}, 11, "Grey 60%");
        controller_ = addButton(*row, "AboutShaderViewController");
        sample_ = addButton(*row, "AboutSampleView");
        row->addSpacing(8);
        row->addWidget(report_, 1);
        column().addLayout(row);
        column().addWidget(stage_);
        host(*controller_);
    }
    ~AboutCard() override { retire(); }

  private:
    driftwood::StyledButton* addButton(QHBoxLayout& row, const char* title) {
        auto* const button = new driftwood::StyledButton(QString::fromLatin1(title));
        button->setFixedWidth(184);
        button->setAction(&AboutCard::host, *this);
        button->setShowsState(true);
        row.addWidget(button);
        return button;
    }

    void host(platform::Control& sender) {
        const bool isSample = &sender == sample_;
        using platform::StateValue;
        sample_->setState(isSample ? StateValue::on : StateValue::off);
        controller_->setState(isSample ? StateValue::off : StateValue::on);
        report_->setText(
            isSample ? QStringLiteral("Linear Display P3; runs while it can be seen")
                     : QStringLiteral("Linear sRGB; stands still while the window is not key"));
        stage_->show(isSample ? new kestrel::AboutSampleView : makeControlledView());
    }

    VisualStage* stage_;
    QLabel* report_ = nullptr;
    driftwood::StyledButton* controller_ = nullptr;
    driftwood::StyledButton* sample_ = nullptr;
};

} // namespace

Page aboutPage() {
    return {.identifier = QStringLiteral("about-visual"),
            .group = QStringLiteral("KestrelShaders"),
            .title = QStringLiteral("About"),
            .summary = QStringLiteral(
                "The maker's logo in drifting light, for an about panel. It starts anew "
                "with every host."),
            .build =
                [](QWidget& view) {
                    static_cast<QBoxLayout&>(*view.layout()).addWidget(new AboutCard);
                },
            .settlingTime = visualSettlingTime,
            .hasVisual = true};
}

} // namespace gallery
