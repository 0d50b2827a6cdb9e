#include "gallery/shaders/matrix_panel.hpp"

#include "driftwood/controls/styled_button.hpp"
#include "gallery/parts.hpp"

#include <QGridLayout>
#include <QSlider>

#include <cmath>
#include <utility>

namespace gallery {
namespace {

using Matrix = MatrixPanel::Matrix;

constexpr float unit = 100; // steps of a slider
constexpr std::array components{"Red", "Green", "Blue", "Alpha"};

struct Preset {
    const char* name;
    Matrix matrix;
};

// The weights of grey are those of linear sRGB (IEC 61966-2-1).
constexpr std::array presets{
    Preset{"Identity", {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}}},
    Preset{"Grey",
           {{{0.21F, 0.72F, 0.07F, 0},
             {0.21F, 0.72F, 0.07F, 0},
             {0.21F, 0.72F, 0.07F, 0},
             {0, 0, 0, 1}}}},
    Preset{"Lamplight",
           {{{0.9F, 0.25F, 0, 0}, {0.1F, 0.6F, 0, 0}, {0, 0.1F, 0.35F, 0}, {0, 0, 0, 1}}}},
    Preset{"Vivid",
           {{{1.5F, -0.4F, -0.1F, 0},
             {-0.2F, 1.3F, -0.1F, 0},
             {-0.1F, -0.4F, 1.5F, 0},
             {0, 0, 0, 1}}}},
    Preset{"Negative", {{{-1, 0, 0, 1}, {0, -1, 0, 1}, {0, 0, -1, 1}, {0, 0, 0, 1}}}},
    Preset{"Half there", {{{0.5F, 0, 0, 0}, {0, 0.5F, 0, 0}, {0, 0, 0.5F, 0}, {0, 0, 0, 0.5F}}}},
};

} // namespace

MatrixPanel::MatrixPanel(std::function<void()> changed) : changed_(std::move(changed)) {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(4);
    for (std::size_t i = 0; i < components.size(); ++i) {
        const int place = static_cast<int>(i) + 1;
        const QString name = QString::fromLatin1(components[i]);
        grid->addWidget(makeLabel(name, 11, "Grey 70%"), place, 0);
        grid->addWidget(makeLabel(QStringLiteral("of ") + name.toLower(), 11, "Grey 50%"), 0,
                        place);
        for (std::size_t column = 0; column < components.size(); ++column) {
            grid->addWidget(makeCell(i, column), place, static_cast<int>(column) + 1);
        }
    }
    grid->addWidget(makePresets(), 5, 0, 1, 5);
    setMatrix(presets[0].matrix);
}

MatrixPanel::~MatrixPanel() {
    retire();
}

QWidget* MatrixPanel::makeCell(std::size_t row, std::size_t column) {
    auto* const cell = new QWidget;
    auto* const line = new QHBoxLayout(cell);
    line->setContentsMargins(0, 0, 0, 0);
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setRange(-200, 200);
    slider->setAccessibleName(QStringLiteral("%1 of %2")
                                  .arg(QString::fromLatin1(components[row]),
                                       QString::fromLatin1(components[column]).toLower()));
    auto* const value = makeLabel({}, 11, "Grey 60%");
    value->setFixedWidth(32);
    value->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    QObject::connect(slider, &QSlider::valueChanged, this, [this, value](int steps) {
        value->setText(QString::number(static_cast<double>(steps) / unit, 'f', 2));
        if (!isSetting_) {
            changed_();
        }
    });
    line->addWidget(slider, 1);
    line->addWidget(value);
    sliders_[row][column] = slider;
    return cell;
}

QWidget* MatrixPanel::makePresets() {
    auto* const view = new QWidget;
    auto* const row = new QHBoxLayout(view);
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(8);
    for (const Preset& preset : presets) {
        auto* const button = new driftwood::StyledButton(QString::fromLatin1(preset.name));
        button->setFixedWidth(88);
        button->setAction(
            [this, &preset](platform::ActionTarget&, platform::Control&) {
                setMatrix(preset.matrix);
                changed_();
            },
            *this);
        row->addWidget(button);
    }
    row->addStretch(1);
    return view;
}

Matrix MatrixPanel::matrix() const {
    Matrix matrix{};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            matrix[row][column] = static_cast<float>(sliders_[row][column]->value()) / unit;
        }
    }
    return matrix;
}

void MatrixPanel::setMatrix(const Matrix& matrix) {
    isSetting_ = true;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            sliders_[row][column]->setValue(
                static_cast<int>(std::lround(matrix[row][column] * unit)));
            if (matrix[row][column] == 0) { // so it says its value from the start
                emit sliders_[row][column]->valueChanged(sliders_[row][column]->value());
            }
        }
    }
    isSetting_ = false;
}

} // namespace gallery
