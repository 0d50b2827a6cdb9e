#pragma once

#include "platform/controls/control.hpp"
#include "platform/gpu/shader.hpp"

#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QSlider;

namespace gallery {

/// Sixteen sliders for the rows of a colour matrix, and buttons for well-known ones.
class MatrixPanel final : public QWidget, public platform::ActionTarget {
  public:
    using Matrix = std::array<platform::Float4, 4>;

    /// `changed` is told whenever the matrix is another one.
    explicit MatrixPanel(std::function<void()> changed);
    ~MatrixPanel() override;

    [[nodiscard]] Matrix matrix() const;
    void setMatrix(const Matrix& matrix);

  private:
    QWidget* makeCell(std::size_t row, std::size_t column);
    QWidget* makePresets();

    std::function<void()> changed_;
    std::array<std::array<QSlider*, 4>, 4> sliders_{};
    bool isSetting_ = false;
};

} // namespace gallery
