#include "platform/controls/internal/text_field_accessible.hpp"

#include "platform/controls/text_field.hpp"

#include <QFontMetricsF>

namespace platform {

TextFieldAccessible::TextFieldAccessible(TextField& field) : CellControlAccessible(field) {}

TextField& TextFieldAccessible::field() const {
    return static_cast<TextField&>(control());
}

QString TextFieldAccessible::text(QAccessible::Text kind) const {
    switch (kind) {
    case QAccessible::Name: {
        QString name = QAccessibleWidget::text(kind); // its own, or that of the label before
        if (QWidget* const around = field().parentWidget();
            name.isEmpty() && around != nullptr && around->focusProxy() == &field()) {
            name = QAccessible::queryAccessibleInterface(around)->text(kind); // that it stands for
        }
        return name.isEmpty() ? field().spokenName() : name;
    }
    case QAccessible::Value:
        return field().stringValue();
    case QAccessible::Description: {
        const QString description = field().spokenDescription();
        return description.isEmpty() ? QAccessibleWidget::text(kind) : description;
    }
    default:
        return CellControlAccessible::text(kind);
    }
}

void TextFieldAccessible::setText(QAccessible::Text kind, const QString& text) {
    if (kind == QAccessible::Value && field().isEditable()) {
        replaceText(0, characterCount(), text);
    } else {
        CellControlAccessible::setText(kind, text);
    }
}

QAccessible::State TextFieldAccessible::state() const {
    QAccessible::State state = CellControlAccessible::state();
    state.editable = field().isEditable();
    state.readOnly = !field().isEditable();
    state.selectableText = field().isSelectable();
    return state;
}

void* TextFieldAccessible::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface*>(this);
    case QAccessible::EditableTextInterface:
        return field().isEditable() ? static_cast<QAccessibleEditableTextInterface*>(this)
                                    : nullptr;
    default:
        return CellControlAccessible::interface_cast(type);
    }
}

void TextFieldAccessible::selection(int index, int* start, int* end) const {
    *start = *end = 0;
    if (const QLineEdit* const editor = field().currentEditor(); editor != nullptr && index == 0) {
        *start = std::max(0, editor->selectionStart());
        *end = *start + editor->selectionLength();
    }
}

int TextFieldAccessible::selectionCount() const {
    const QLineEdit* const editor = field().currentEditor();
    return editor != nullptr && editor->hasSelectedText() ? 1 : 0;
}

void TextFieldAccessible::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void TextFieldAccessible::removeSelection(int index) {
    if (index == 0 && field().isSelectable()) {
        field().fieldEditor().deselect();
    }
}

void TextFieldAccessible::setSelection(int index, int start, int end) {
    if (index == 0 && field().isSelectable()) {
        field().fieldEditor().setSelection(start, end - start);
    }
}

int TextFieldAccessible::cursorPosition() const {
    const QLineEdit* const editor = field().currentEditor();
    return editor != nullptr ? editor->cursorPosition() : 0;
}

void TextFieldAccessible::setCursorPosition(int position) {
    if (field().isSelectable()) {
        field().fieldEditor().setCursorPosition(position);
    }
}

QString TextFieldAccessible::text(int start, int end) const {
    return field().stringValue().mid(start, std::max(0, end - start));
}

int TextFieldAccessible::characterCount() const {
    return static_cast<int>(field().stringValue().size());
}

QRect TextFieldAccessible::characterRect(int offset) const {
    const QString& text = field().stringValue();
    if (offset < 0 || offset >= text.size()) {
        return {};
    }
    const TextFieldCell& cell = field().textCell();
    const core::Rect place = cell.textRect(toRect(QRectF(field().rect())));
    const QFontMetricsF metrics(cell.font());
    const double before = metrics.horizontalAdvance(text.first(offset));
    const double width = metrics.horizontalAdvance(text.mid(offset, 1));
    const double whole = metrics.horizontalAdvance(text);
    const LineAlignment side = cell.sideOfText(field().layoutDirection() == Qt::RightToLeft);
    const double free = place.size.width - whole;
    const double from = side == LineAlignment::left     ? 0
                        : side == LineAlignment::centre ? free * 0.5
                                                        : free;
    const double x = text.isRightToLeft() ? from + whole - before - width : from + before;
    const QRectF rect(place.origin.x + x, place.origin.y, width, place.size.height);
    return {field().mapToGlobal(rect.topLeft().toPoint()), rect.size().toSize()};
}

int TextFieldAccessible::offsetAtPoint(const QPoint& point) const {
    QLineEdit& editor = field().fieldEditor();
    return editor.cursorPositionAt(editor.mapFromGlobal(point));
}

void TextFieldAccessible::scrollToSubstring(int start, int /*end*/) {
    setCursorPosition(start);
}

QString TextFieldAccessible::attributes(int offset, int* start, int* end) const {
    const bool isIn = offset >= 0 && offset <= characterCount();
    *start = isIn ? 0 : -1;
    *end = isIn ? characterCount() : -1;
    return {};
}

void TextFieldAccessible::deleteText(int start, int end) {
    replaceText(start, end, QString());
}

void TextFieldAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void TextFieldAccessible::replaceText(int start, int end, const QString& text) {
    if (field().isEditable()) {
        QLineEdit& editor = field().fieldEditor(); // as if it were typed: it can be undone
        editor.setSelection(start, end - start);
        editor.insert(text);
    }
}

} // namespace platform
