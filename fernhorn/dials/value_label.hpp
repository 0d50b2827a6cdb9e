#pragma once

#include "core/subscription.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "fernhorn/format/label_display_options.hpp"
#include "fernhorn/format/label_formatter.hpp"
#include "fernhorn/model/audio_parameter.hpp"
#include "platform/controls/held_key.hpp"

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QPainter;

namespace fernhorn {

class TextPictures;
class ValueField;

/// What a control without a formatter of its own shows: the names of an indexed parameter's values,
/// else numbers with one decimal place. Main thread.
std::shared_ptr<const LabelFormatter> makeReadOutFormatter(const AudioParameter& parameter);

/// A value and its unit, as one text; the unit once, whoever writes it. Main thread.
QString textWithUnit(const AudioParameter& parameter, const LabelFormatter& formatter, float value);

/// A value's label as a read-out or as a field: its states, and what leads from one to the other.
/// It knows texts and values, not widgets. Main thread.
class LabelEditing : public std::enable_shared_from_this<LabelEditing> {
  public:
    /// `param` and `formatter` must not be null; `onEditingEnded` may be empty.
    LabelEditing(std::shared_ptr<AudioParameter> param,
                 std::shared_ptr<const LabelFormatter> formatter,
                 std::function<void()> onEditingEnded);

    [[nodiscard]] const std::shared_ptr<AudioParameter>& param() const { return param_; }
    [[nodiscard]] const std::shared_ptr<const LabelFormatter>& formatter() const {
        return formatter_;
    }
    [[nodiscard]] bool isEditing() const { return isEditing_; }
    /// The text of the value, or what the user has made of it. UTF-8.
    [[nodiscard]] const std::string& valueString() const { return valueString_; }
    void setValueString(std::string text) { valueString_ = std::move(text); }

    /// The parameter has another value, or the label is first shown: its text takes the place of
    /// whatever was typed.
    void valueDidChange(float value) { valueString_ = formatter_->format(value); }
    /// Opens the field with the text of the current value. False when it is open.
    bool click();
    /// Sets the parameter to what was typed, in what the label shows, if it is understood; then
    /// ends the edit.
    void submit();
    /// Ends the edit: tells `onEditingEnded`, shows the value, closes the field.
    void end();
    /// Closes the field and tells nobody; what was typed stays until the value changes.
    void focusLost() { isEditing_ = false; }

  private:
    const std::shared_ptr<AudioParameter> param_;
    const std::shared_ptr<const LabelFormatter> formatter_;
    const std::function<void()> onEditingEnded_;
    std::string valueString_;
    bool isEditing_ = false;
};

/// A value's label within a widget: painted as a read-out, a child widget while a value is typed. A
/// part of the widget, which says where it is, hears of clicks, and repaints when asked to. Main
/// thread.
class LabelPart final : public QObject {
    Q_OBJECT

  public:
    LabelPart(QWidget& view, std::shared_ptr<AudioParameter> param,
              const LabelDisplayOptions& options, std::shared_ptr<const LabelFormatter> formatter,
              std::function<void()> onEditingEnded, const QColor& color, FernFont font);
    ~LabelPart() override;

    [[nodiscard]] const LabelDisplayOptions& displayOptions() const { return options_; }
    [[nodiscard]] const LabelEditing& editing() const { return *editing_; }
    [[nodiscard]] const QColor& color() const { return color_; }
    [[nodiscard]] FernFont font() const { return font_; }

    /// The label's height in points, caption included; it never changes.
    [[nodiscard]] double height() const;
    /// A width in points that the texts of all values are likely to fit into.
    [[nodiscard]] double usualWidth() const;
    /// Where the label is now: around a centre, as wide as what it shows.
    [[nodiscard]] QRectF rect() const;
    /// In the view's coordinates.
    void setCenter(QPointF center);

    /// Opens the field, with its text selected and the keyboard in it. Does nothing when it is
    /// open.
    void open();
    /// True when the text is another one now.
    bool valueDidChange(float value);
    void paint(QPainter& painter) const;

  signals:
    /// A value was typed.
    void submitted();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    [[nodiscard]] double valueWidth() const;
    [[nodiscard]] double captionHeight() const;
    [[nodiscard]] QRectF valueRect() const;
    void makeField();
    void placeField();
    void leave();
    void closeField();

    QWidget& view_;
    const std::shared_ptr<LabelEditing> editing_;
    const LabelDisplayOptions options_;
    const QColor color_;
    const QColor valueColor_;
    const FernFont font_;
    TextPictures& captions_;
    TextPictures& values_;
    const QString caption_; // empty: none
    const QString suffix_;  // empty: none
    QString text_;          // of the read-out
    QPointF center_;
    ValueField* field_ = nullptr; // a child of the view, made when it is first opened
    QPointer<QWidget> focusBefore_;
};

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
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    LabelPart label_;
    core::Subscription valueObserver_;
    platform::HeldKey heldKey_;
    bool isPressed_ = false;
    bool showsFocus_ = false;
};

} // namespace fernhorn
