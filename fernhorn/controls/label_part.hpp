#pragma once

#include "fernhorn/controls/label_editing.hpp"
#include "fernhorn/fonts/fern_font.hpp"
#include "fernhorn/format/label_display_options.hpp"

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRectF>

class QPainter;
class QWidget;

namespace fernhorn {

class TextPictures;
class ValueField;

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

} // namespace fernhorn
