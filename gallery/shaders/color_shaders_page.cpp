#include "gallery/parts.hpp"
#include "gallery/shaders/control_panel.hpp"
#include "gallery/shaders/matrix_panel.hpp"
#include "gallery/shaders/shader_pages.hpp"
#include "gallery/shaders/wide_gamut_picture.hpp"

#include "driftwood/controls/styled_button.hpp"
#include "platform/gpu/shader_effect.hpp"
#include "shaders/kestrel_shaders_helper.hpp"

#include <QBoxLayout>

#include <array>

namespace gallery {
namespace {

using kestrel::KestrelShadersHelper;
using platform::Shader;
using platform::StateValue;

/// A view of controls and a picture, both seen through the same shader.
class ShaderBoard final : public QWidget, public platform::ActionTarget {
  public:
    ShaderBoard() : matrix_(new MatrixPanel([this] { choose(*choices_[1]); })) {
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(16);

        auto* const shaded = new Card(QStringLiteral("Seen through"));
        auto* const choices = new QHBoxLayout;
        choices->setSpacing(8);
        for (std::size_t i = 0; i < choices_.size(); ++i) {
            choices_[i] = new driftwood::StyledButton(QString::fromLatin1(names[i]));
            choices_[i]->setFixedWidth(136);
            choices_[i]->setShowsState(true);
            choices_[i]->setAction(&ShaderBoard::choose, *this);
            choices->addWidget(choices_[i]);
        }
        choices->addStretch(1);
        shaded->column().addLayout(choices);

        QWidget* const controls = makeControlPanel();
        controls->setFixedHeight(284);
        controls->setGraphicsEffect(effect_);
        auto* const place = new QWidget;
        picture_ = new WideGamutPicture(place);
        auto* const filling = new QHBoxLayout(place);
        filling->setContentsMargins(0, 0, 0, 0);
        filling->addWidget(picture_);
        auto* const row = new QGridLayout;
        row->setHorizontalSpacing(16);
        row->setVerticalSpacing(4);
        row->addWidget(makeLabel(QStringLiteral("Controls, on the processor"), 11, "Grey 50%"), 0,
                       0);
        row->addWidget(
            makeLabel(QStringLiteral("A wide-gamut picture, on the GPU"), 11, "Grey 50%"), 0, 1);
        row->addWidget(controls, 1, 0);
        row->addWidget(place, 1, 1);
        row->setColumnStretch(0, 1);
        row->setColumnStretch(1, 1);
        shaded->column().addLayout(row);
        column->addWidget(shaded);

        auto* const rows = new Card(QStringLiteral("The rows of the colour matrix"));
        rows->column().addWidget(matrix_);
        column->addWidget(rows);
        choose(*choices_[2]);
    }
    ~ShaderBoard() override { retire(); }

  private:
    static constexpr std::array names{"None", "Colour matrix", "Outside sRGB",
                                      "Outside Display P3"};

    void choose(platform::Control& sender) {
        std::optional<Shader> shader;
        for (std::size_t i = 0; i < choices_.size(); ++i) {
            const bool isChosen = &sender == choices_[i];
            choices_[i]->setState(isChosen ? StateValue::on : StateValue::off);
            if (isChosen) {
                shader = makeShader(i);
            }
        }
        effect_->setShader(shader);
        picture_->setShader(shader);
    }

    [[nodiscard]] std::optional<Shader> makeShader(std::size_t choice) const {
        const MatrixPanel::Matrix rows = matrix_->matrix();
        switch (choice) {
        case 1:
            return KestrelShadersHelper::colorMatrixShader(rows[0], rows[1], rows[2], rows[3]);
        case 2:
            return KestrelShadersHelper::outsideSRGBShader();
        case 3:
            return KestrelShadersHelper::outsideP3Shader();
        default:
            return {};
        }
    }

    std::array<driftwood::StyledButton*, names.size()> choices_{};
    platform::ShaderEffect* effect_ = new platform::ShaderEffect({}, this);
    WideGamutPicture* picture_ = nullptr;
    MatrixPanel* matrix_;
};

} // namespace

Page colorShadersPage() {
    return {.identifier = QStringLiteral("colour-shaders"),
            .group = QStringLiteral("KestrelShaders"),
            .title = QStringLiteral("Colour shaders"),
            .summary = QStringLiteral(
                "Functions that change the colour of every pixel of a view: a matrix, "
                "and marks for what a screen cannot show."),
            .build =
                [](QWidget& view) {
                    static_cast<QBoxLayout&>(*view.layout()).addWidget(new ShaderBoard);
                },
            .settlingTime = 300,
            .hasVisual = true};
}

} // namespace gallery
