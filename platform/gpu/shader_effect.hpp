#pragma once

#include "platform/gpu/shader.hpp"

#include <QGraphicsEffect>

#include <optional>

namespace platform {

/// Applies a `Shader` to a widget and everything in it, on the processor, where widgets are
/// painted. Give it to `QWidget::setGraphicsEffect`, which takes ownership; widgets in the subtree
/// may have effects of their own. A `GpuView` is not painted there: give it the same shader itself.
/// Main thread.
class ShaderEffect final : public QGraphicsEffect {
    Q_OBJECT

  public:
    explicit ShaderEffect(std::optional<Shader> shader = {}, QObject* parent = nullptr);

    /// Nothing leaves the widget as it is. Repaints only when it is another one.
    void setShader(std::optional<Shader> shader);
    [[nodiscard]] const std::optional<Shader>& shader() const { return shader_; }

  protected:
    void draw(QPainter* painter) override;

  private:
    std::optional<Shader> shader_;
};

} // namespace platform
