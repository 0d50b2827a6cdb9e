#include "platform/controls/text_field.hpp"

#include "platform/controls/accessible_factory.hpp"
#include "platform/controls/internal/text_field_accessible.hpp"
#include "platform/controls/kit_style.hpp"
#include "platform/controls/main_thread.hpp"

#include <QDragEnterEvent>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {
namespace {

// What the toolkit's line edit adds to its text margins.
constexpr int editorMarginX = 2;
constexpr int editorMarginY = 1;
constexpr double editableWidth = 96; // points, of a field that nobody gives a width
constexpr int narrowest = 24;
constexpr int mostTyped = 32767; // characters

/// Tells screen readers what has changed, and no more than that.
void tellTextChange(TextField& field, const QString& before, const QString& after) {
    const auto shorter = std::min(before.size(), after.size());
    qsizetype head = 0;
    while (head < shorter && before[head] == after[head]) {
        ++head;
    }
    qsizetype tail = 0;
    while (tail < shorter - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        ++tail;
    }
    const QString removed = before.mid(head, before.size() - head - tail);
    const QString inserted = after.mid(head, after.size() - head - tail);
    const int at = static_cast<int>(head);
    if (removed.isEmpty()) {
        QAccessibleTextInsertEvent event(&field, at, inserted);
        QAccessible::updateAccessibility(&event);
    } else if (inserted.isEmpty()) {
        QAccessibleTextRemoveEvent event(&field, at, removed);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleTextUpdateEvent event(&field, at, removed, inserted);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace

/// The toolkit's line edit over a field: it paints its text only while the field is edited, and the
/// keyboard stays in the field.
class FieldEditor final : public QLineEdit {
  public:
    explicit FieldEditor(TextField& field) : QLineEdit(&field), field_(field) {
        setObjectName(QStringLiteral("qt_spinbox_lineedit")); // the toolkit hides it from screen
                                                              // readers, which know the field
        setFrame(false);
        setFocusProxy(&field);
        setAttribute(Qt::WA_MacShowFocusRect, false);
        adoptKitStyle(*this); // its menu
    }

    [[nodiscard]] bool isDropTarget() const { return isDropTarget_; }

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (field_.isTextShownByEditor()) {
            QLineEdit::paintEvent(event);
        }
    }
    void dragEnterEvent(QDragEnterEvent* event) override {
        QLineEdit::dragEnterEvent(event);
        setDropTarget(event->isAccepted());
    }
    void dragLeaveEvent(QDragLeaveEvent* event) override {
        QLineEdit::dragLeaveEvent(event);
        setDropTarget(false);
    }
    void dropEvent(QDropEvent* event) override {
        QLineEdit::dropEvent(event);
        setDropTarget(false);
    }

  private:
    void setDropTarget(bool isTarget) {
        isDropTarget_ = isTarget;
        field_.update();
    }

    TextField& field_;
    bool isDropTarget_ = false;
};

TextField::TextField(QWidget* parent) : TextField(std::make_unique<TextFieldCell>(), parent) {
    setEditable(true);
}

TextField::TextField(std::unique_ptr<TextFieldCell> cell, QWidget* parent)
    : CellControl(std::move(cell), parent) {
    installAccessible<TextField>();
    setMouseTracking(false);
    followEditability();
}

TextField::~TextField() {
    if (editor_ != nullptr) {
        editor_->disconnect(this); // it goes after what it would tell
    }
}

void TextField::setStringValue(const QString& text) {
    checkMainThread();
    if (hasMarkedText_) {
        putOff_ = std::make_unique<QString>(text);
    } else {
        replaceText(text);
    }
}

void TextField::replaceText(const QString& text) {
    putOff_.reset();
    if (text == stringValue()) {
        return;
    }
    textCell().setStringValue(text);
    if (editor_ != nullptr) {
        const int length = static_cast<int>(text.size());
        const int caret = std::min(editor_->cursorPosition(), length);
        const int start = editor_->selectionStart();
        const int selected = std::min(editor_->selectionLength(), length - start);
        const bool isCaretFirst = start == editor_->cursorPosition();
        putIntoEditor(text);
        if (start >= 0 && selected > 0) {
            editor_->setSelection(isCaretFirst ? start + selected : start,
                                  isCaretFirst ? -selected : selected);
        } else {
            editor_->setCursorPosition(caret);
        }
        layOutEditor();
    }
    textWasReplaced();
    if (!isEditable_ && accessibleName().isEmpty() && QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    cellDidChange();
}

void TextField::putIntoEditor(const QString& text) {
    isReplacing_ = true;
    // What is typed and pasted has an end; what a program puts in stays whole.
    editor_->setMaxLength(std::max(mostTyped, static_cast<int>(text.size())));
    editor_->setText(text);
    isReplacing_ = false;
}

void TextField::setPlaceholderString(const QString& text) {
    textCell().setPlaceholderString(text);
    update();
}

void TextField::setAlignment(LineAlignment alignment) {
    textCell().setAlignment(alignment);
    fieldEditorAttributesDidChange();
}

void TextField::setLineBreakMode(LineEliding mode) {
    textCell().setLineBreakMode(mode);
    update();
}

void TextField::setAllowsDefaultTighteningForTruncation(bool allows) {
    textCell().setAllowsDefaultTighteningForTruncation(allows);
    update();
}

void TextField::setPreferredMaxLayoutWidth(double width) {
    textCell().setPreferredMaxLayoutWidth(width);
    cellDidChange();
}

void TextField::setEditable(bool isEditable) {
    isEditable_ = isEditable;
    isSelectable_ = isSelectable_ || isEditable;
    followEditability();
}

void TextField::setSelectable(bool isSelectable) {
    isSelectable_ = isSelectable;
    isEditable_ = isEditable_ && isSelectable;
    followEditability();
}

void TextField::followEditability() {
    setFocusPolicy(isEditable_ ? Qt::StrongFocus : isSelectable_ ? Qt::ClickFocus : Qt::NoFocus);
    setAttribute(Qt::WA_InputMethodEnabled, isEditable_);
    setSizePolicy(isEditable_ ? QSizePolicy::Expanding : QSizePolicy::Preferred,
                  QSizePolicy::Fixed);
    if (isSelectable_) {
        setAcceptDrops(isEditable_);
        setCursor(Qt::IBeamCursor);
    } else if (testAttribute(Qt::WA_SetCursor)) {
        setAcceptDrops(false);
        unsetCursor();
    }
    if (editor_ != nullptr) {
        editor_->setReadOnly(!isEditable_);
        editor_->setVisible(isSelectable_);
    }
    update();
}

void TextField::setBordered(bool isBordered) {
    cell().setBordered(isBordered);
    fieldEditorAttributesDidChange();
}

void TextField::setBezeled(bool isBezeled) {
    cell().setBezeled(isBezeled);
    fieldEditorAttributesDidChange();
}

void TextField::setDrawsBackground(bool draws) {
    textCell().setDrawsBackground(draws);
    update();
}

void TextField::setDelegate(TextFieldDelegate* delegate) {
    delegate_ = delegate != nullptr
                    ? std::make_unique<std::weak_ptr<ActionTarget>>(delegate->weakTarget())
                    : nullptr;
}

TextFieldDelegate* TextField::delegate() const {
    return delegate_ != nullptr ? static_cast<TextFieldDelegate*>(delegate_->lock().get())
                                : nullptr;
}

bool TextField::isFirstResponder() const {
    return window()->focusWidget() == this;
}

QLineEdit* TextField::currentEditor() const {
    return isFirstResponder() ? editor_ : nullptr;
}

void TextField::selectText() {
    if (isSelectable_) {
        setFocus(Qt::OtherFocusReason);
        fieldEditor().selectAll();
    }
}

bool TextField::isTextShownByEditor() const {
    return editor_ != nullptr && isSelectable_ && (isFirstResponder() || editor_->isDropTarget());
}

QLineEdit& TextField::fieldEditor() {
    if (editor_ == nullptr) {
        editor_ = new FieldEditor(*this);
        editor_->setReadOnly(!isEditable_);
        textCell().setUpFieldEditorAttributes(*editor_);
        putIntoEditor(stringValue());
        editor_->setCursorPosition(0);
        layOutEditor();
        editor_->setVisible(isSelectable_);
        connect(editor_, &QLineEdit::textChanged, this, &TextField::editorTextChanged);
        connect(editor_, &QLineEdit::cursorPositionChanged, this, [this](int /*from*/, int to) {
            updateMicroFocus();
            if (QAccessible::isActive()) {
                QAccessibleTextCursorEvent event(this, to);
                QAccessible::updateAccessibility(&event);
            }
        });
        connect(editor_, &QLineEdit::selectionChanged, this, [this] {
            updateMicroFocus();
            if (QAccessible::isActive()) {
                const int start = std::max(0, editor_->selectionStart());
                QAccessibleTextSelectionEvent event(this, start,
                                                    start + editor_->selectionLength());
                QAccessible::updateAccessibility(&event);
            }
        });
    }
    return *editor_;
}

void TextField::fieldEditorAttributesDidChange() {
    refreshFieldEditor();
    cellDidChange();
}

void TextField::refreshFieldEditor() {
    if (editor_ != nullptr) {
        textCell().setUpFieldEditorAttributes(*editor_);
        layOutEditor();
    }
}

void TextField::layOutEditor() {
    if (editor_ == nullptr) {
        return;
    }
    const core::Rect frame = bounds();
    textCell().edit(frame, *editor_);
    const QRect place = editor_->geometry();
    const core::Rect text = textCell().textRect(frame);
    const LineAlignment side = textCell().sideOfText(layoutDirection() == Qt::RightToLeft);
    const auto rounded = [](double value) { return static_cast<int>(std::lround(value)); };
    // The line edit keeps room for its caret behind the text; the cell does not.
    const int caret = side == LineAlignment::left ? 0 : side == LineAlignment::centre ? 1 : 2;
    const int top = rounded(text.origin.y) - place.y() - editorMarginY;
    const int left = rounded(text.origin.x) - place.x() - editorMarginX;
    const int right = place.x() + place.width() - rounded(text.maxX()) - editorMarginX;
    const QMargins margins(side == LineAlignment::centre ? left + caret : left, top, right - caret,
                           0);
    if (editor_->textMargins() != margins) {
        editor_->setTextMargins(margins);
    }
    const Qt::Alignment across = side == LineAlignment::left     ? Qt::AlignLeft
                                 : side == LineAlignment::centre ? Qt::AlignHCenter
                                                                 : Qt::AlignRight;
    const Qt::Alignment alignment = across | Qt::AlignAbsolute | Qt::AlignTop;
    if (editor_->alignment() != alignment) {
        editor_->setAlignment(alignment);
    }
}

void TextField::editorTextChanged(const QString& text) {
    if (isReplacing_) {
        return;
    }
    const QString before = stringValue();
    textCell().setStringValue(text);
    if (alignment() == LineAlignment::natural) {
        layOutEditor(); // it may be read from the other side by now
    }
    if (before.isEmpty() != text.isEmpty()) {
        update(); // the placeholder
    }
    if (QAccessible::isActive()) {
        tellTextChange(*this, before, text);
    }
    if (!isModified_) {
        isModified_ = true;
        textDidBeginEditing();
    }
    textDidChange();
    if (!isFirstResponder()) {
        // Dropped here, or put in by a program for those who cannot type: nobody will leave it.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isModified_ && !isFirstResponder()) {
                    endEditing();
                }
            },
            Qt::QueuedConnection);
    }
}

void TextField::textDidBeginEditing() {
    if (TextFieldDelegate* const owner = delegate()) {
        owner->controlTextDidBeginEditing(*this);
    }
}

void TextField::textDidChange() {
    if (TextFieldDelegate* const owner = delegate()) {
        owner->controlTextDidChange(*this);
    }
}

void TextField::textDidEndEditing() {
    if (TextFieldDelegate* const owner = delegate()) {
        owner->controlTextDidEndEditing(*this);
    }
}

void TextField::followFirstResponder() {
    const bool is = isFirstResponder();
    const bool isLeft = wasFirstResponder_ && !is;
    wasFirstResponder_ = is;
    const QPointer<TextField> self(this);
    if (isLeft) {
        endEditing(); // may destroy the field
    }
    if (self != nullptr) { // who hears of it finds what was typed
        firstResponderMayHaveChanged();
    }
}

void TextField::endEditing() {
    hasMarkedText_ = false;
    if (putOff_ != nullptr) {
        replaceText(QString(*putOff_));
    }
    if (editor_ != nullptr) {
        editor_->setCursorPosition(0); // the cell shows the text from its start
    }
    const QPointer<TextField> self(this);
    textDidEndEditing();
    if (self != nullptr && std::exchange(isModified_, false)) {
        sendAction();
    }
}

core::Size TextField::intrinsicContentSize() const {
    const core::Size size = cell().cellSize();
    return {isEditable_ ? editableWidth : size.width, size.height};
}

QSize TextField::minimumSizeHint() const {
    const QSize hint = sizeHint();
    return {std::min(hint.width(), narrowest), hint.height()};
}

QAccessible::Role TextField::accessibleRole() const {
    return isEditable_ ? QAccessible::EditableText : QAccessible::StaticText;
}

QString TextField::spokenName() const {
    if (!isEditable_) {
        return stringValue();
    }
    const QString placeholder = placeholderString();
    return placeholder.isEmpty() ? toolTip() : placeholder;
}

QAccessibleInterface* TextField::makeAccessible() {
    return new TextFieldAccessible(*this);
}

QVariant TextField::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (editor_ == nullptr) {
        return CellControl::inputMethodQuery(query);
    }
    const QVariant answer = editor_->inputMethodQuery(query);
    return answer.userType() == QMetaType::QRect
               ? QVariant(answer.toRect().translated(editor_->pos()))
           : answer.userType() == QMetaType::QRectF
               ? QVariant(answer.toRectF().translated(editor_->pos()))
               : answer;
}

} // namespace platform
