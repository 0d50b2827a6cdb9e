#pragma once

#include "platform/ui/button.hpp"

namespace platform {

/// The push buttons of the updater's dialogs, drawn from the palette of the application. The
/// prominent one is what the dialog is about.
class DialogButtonStyle final : public ButtonStyle {
  public:
    enum class Prominence { quiet, prominent };

    explicit DialogButtonStyle(Prominence prominence) : prominence_(prominence) {}

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const override { return 28; }
    void paint(QPainter& painter, const QRectF& body,
               const ButtonConfiguration& configuration) const override;

  private:
    Prominence prominence_;
};

/// A button as wide as its label asks for, and never narrow.
[[nodiscard]] Button* makeDialogButton(const QString& label,
                                       DialogButtonStyle::Prominence prominence, QWidget* parent);

} // namespace platform
