#pragma once

#include "core/subscription.hpp"
#include "fernhorn/controls/label_part.hpp"

#include <QWidget>

namespace fernhorn {

/// A parameter's value as text: a click (or Return, when Tab has brought the keyboard) opens a
/// field to type another one. Return in the field sets it, Escape and leaving do not. Main thread.
class DialLabel final : public QWidget {
    Q_OBJECT

  public:
    /// `param` and `formatter` must not be null; `onEditingEnded` is called when an edit was
    /// committed or cancelled with Escape. `color` is the caption's.
    DialLabel(std::shared_ptr<AudioParameter> param, const LabelDisplayOptions& displayOptions,
              std::shared_ptr<const LabelFormatter> formatter, std::function<void()> onEditingEnded,
              const QColor& color, FernFont font, QWidget* parent = nullptr);
    ~DialLabel() override;

    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const {
        return label_.editing().param();
    }
    [[nodiscard]] const LabelDisplayOptions& displayOptions() const {
        return label_.displayOptions();
    }
    [[nodiscard]] const std::shared_ptr<const LabelFormatter>& formatter() const {
        return label_.editing().formatter();
    }
    [[nodiscard]] const QColor& color() const { return label_.color(); }
    [[nodiscard]] FernFont fernFont() const { return label_.font(); }
    [[nodiscard]] bool isEditing() const { return label_.editing().isEditing(); }
    /// The text of the read-out or the field.
    [[nodiscard]] QString valueString() const;

    /// Opens the field. Does nothing when it is open.
    void openField();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    LabelPart label_;
    core::Subscription valueObserver_;
    bool isPressed_ = false;
    bool showsFocus_ = false;
};

} // namespace fernhorn
