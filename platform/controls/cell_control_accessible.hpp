#pragma once

#include <QAccessibleWidget>

#include <vector>

namespace platform {

class CellControl;

/// What screen readers are told of a control with a cell: its role and name, whether it looks
/// pressed, and the parts in it that are no widgets as its children. Controls with states, values
/// or actions derive from it. Main thread.
class CellControlAccessible : public QAccessibleWidget {
  public:
    explicit CellControlAccessible(CellControl& control);
    ~CellControlAccessible() override;

    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;

  protected:
    [[nodiscard]] CellControl& control() const;

  private:
    [[nodiscard]] int menuIndex() const; ///< where the menu is, or would be

    /// One for each part that was asked for; the numbers are those of Qt's list of interfaces.
    mutable std::vector<QAccessible::Id> parts_;
};

} // namespace platform
