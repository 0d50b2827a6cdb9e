#pragma once

#include "platform/controls/cell_control_accessible.hpp"

#include <QAccessible>

namespace platform {

class TextField;

/// What screen readers are told of a text field: its text, caret and selection, and for an editable
/// one how to change them. Main thread.
class TextFieldAccessible final : public CellControlAccessible,
                                  public QAccessibleTextInterface,
                                  public QAccessibleEditableTextInterface {
  public:
    explicit TextFieldAccessible(TextField& field);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int* start, int* end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

  private:
    [[nodiscard]] TextField& field() const;
};

} // namespace platform
