#pragma once

#include <QWidget>

namespace kestrel {

class MetalShaderViewController;

/// The animated waveform behind the product's name, as a widget that fills whatever slot it is
/// given. It pauses while its window is not key. Without a GPU it is empty.
class ContentViewShader final : public QWidget {
    Q_OBJECT

  public:
    explicit ContentViewShader(QWidget* parent = nullptr);

    [[nodiscard]] MetalShaderViewController& controller() const { return *controller_; }

    /// Asks for one more frame, also while the animation pauses.
    void updateView();

  private:
    MetalShaderViewController* controller_; // owned by this widget
};

} // namespace kestrel
