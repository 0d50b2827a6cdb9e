#pragma once

#include "platform/controls/cell_button.hpp"
#include "platform/controls/menu.hpp"

namespace platform {

/// A button that opens a menu: one of its items is the selected one, shown as its title and marked
/// in the menu, which opens with that item over the button; or it pulls down a menu of commands
/// below it, and keeps its title. Choosing selects the item and sends the item's own action, or,
/// for an item without one, the button's. A press, Space, Return and the arrow keys open it.
/// Derived classes choose the cell. Main thread.
class PopUpButton : public CellButton {
    Q_OBJECT

  public:
    enum class Kind { popUp, pullDown };

    explicit PopUpButton(std::unique_ptr<ButtonCell> cell = std::make_unique<ButtonCell>(),
                         Kind kind = Kind::popUp, QWidget* parent = nullptr);

    [[nodiscard]] Kind kind() const { return kind_; }
    /// The button's own. After items of it were taken away, call `itemsDidChange`.
    [[nodiscard]] Menu& menu() const { return *menu_; }
    /// Selects the first item where the selected one is gone.
    void itemsDidChange();
    [[nodiscard]] bool isOpen() const { return menu_->isVisible(); }

    /// The first item that is added is selected at once.
    MenuItem& addItem(std::unique_ptr<MenuItem> item);
    MenuItem& addItem(const QString& title) { return addItem(std::make_unique<MenuItem>(title)); }
    /// In place of those that are there; the first one is selected.
    void setItems(std::vector<std::unique_ptr<MenuItem>> items);

    /// Null when there is none, and in a button that pulls down. It may be in a submenu.
    [[nodiscard]] MenuItem* selectedItem() const { return selected_; }
    /// Its place in the menu itself; -1 when it is not there.
    [[nodiscard]] int indexOfSelectedItem() const { return menu_->indexOf(selected_); }

    // By a program: no action is sent. A place or tag that is not there leaves the selection.

    /// Null selects none, and shows no title.
    void selectItem(MenuItem* item);
    void selectItemAt(int index);
    void selectItemWithTag(int tag);

    /// Selects the next item that can be chosen, towards the end of the menu, and sends the action
    /// as a choice does; at the end nothing happens.
    void selectNextItem();
    void selectPreviousItem();

    /// As a press does. A disabled button does not open.
    void openMenu(MenuOpenedBy by = MenuOpenedBy::pointer);

    [[nodiscard]] QAccessible::Role accessibleRole() const override;
    [[nodiscard]] QWidget* accessibleMenu() const override { return menu_; }
    [[nodiscard]] QAccessibleInterface* makeAccessible() override;

  protected:
    /// Where the title begins, in points from the leading edge: there the items begin, too.
    [[nodiscard]] virtual double titleStart() const;

    bool mouseDown(int clickCount) override;
    bool handleEvent(QEvent* event) override;

  private:
    void choose(MenuItem* item);
    void step(int by);

    Kind kind_;
    Menu* menu_;
    QPointer<MenuItem> selected_;
};

} // namespace platform
