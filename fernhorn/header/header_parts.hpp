#pragma once

#include "fernhorn/buttons/parameter_buttons.hpp"
#include "fernhorn/buttons/press_button.hpp"
#include "platform/controls/button.hpp"
#include "platform/controls/line_text.hpp"

#include <functional>

namespace fernhorn {

/// The maker's logo, a plain button that leads to the website. Main thread.
class LogoButton final : public PressButton {
    Q_OBJECT

  public:
    LogoButton(const platform::ImageAsset* logo, std::function<void()> onPressed,
               QWidget* parent = nullptr);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Link; }

  protected:
    void pressDidStep(PressStep step) override;
    void paintContent(QPainter& painter, const ButtonState& state) override;

  private:
    std::function<void()> onPressed_;
};

/// One page of a plug-in in its header: its name, bright while it is shown. Main thread.
class HeaderTab final : public IndexButton {
    Q_OBJECT

  public:
    /// How far it goes beyond its name at either side, in points: for the pointer and the focus
    /// ring.
    static constexpr int reach = 7;

    /// The parameter has to have value strings.
    HeaderTab(const std::shared_ptr<AudioParameter>& param, int valueIndex, const QFont& font,
              QWidget* parent);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::PageTab; }

  protected:
    void paintContent(QPainter& painter, const ButtonState& state) override;

  private:
    platform::LineText layout_;
};

/// The tabs of a header in a row: one for each value string of the parameter, 24 points between
/// their names. It goes as far beyond the names as tabs do. Main thread.
class HeaderTabs final : public QWidget {
    Q_OBJECT

  public:
    HeaderTabs(const std::shared_ptr<AudioParameter>& param, const QFont& font,
               QWidget* parent = nullptr);
};

/// A label on a small coloured plate, lit less while it is pressed. Its size is 13 points, in the
/// kit's own face unless a derived class takes another. Main thread.
class UpdateButtonStyle : public platform::ButtonStyle {
  public:
    static constexpr double labelSize = 13; // points

    [[nodiscard]] QFont font() const override;
    [[nodiscard]] double height() const final;
    [[nodiscard]] QMarginsF labelPadding() const final { return {4, 2, 4, 0}; }
    void paint(QPainter& painter, const QRectF& body,
               const platform::ButtonConfiguration& configuration) const final;
};

} // namespace fernhorn
