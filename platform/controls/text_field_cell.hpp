#pragma once

#include "platform/controls/cell.hpp"
#include "platform/controls/line_text.hpp"

#include <QFont>
#include <QString>

class QLineEdit;

namespace platform {

/// Measures and draws a line of text, and lays the editor over it while it is being edited: the
/// editor paints the text then, the cell everything around it. Styled cells refine it. Main thread.
class TextFieldCell : public Cell {
  public:
    explicit TextFieldCell(QString text = {});

    [[nodiscard]] const QString& stringValue() const { return stringValue_; }
    void setStringValue(const QString& text);
    /// Shown while there is no text.
    [[nodiscard]] const QString& placeholderString() const { return placeholderString_; }
    virtual void setPlaceholderString(const QString& text) { placeholderString_ = text; }

    /// Natural: where the text begins to be read, or the view around it.
    [[nodiscard]] LineAlignment alignment() const { return alignment_; }
    void setAlignment(LineAlignment alignment) { alignment_ = alignment; }
    /// What is left out of a text that is too long.
    [[nodiscard]] LineEliding lineBreakMode() const { return lineBreakMode_; }
    void setLineBreakMode(LineEliding mode) { lineBreakMode_ = mode; }
    /// Whether the letters of a text that is a little too long move closer, before some are left
    /// out: down to nineteen twentieths of its width.
    [[nodiscard]] bool allowsDefaultTighteningForTruncation() const { return allowsTightening_; }
    void setAllowsDefaultTighteningForTruncation(bool allows) { allowsTightening_ = allows; }
    /// Kept for the owner: a text field has one line.
    [[nodiscard]] int maximumNumberOfLines() const { return maximumNumberOfLines_; }
    void setMaximumNumberOfLines(int count) { maximumNumberOfLines_ = count; }
    /// A text that is only shown goes on in another line where it is wider than this; in points, 0
    /// for a single line.
    [[nodiscard]] double preferredMaxLayoutWidth() const { return maxLayoutWidth_; }
    void setPreferredMaxLayoutWidth(double width) { maxLayoutWidth_ = width; }

    [[nodiscard]] bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool draws) { drawsBackground_ = draws; }

    // Told by the view before it draws.

    /// The keyboard is in the view, and its window is key.
    [[nodiscard]] bool showsFirstResponder() const { return showsFirstResponder_; }
    void setShowsFirstResponder(bool shows) { showsFirstResponder_ = shows; }
    /// Who draws the text: nobody else, the editor, or the editor with a composition that is no
    /// text yet.
    enum class TextDrawnBy : std::uint8_t { cell, editor, editorWithComposition };
    void setTextDrawnBy(TextDrawnBy who) { drawnBy_ = who; }

    /// The system's unless told otherwise.
    [[nodiscard]] virtual QFont font() const { return font_; }
    void setFont(const QFont& font) { font_ = font; }
    /// Where the text goes. In the middle of the height: one line high.
    [[nodiscard]] virtual core::Rect titleRect(const core::Rect& bounds) const;
    /// Where the text begins and ends, whether the cell or the editor draws it.
    [[nodiscard]] virtual core::Rect textRect(const core::Rect& bounds) const {
        return titleRect(bounds);
    }
    /// Of the text, or of an empty line.
    [[nodiscard]] core::Size textSize() const;
    [[nodiscard]] core::Size cellSize() const override;
    /// The same within bounds, of which only the width counts.
    [[nodiscard]] core::Size cellSizeForBounds(const core::Rect& bounds) const;
    /// The side at which the text stands.
    [[nodiscard]] LineAlignment sideOfText(bool isRightToLeft) const;

    /// Lays an editor over a rectangle of the view: across its width, as high as the view.
    virtual void edit(const core::Rect& frame, QLineEdit& editor);
    /// The same, and selects a part of its text.
    virtual void select(const core::Rect& frame, QLineEdit& editor, int start, int length);
    /// Font and colours of the editor.
    virtual void setUpFieldEditorAttributes(QLineEdit& editor) const;

  protected:
    /// From the edges to the text; nothing here.
    [[nodiscard]] virtual core::EdgeInsets textInsets() const { return {}; }
    [[nodiscard]] virtual QColor textColor(const CellCanvas& canvas) const;
    [[nodiscard]] virtual QColor placeholderColor(const CellCanvas& canvas) const;

    void drawInterior(const core::Rect& frame, const CellCanvas& canvas) const override {
        drawText(frame, canvas);
    }
    /// The text or the placeholder, whoever's turn it is.
    void drawText(const core::Rect& frame, const CellCanvas& canvas) const;
    /// The placeholder in a place of its own.
    void drawPlaceholder(const core::Rect& place, const CellCanvas& canvas) const {
        drawLine(placeholderString_, place, placeholderColor(canvas), canvas);
    }

  private:
    void drawLine(const QString& text, const core::Rect& rect, const QColor& color,
                  const CellCanvas& canvas) const;
    [[nodiscard]] QFont tightened(const QFont& font, const QString& text, double width) const;

    QFont font_;
    QString stringValue_;
    QString shown_; // of the string: no control characters, and no more than a field can show
    QString placeholderString_;
    // The size of what is shown, and the font that it was measured in; below 0: not yet.
    mutable QFont measuredFont_;
    mutable double measuredWidth_ = 0;
    mutable double measuredHeight_ = -1;
    double maxLayoutWidth_ = 0;
    int maximumNumberOfLines_ = 0;
    LineAlignment alignment_ = LineAlignment::natural;
    LineEliding lineBreakMode_ = LineEliding::tail;
    TextDrawnBy drawnBy_ = TextDrawnBy::cell;
    bool allowsTightening_ = false;
    bool drawsBackground_ = false;
    bool showsFirstResponder_ = false;
};

} // namespace platform
