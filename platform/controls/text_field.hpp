#pragma once

#include "platform/controls/cell_control.hpp"
#include "platform/controls/text_field_cell.hpp"

#include <QLineEdit>

namespace platform {

class TextField;
class FieldEditor;

/// What the owner of a field is told. Fields hold it weakly. It must not destroy the field, but in
/// `controlTextDidEndEditing`.
class TextFieldDelegate : public ActionTarget {
  public:
    /// The first change after the field has got the keyboard.
    virtual void controlTextDidBeginEditing(TextField& /*field*/) {}
    /// The user has changed the text; what an input method composes is no text yet.
    virtual void controlTextDidChange(TextField& /*field*/) {}
    /// The keyboard is elsewhere, or Return was pressed. Another window or a menu only borrow it.
    virtual void controlTextDidEndEditing(TextField& /*field*/) {}
};

/// A line of text, shown or edited. The cell draws it; only while it is edited the toolkit's own
/// line edit lies over it, made when it is first needed, so that input methods, selection, undo,
/// the clipboard and dropped texts are the toolkit's. The keyboard stays in the field itself, which
/// hands it on. Return, and leaving a text that was changed, send the action. Main thread.
class TextField : public CellControl {
    Q_OBJECT

  public:
    /// A plain field.
    explicit TextField(QWidget* parent = nullptr);
    ~TextField() override;

    [[nodiscard]] const QString& stringValue() const { return textCell().stringValue(); }
    /// Caret, selection and a composition of a user who is typing stay where they are; a
    /// composition puts it off. Nobody is told.
    void setStringValue(const QString& text);
    [[nodiscard]] QString placeholderString() const { return textCell().placeholderString(); }
    void setPlaceholderString(const QString& text);
    [[nodiscard]] LineAlignment alignment() const { return textCell().alignment(); }
    void setAlignment(LineAlignment alignment);
    [[nodiscard]] LineEliding lineBreakMode() const { return textCell().lineBreakMode(); }
    void setLineBreakMode(LineEliding mode);
    [[nodiscard]] bool allowsDefaultTighteningForTruncation() const {
        return textCell().allowsDefaultTighteningForTruncation();
    }
    void setAllowsDefaultTighteningForTruncation(bool allows);
    [[nodiscard]] int maximumNumberOfLines() const { return textCell().maximumNumberOfLines(); }
    void setMaximumNumberOfLines(int count) { textCell().setMaximumNumberOfLines(count); }
    void setPreferredMaxLayoutWidth(double width);
    /// Whether a text that has no room shows as a whole in a tool tip.
    [[nodiscard]] bool allowsExpansionToolTips() const { return allowsToolTips_; }
    void setAllowsExpansionToolTips(bool allows) { allowsToolTips_ = allows; }

    [[nodiscard]] bool isEditable() const { return isEditable_; }
    void setEditable(bool isEditable);
    [[nodiscard]] bool isSelectable() const { return isSelectable_; } ///< so is what is editable
    void setSelectable(bool isSelectable);
    [[nodiscard]] bool isBordered() const { return cell().isBordered(); }
    void setBordered(bool isBordered);
    [[nodiscard]] bool isBezeled() const { return cell().isBezeled(); }
    void setBezeled(bool isBezeled);
    [[nodiscard]] bool drawsBackground() const { return textCell().drawsBackground(); }
    void setDrawsBackground(bool draws);

    void setDelegate(TextFieldDelegate* delegate);

    /// Whether the keyboard of its window is here, key or not: a window in which nothing has it has
    /// it itself.
    [[nodiscard]] bool isFirstResponder() const;
    /// The line edit while the keyboard is here; null otherwise.
    [[nodiscard]] QLineEdit* currentEditor() const;
    /// Whether an input method is composing.
    [[nodiscard]] bool hasMarkedText() const { return hasMarkedText_; }
    /// Takes the keyboard and selects the whole text.
    void selectText();

    [[nodiscard]] TextFieldCell& textCell() { return static_cast<TextFieldCell&>(cell()); }
    [[nodiscard]] const TextFieldCell& textCell() const {
        return static_cast<const TextFieldCell&>(cell());
    }

    [[nodiscard]] core::Size intrinsicContentSize() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    // For screen readers.

    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] QString spokenName() const override;
    /// Told beside the name: what is wrong with the text, for example.
    [[nodiscard]] virtual QString spokenDescription() const { return accessibleDescription(); }
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;
    /// The line edit, made if need be.
    [[nodiscard]] QLineEdit& fieldEditor();

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  protected:
    /// Without a keyboard and an editor until `setEditable` or `setSelectable`.
    explicit TextField(std::unique_ptr<TextFieldCell> cell, QWidget* parent = nullptr);

    // Each tells the delegate.
    virtual void textDidBeginEditing();
    virtual void textDidChange();
    virtual void textDidEndEditing();
    /// A program has put another text in.
    virtual void textWasReplaced() {}
    /// May be another by now: `isFirstResponder`.
    virtual void firstResponderMayHaveChanged() {}

    /// Something in the cell is another: the editor follows, caret and selection stay, and the
    /// field is laid out and painted anew.
    void fieldEditorAttributesDidChange();
    /// The editor's part of that: font, colours and place.
    void refreshFieldEditor();
    /// Puts another text into cell and editor, as `setStringValue`, composition or not.
    void replaceText(const QString& text);
    /// Whether the user has changed the text since the keyboard came.
    [[nodiscard]] bool isTextModified() const { return isModified_; }

    [[nodiscard]] QColor focusRingColor() const override { return Qt::transparent; } // the cell's
    bool handleEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    friend class FieldEditor;

    [[nodiscard]] bool isTextShownByEditor() const;
    void handOn(QEvent& event);
    void handOnMouse(QMouseEvent& event);
    bool showExpansionToolTip(QPoint at);
    void layOutEditor();
    void putIntoEditor(const QString& text);
    void followEditability();
    void editorTextChanged(const QString& text);
    void followFirstResponder();
    void endEditing();
    [[nodiscard]] TextFieldDelegate* delegate() const;

    FieldEditor* editor_ = nullptr;                         // a child
    std::unique_ptr<std::weak_ptr<ActionTarget>> delegate_; // most labels have none
    std::unique_ptr<QString> putOff_;                       // by a composition
    bool isEditable_ = false;
    bool isSelectable_ = false;
    bool wasFirstResponder_ = false;
    bool isModified_ = false;
    bool isReplacing_ = false;
    bool hasMarkedText_ = false;
    bool allowsToolTips_ = false;
};

} // namespace platform
