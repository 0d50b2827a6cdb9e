// What the window system sends to a text field, and what of it the line edit gets.

#include "platform/controls/text_field.hpp"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QPointer>
#include <QTextDocument>
#include <QToolTip>

namespace platform {
namespace {

bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

void TextField::handOn(QEvent& event) {
    if (isSelectable_) {
        static_cast<QObject&>(fieldEditor()).event(&event);
    }
}

void TextField::handOnMouse(QMouseEvent& event) {
    if (!isSelectable_) {
        event.ignore();
        return;
    }
    const QPointF offset(fieldEditor().pos());
    QMouseEvent there(event.type(), event.position() - offset, event.globalPosition(),
                      event.button(), event.buttons(), event.modifiers());
    handOn(there);
    event.setAccepted(there.isAccepted());
}

bool TextField::showExpansionToolTip(QPoint at) {
    if (!allowsToolTips_ || isTextShownByEditor() ||
        textCell().textSize().width <= textCell().textRect(bounds()).size.width) {
        return false;
    }
    QToolTip::showText(at, Qt::convertFromPlainText(stringValue()), this);
    return true;
}

bool TextField::handleEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::ToolTip:
        if (showExpansionToolTip(static_cast<QHelpEvent*>(event)->globalPos())) {
            return true;
        }
        break;
    case QEvent::ShortcutOverride:
        handOn(*event);
        return event->isAccepted();
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        handOn(*event);
        break;
    case QEvent::LayoutDirectionChange:
        layOutEditor();
        break;
    default:
        break;
    }
    const QPointer<TextField> self(this);
    const bool isDealtWith = CellControl::handleEvent(event);
    if (self == nullptr) {
        return isDealtWith;
    }
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::WindowActivate: // a window that is not key moves its focus unheard
    case QEvent::ParentChange:
    case QEvent::Show:
    case QEvent::Hide:
        followFirstResponder(); // may destroy the field
        break;
    case QEvent::EnabledChange:
        fieldEditorAttributesDidChange();
        break;
    default:
        break;
    }
    return isDealtWith;
}

void TextField::paintEvent(QPaintEvent* event) {
    textCell().setShowsFirstResponder(showsFocusRing());
    textCell().setTextDrawnBy(!isTextShownByEditor() ? TextFieldCell::TextDrawnBy::cell
                              : hasMarkedText_ ? TextFieldCell::TextDrawnBy::editorWithComposition
                                               : TextFieldCell::TextDrawnBy::editor);
    CellControl::paintEvent(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
    if (!isReturn(*event)) {
        handOn(*event);
        return;
    }
    event->ignore(); // it is the default button's, too
    if (!event->isAutoRepeat() && isEditable_) {
        QGuiApplication::inputMethod()->commit();
        const QPointer<TextField> self(this);
        textDidEndEditing();
        if (self != nullptr) {
            isModified_ = false;
            fieldEditor().selectAll();
            sendAction(); // may destroy the field
        }
    }
}

void TextField::keyReleaseEvent(QKeyEvent* event) {
    handOn(*event);
}

void TextField::inputMethodEvent(QInputMethodEvent* event) {
    const bool isComposing = !event->preeditString().isEmpty();
    if (hasMarkedText_ != isComposing) {
        hasMarkedText_ = isComposing; // first: what is committed is told as text
        update();
    }
    handOn(*event);
    if (!hasMarkedText_ && putOff_ != nullptr) {
        replaceText(QString(*putOff_));
    }
}

void TextField::mousePressEvent(QMouseEvent* event) {
    handOnMouse(*event);
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
    handOnMouse(*event);
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
    handOnMouse(*event);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
    handOnMouse(*event);
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
    if (isSelectable_) {
        handOn(*event);
    } else {
        event->ignore();
    }
}

void TextField::dragEnterEvent(QDragEnterEvent* event) {
    if (isEditable_) {
        handOn(*event); // from the next move on the editor, made by now, gets them itself
    }
}

void TextField::dragMoveEvent(QDragMoveEvent* event) {
    handOn(*event);
}

void TextField::dragLeaveEvent(QDragLeaveEvent* event) {
    handOn(*event);
}

void TextField::dropEvent(QDropEvent* event) {
    handOn(*event);
}

void TextField::resizeEvent(QResizeEvent* event) {
    CellControl::resizeEvent(event);
    layOutEditor();
}

} // namespace platform
