#pragma once

#include "platform/controls/menu_item.hpp"
#include "platform/controls/menu_placement.hpp"

#include <QMenu>
#include <QPointer>

#include <memory>
#include <optional>
#include <vector>

namespace platform {

/// What has opened a menu: a key chooses its first item at once.
enum class MenuOpenedBy { pointer, key };

/// A menu in the look of the house. It belongs to a control that opens it, to an item whose submenu
/// it is, or to nobody; while it is open the control that has opened it is lit, and a screen reader
/// finds it there. It may be changed while it is open, and destroyed by the action of an item. Main
/// thread.
class Menu final : public QMenu {
    Q_OBJECT

  public:
    explicit Menu(const QString& title = {}, QWidget* parent = nullptr);
    ~Menu() override;

    /// Its items in their order, with the alternates.
    [[nodiscard]] std::vector<MenuItem*> items() const;
    [[nodiscard]] MenuItem* itemAt(int index) const;       ///< null where there is none
    [[nodiscard]] int indexOf(const MenuItem* item) const; ///< -1 for one that is not in the menu
    /// Of the menu and, depth first, of its submenus: the first for which the condition holds.
    template<class Condition>
    [[nodiscard]] MenuItem* firstItem(Condition condition) const;

    // The menu owns its items.

    MenuItem& addItem(std::unique_ptr<MenuItem> item);
    MenuItem& addItem(const QString& title) { return addItem(std::make_unique<MenuItem>(title)); }
    /// `index` is at most the number of items.
    MenuItem& insertItem(int index, std::unique_ptr<MenuItem> item);
    std::unique_ptr<MenuItem> removeItem(MenuItem& item);
    /// In place of those that are there.
    void setItems(std::vector<std::unique_ptr<MenuItem>> items);

    /// The menu that this one is a submenu of; null for none.
    [[nodiscard]] Menu* superMenu() const;

    /// Opens the menu below a control, or above it where there is no room, flush with its leading
    /// or trailing edge. A menu without a parent becomes the control's.
    void popUpBelow(QWidget& control, Qt::Alignment edge = Qt::AlignLeading, int gap = 4,
                    MenuOpenedBy by = MenuOpenedBy::pointer);
    /// Opens it with an item over a control; `titleX` is where the control's own title begins, from
    /// its leading edge. The menu is at least as wide as the control.
    void popUpOver(QWidget& control, MenuItem& item, double titleX,
                   MenuOpenedBy by = MenuOpenedBy::pointer);
    /// Opens it at a point of the desktop, for a context menu of a view.
    void popUpAt(QWidget& view, QPoint global, MenuOpenedBy by = MenuOpenedBy::pointer);

    /// The control that has opened it; null when it is closed.
    [[nodiscard]] QWidget* control() const { return control_; }
    /// Whether alternates take the places of their items at the moment.
    [[nodiscard]] bool showsAlternates() const { return showsAlternates_; }

  signals:
    /// The user has chosen an item of the menu or of one below it; before its action is sent.
    void chosen(platform::MenuItem* item) const;
    /// The menu has closed, with or without a choice, which comes after this. Not the time to
    /// destroy it.
    void closed();

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

  private:
    friend class MenuItem;

    void forget(MenuItem& item);
    [[nodiscard]] static bool keep(MenuItem& item);
    void pairAlternates();
    void showItem(MenuItem& item) const;
    void setShowsAlternates(bool shows);
    void prepareWindow();
    MenuItem& take(std::unique_ptr<MenuItem> item);
    [[nodiscard]] bool open(QWidget& view);
    void openAt(QPoint at, QAction* over, MenuOpenedBy by);
    void release();
    [[nodiscard]] QRect panel() const;
    [[nodiscard]] bool handOn(const QMouseEvent& event);
    [[nodiscard]] bool isAccident(const QMouseEvent& event) const;

    QPointer<QWidget> control_;
    std::optional<MenuEdge> edge_; // below the control; absent for other places
    int gap_ = 0;
    std::optional<int> leading_; // the panel's edge on the desktop; absent for other places
    QPointer<QAction> over_;     // the item over the control
    QPoint openedAt_;
    qint64 openedTime_ = 0;
    bool showsAlternates_ = false;
    bool hasAlternates_ = false;
    bool isComposited_ = false;
};

template<class Condition>
MenuItem* Menu::firstItem(Condition condition) const {
    for (MenuItem* const item : items()) {
        if (condition(*item)) {
            return item;
        }
        if (item->submenu() != nullptr) {
            if (MenuItem* const found = item->submenu()->firstItem(condition)) {
                return found;
            }
        }
    }
    return nullptr;
}

} // namespace platform
