#pragma once

#include "core/subscription.hpp"
#include "fernhorn/buttons/parameter_press.hpp"
#include "fernhorn/buttons/press_button.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace fernhorn {

/// What makes a parameter's button the one it is.
struct ParameterButtonParts {
    PressEdit edit;
    std::function<bool(float value)> isOn; ///< empty: it shows no state
    ButtonFace face;
    QSizeF buttonSize;
    QString spokenName; ///< for screen readers: as it is written, not in capitals
};

/// A button bound to a parameter. Each press is one touch and one release for the host, however it
/// ends. It shows the parameter's value, whoever changes it; screen readers are told of what the
/// user has changed with it, not of automation.
class ParameterButton : public PressButton {
    Q_OBJECT

  public:
    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const {
        return press_.parameter();
    }
    [[nodiscard]] bool isOn() const override { return isShownOn_; }

  protected:
    /// `param` must not be null.
    ParameterButton(std::shared_ptr<AudioParameter> param, ParameterButtonParts parts,
                    QWidget* parent);

    void pressDidStep(PressStep step) override;
    /// The button is on now, or no longer.
    virtual void onDidChange() {}
    /// The click's edit is on its way: what it changes here is the user's doing.
    virtual void expectUserChange();

  private:
    void valueDidChange(float value);

    ParameterPress press_;
    std::function<bool(float)> isOnAt_;
    bool isShownOn_;
    bool isUserChangeExpected_ = false;
    core::Subscription value_;
};

/// What the parameter is called.
[[nodiscard]] QString nameOf(const std::shared_ptr<AudioParameter>& param);

/// A button that stands for one value of an indexed parameter: on while the parameter has it, and a
/// click chooses it. Those of one parameter that lie beside each other in one widget are a group:
/// Tab comes to it once, to what is chosen; arrow keys choose the next and the one before, Home and
/// End the first and the last. Screen readers take them for radio buttons. Main thread.
class IndexButton : public ParameterButton {
    Q_OBJECT

  public:
    ~IndexButton() override;

    [[nodiscard]] int valueIndex() const { return valueIndex_; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::RadioButton;
    }

  protected:
    /// What a click writes, and at which values the button is on.
    struct Choice {
        PressEdit edit;
        std::function<bool(float value)> isOn;
    };

    /// A touch, the index and a release; on at every value that is cut to the index.
    IndexButton(const std::shared_ptr<AudioParameter>& param, int valueIndex, ButtonFace face,
                QSizeF buttonSize, QWidget* parent);
    IndexButton(const std::shared_ptr<AudioParameter>& param, int valueIndex, Choice choice,
                ButtonFace face, QSizeF buttonSize, QWidget* parent);

    bool event(QEvent* event) override;
    bool handleKey(const QKeyEvent& event) override;
    void onDidChange() override { placeTabStop(); }
    void expectUserChange() override;

  private:
    /// Itself included, by their index; only those that can be chosen now.
    [[nodiscard]] std::vector<IndexButton*> group() const;
    /// Of the group one is Tab's: what has the keyboard, else what is chosen, else the first.
    void placeTabStop(bool isLeaving = false);

    int valueIndex_;
};

/// The name of a value in capitals, or nothing when the parameter has no names. Stops the program
/// when it has some, but not for `index`.
[[nodiscard]] QString indexCaption(const std::shared_ptr<AudioParameter>& param, int index);

// The buttons themselves.

/// A key with a lamp that chooses one value of an indexed parameter and shows its name.
class ChaosToggleButton final : public IndexButton {
    Q_OBJECT

  public:
    /// `valueIndex` has to be among the parameter's value strings, if it has any.
    ChaosToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                      ChaosButtonColor color, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] ChaosButtonColor color() const { return color_; }

  private:
    ChaosButtonColor color_;
};

/// A narrow key with a lamp that switches a parameter between 0 and 1. It is on at exactly 1.
class ChaosToggleButtonNarrow final : public ParameterButton {
    Q_OBJECT

  public:
    /// `buttonText` is shown as it is written.
    ChaosToggleButtonNarrow(const std::shared_ptr<AudioParameter>& param,
                            const std::optional<QString>& buttonText, QSizeF buttonSize,
                            QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<QString>& buttonText() const { return buttonText_; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }

  private:
    std::optional<QString> buttonText_;
};

/// A flat button that switches a parameter between 0 and 1. It is on at exactly 1.
class ToggleButton final : public ParameterButton {
    Q_OBJECT

  public:
    /// `nameOverride` is shown as it is written, the parameter's name in capitals. The font size is
    /// in points.
    ToggleButton(const std::shared_ptr<AudioParameter>& param,
                 const std::optional<QString>& nameOverride, double buttonFontSize,
                 const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<QString>& nameOverride() const { return nameOverride_; }
    [[nodiscard]] double buttonFontSize() const { return buttonFontSize_; }
    [[nodiscard]] QColor buttonTextColor() const { return face().caption.color; }
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::CheckBox;
    }

  private:
    std::optional<QString> nameOverride_;
    double buttonFontSize_;
};

/// What a `ModeToggleButton` is made of.
enum class ToggleButtonStyle : std::uint8_t { modern, retro };

/// A flat button that chooses one value of an indexed parameter and shows its name.
class ModeToggleButton final : public IndexButton {
    Q_OBJECT

  public:
    /// `valueIndex` has to be among the parameter's value strings, if it has any. The font size is
    /// in points.
    ModeToggleButton(const std::shared_ptr<AudioParameter>& param, int valueIndex,
                     ToggleButtonStyle buttonStyle, double buttonFontSize,
                     const QColor& buttonTextColor, QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] ToggleButtonStyle buttonStyle() const { return buttonStyle_; }
    [[nodiscard]] double buttonFontSize() const { return buttonFontSize_; }
    [[nodiscard]] QColor buttonTextColor() const { return face().caption.color; }

  private:
    ToggleButtonStyle buttonStyle_;
    double buttonFontSize_;
};

/// A rocker that shows an arrow to the left while the parameter has one value and to the right
/// otherwise. Whatever that value is, a click switches between 0 and 1.
class LeftRightArrowButton final : public ParameterButton {
    Q_OBJECT

  public:
    LeftRightArrowButton(const std::shared_ptr<AudioParameter>& param, float leftValue,
                         QSizeF buttonSize, QWidget* parent = nullptr);

    [[nodiscard]] float leftValue() const { return leftValue_; }
    /// Which way it points: neither of them is on or off.
    [[nodiscard]] QString spokenDescription() const override;

  private:
    float leftValue_;
};

/// A button whose parameter is 1 while it is held, and 0 afterwards, also when it was 1 before.
class ParameterHoldButton final : public ParameterButton {
    Q_OBJECT

  public:
    /// As large as `image`. The images outlive the button.
    ParameterHoldButton(const std::shared_ptr<AudioParameter>& param,
                        const platform::ImageAsset* image, const platform::ImageAsset* pressedImage,
                        QWidget* parent = nullptr);

    [[nodiscard]] const platform::ImageAsset* image() const { return face().images.off; }
    [[nodiscard]] const platform::ImageAsset* pressedImage() const { return face().images.offDown; }
    [[nodiscard]] bool isGestureActive() const { return isPressed(); }

  protected:
    /// A pad is round.
    [[nodiscard]] double focusRadius() const override;
};

} // namespace fernhorn
