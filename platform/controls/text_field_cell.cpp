#include "platform/controls/text_field_cell.hpp"

#include "platform/assets/system_font.hpp"

#include <QFontMetricsF>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr qsizetype mostShown = 4096; // characters; no field is that wide
constexpr double tightest = 0.95;
constexpr double caretWidth = 2; // that an editor needs behind the text

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// As the editor shows it: characters that are no signs are spaces.
QString shownText(const QString& text, LineEliding mode) {
    QString shown = text.size() <= mostShown    ? text
                    : mode == LineEliding::head ? text.right(mostShown)
                                                : text.left(mostShown);
    if (std::ranges::any_of(shown, isControl)) {
        std::ranges::replace_if(shown, isControl, QLatin1Char(' '));
    }
    return shown;
}

Qt::Alignment toQt(LineAlignment side) {
    return side == LineAlignment::left     ? Qt::AlignLeft
           : side == LineAlignment::centre ? Qt::AlignHCenter
                                           : Qt::AlignRight;
}

const QFont& plainFont() {
    static const QFont font = systemFont(13, QFont::Normal);
    return font;
}

} // namespace

TextFieldCell::TextFieldCell(QString text) : font_(plainFont()) {
    setCellState({.showsState = false});
    setStringValue(text);
}

void TextFieldCell::setStringValue(const QString& text) {
    stringValue_ = text;
    shown_ = shownText(text, lineBreakMode_);
    measuredHeight_ = -1;
}

core::Rect TextFieldCell::titleRect(const core::Rect& bounds) const {
    return core::atLeastEmpty(core::inset(drawingRect(bounds), textInsets(), true));
}

core::Size TextFieldCell::textSize() const {
    if (maxLayoutWidth_ > 0) {
        const QRectF place = QFontMetricsF(font()).boundingRect(
            QRectF(0, 0, maxLayoutWidth_, QWIDGETSIZE_MAX), Qt::TextWordWrap, shown_);
        return {std::min(std::ceil(place.width()), maxLayoutWidth_), std::ceil(place.height())};
    }
    const QFont now = font();
    if (measuredHeight_ < 0 || !(measuredFont_.isCopyOf(now) || measuredFont_ == now)) {
        const QFontMetricsF metrics(now);
        measuredFont_ = now;
        measuredWidth_ = metrics.horizontalAdvance(shown_);
        measuredHeight_ = metrics.height();
    }
    return {measuredWidth_, measuredHeight_};
}

core::Size TextFieldCell::cellSize() const {
    // What lies around the text, from the bounds of a field that is large enough.
    const core::Rect large{{0, 0}, {1000, 1000}};
    const core::Rect inner = core::inset(drawingRect(large), textInsets(), true);
    const core::Size text = textSize();
    const double beside = large.size.width - inner.size.width;
    const double above = large.size.height - inner.size.height;
    return {std::ceil(text.width) + (maxLayoutWidth_ > 0 ? 0 : caretWidth) + beside,
            std::ceil(text.height) + above};
}

core::Size TextFieldCell::cellSizeForBounds(const core::Rect& bounds) const {
    const core::Size size = cellSize();
    return {std::min(size.width, bounds.size.width), size.height};
}

LineAlignment TextFieldCell::sideOfText(bool isRightToLeft) const {
    if (alignment_ != LineAlignment::natural) {
        return alignment_;
    }
    return isRightToLeft || shown_.isRightToLeft() ? LineAlignment::right : LineAlignment::left;
}

void TextFieldCell::edit(const core::Rect& frame, QLineEdit& editor) {
    const int left = static_cast<int>(std::floor(frame.origin.x));
    const int right = static_cast<int>(std::ceil(frame.maxX()));
    const QRect place(left, 0, right - left, editor.parentWidget()->height());
    if (editor.geometry() != place) {
        editor.setGeometry(place);
    }
}

void TextFieldCell::select(const core::Rect& frame, QLineEdit& editor, int start, int length) {
    TextFieldCell::edit(frame, editor);
    editor.setSelection(start, length);
}

void TextFieldCell::setUpFieldEditorAttributes(QLineEdit& editor) const {
    QPalette palette = editor.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    editor.setPalette(palette);
    editor.setFont(font());
}

QColor TextFieldCell::textColor(const CellCanvas& canvas) const {
    return canvas.controlTextColor;
}

QColor TextFieldCell::placeholderColor(const CellCanvas& canvas) const {
    QColor color = canvas.controlTextColor;
    color.setAlphaF(color.alphaF() * 0.5F);
    return color;
}

QFont TextFieldCell::tightened(const QFont& font, const QString& text, double width) const {
    if (!allowsTightening_) {
        return font;
    }
    const double whole = QFontMetricsF(font).horizontalAdvance(text);
    if (whole <= width || whole <= 0) {
        return font;
    }
    QFont closer = font;
    // In whole hundredths, so that few fonts are made.
    const double share = std::floor(width / whole * 100) / 100;
    closer.setLetterSpacing(QFont::PercentageSpacing, std::max(tightest, share) * 100);
    return closer;
}

void TextFieldCell::drawText(const core::Rect& frame, const CellCanvas& canvas) const {
    const bool isPlaceholder = shown_.isEmpty();
    if (isPlaceholder ? drawnBy_ == TextDrawnBy::editorWithComposition
                      : drawnBy_ != TextDrawnBy::cell) {
        return;
    }
    const QString& text = isPlaceholder ? placeholderString_ : shown_;
    if (!text.isEmpty()) {
        drawLine(text, textRect(frame),
                 isPlaceholder ? placeholderColor(canvas) : textColor(canvas), canvas);
    }
}

void TextFieldCell::drawLine(const QString& text, const core::Rect& rect, const QColor& color,
                             const CellCanvas& canvas) const {
    const LineAlignment side = sideOfText(canvas.isRightToLeft);
    if (maxLayoutWidth_ > 0) {
        canvas.painter.setFont(font());
        canvas.painter.setPen(color);
        canvas.painter.drawText(toQRectF(rect), int(toQt(side)) | Qt::TextWordWrap, text);
        return;
    }
    // Not kept by each: there are many labels, and few of them on the screen.
    LineText::paintShared(canvas.painter, rect, text, tightened(font(), text, rect.size.width),
                          color, {side, lineBreakMode_, canvas.isRightToLeft});
}

} // namespace platform
