#pragma once

#include "platform/controls/cell_state.hpp"
#include "platform/controls/control.hpp"

#include <QAction>
#include <QIcon>

#include <any>
#include <memory>

namespace platform {

class Menu;

/// One entry of a menu: it sends its one action to its one target when it is chosen. Its title is
/// plain text. Main thread.
class MenuItem final : public QAction, public Control {
    Q_OBJECT

  public:
    explicit MenuItem(const QString& title = {});
    /// With a submenu that is its own.
    MenuItem(const QString& title, std::unique_ptr<Menu> submenu);
    ~MenuItem() override;

    [[nodiscard]] static std::unique_ptr<MenuItem> separator();
    /// A title above the items of a section; it cannot be chosen.
    [[nodiscard]] static std::unique_ptr<MenuItem> sectionHeader(const QString& title);
    [[nodiscard]] bool isSectionHeader() const { return isSeparator() && !text().isEmpty(); }

    [[nodiscard]] QString title() const;
    void setTitle(const QString& title);

    [[nodiscard]] int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// What the item stands for: a value of any type that can be copied.
    [[nodiscard]] const std::any& representedObject() const { return representedObject_; }
    void setRepresentedObject(std::any object) { representedObject_ = std::move(object); }
    /// Null when it stands for nothing, or for a value of another type.
    template<class T>
    [[nodiscard]] const T* represented() const {
        return std::any_cast<T>(&representedObject_);
    }

    /// Shown before the title: a check mark for on, a dash for mixed, or the images given for the
    /// states. Choosing the item leaves it as it is.
    [[nodiscard]] StateValue state() const { return state_; }
    void setState(StateValue state);
    /// An image that is null is the usual one.
    void setStateImages(const QIcon& on, const QIcon& off, const QIcon& mixed);
    /// The image for the state; null for the usual one.
    [[nodiscard]] QIcon stateImage() const;
    [[nodiscard]] bool hasStateColumn() const;

    /// An alternate stands in its menu directly behind another item and takes its place while Alt
    /// is held. The place is wide enough for both.
    [[nodiscard]] bool isAlternate() const { return isAlternate_; }
    void setAlternate(bool isAlternate);
    /// The item whose place this one takes, or the alternate that takes its place; null for most.
    [[nodiscard]] const MenuItem* counterpart() const { return counterpart_; }

    /// A hidden item is not in the menu that the user sees.
    [[nodiscard]] bool isHidden() const { return isHidden_; }
    void setHidden(bool isHidden);

    [[nodiscard]] Menu* submenu() const { return submenu_.get(); }
    void setSubmenu(std::unique_ptr<Menu> submenu);

    /// The menu that it is in; null for none.
    [[nodiscard]] Menu* containingMenu() const { return menu_; }

  private:
    friend class Menu;

    struct StateImages {
        QIcon on;
        QIcon off;
        QIcon mixed;
    };

    void choose();
    void tell();

    Menu* menu_ = nullptr;
    MenuItem* counterpart_ = nullptr;
    std::unique_ptr<Menu> submenu_;
    std::unique_ptr<StateImages> stateImages_; // most items have none
    std::any representedObject_;
    int tag_ = 0;
    StateValue state_ = StateValue::off;
    bool isAlternate_ = false;
    bool isHidden_ = false;
};

} // namespace platform
