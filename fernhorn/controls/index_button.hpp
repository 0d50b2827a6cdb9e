#pragma once

#include "fernhorn/controls/parameter_button.hpp"

#include <optional>
#include <vector>

namespace fernhorn {

/// A button that stands for one value of an indexed parameter: on while the parameter has it, and a
/// click chooses it. Those of one parameter that lie beside each other in one widget are a group:
/// arrow keys choose the next and the one before, and screen readers take them for radio buttons.
class IndexButton : public ParameterButton {
    Q_OBJECT

  public:
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

    bool handleKey(const QKeyEvent& event) override;
    void expectUserChange() override;

  private:
    /// Itself included, by their index; only those that can be chosen now.
    [[nodiscard]] std::vector<IndexButton*> group() const;

    int valueIndex_;
};

/// The name of a value in capitals, or nothing when the parameter has no names. Stops the program
/// when it has some, but not for `index`.
[[nodiscard]] QString indexCaption(const std::shared_ptr<AudioParameter>& param, int index);

} // namespace fernhorn
