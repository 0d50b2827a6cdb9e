#pragma once

#include "core/binding.hpp"
#include "driftwood/controls/styled_pop_up_button.hpp"

#include <QIcon>
#include <QVBoxLayout>

#include <concepts>
#include <memory>
#include <optional>
#include <vector>

// All of this is for the main thread.
namespace driftwood {

/// An entry of a pop-up button: what choosing it puts into the binding, and how it looks.
template<std::copyable T>
struct PopupItem {
    std::optional<T> object = {}; ///< none: choosing it changes nothing
    QString title = {};
    QIcon image = {};
    bool isDivider = false;
    bool isEnabled = true;
    std::optional<std::vector<PopupItem>> subMenu = {};
};

/// A pop-up button over a binding: it shows the first item, also of a submenu, whose object equals
/// the bound value, and writes what the user chooses. A value that no item has leaves what is
/// shown.
template<std::equality_comparable T>
class StyledPopUpButtonWrapper : public QWidget {
  public:
    using Items = std::vector<PopupItem<T>>;

    StyledPopUpButtonWrapper(Items items, core::Binding<T> selection, const QString& label = {},
                             std::optional<double> fixedWidth = {}, QWidget* parent = nullptr)
        : QWidget(parent),
          items_(std::move(items)),
          coordinator_(std::move(selection), *this),
          button_(new StyledPopUpButton(this)) {
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(button_);
        setFocusProxy(button_);
        button_->setFixedWidth(fixedWidth);
        button_->setLabel(label);
        replaceItems();
        changes_ = coordinator_.selection.observe([this](const T&) { showSelection(); });
    }

    [[nodiscard]] StyledPopUpButton& button() const { return *button_; }

    /// In place of those that are there, also while the menu is open.
    void setItems(Items items) {
        items_ = std::move(items);
        replaceItems();
    }

  private:
    using MenuItems = std::vector<std::unique_ptr<platform::MenuItem>>;

    /// The target of all items.
    class Coordinator final : public platform::ActionTarget {
      public:
        Coordinator(core::Binding<T> bound, StyledPopUpButtonWrapper& wrapper)
            : selection(std::move(bound)), wrapper_(wrapper) {}

        void choose(platform::Control& sender) {
            const T* const object =
                static_cast<platform::MenuItem&>(sender).template represented<T>();
            if (object != nullptr) {
                const auto bound = selection; // whoever follows it may destroy all of this
                const QPointer<QWidget> alive(&wrapper_);
                bound.set(T(*object));
                if (alive == nullptr) {
                    return;
                }
            }
            wrapper_.showSelection(); // the button has taken the chosen item for the selected one
        }

        const core::Binding<T> selection;

      private:
        StyledPopUpButtonWrapper& wrapper_;
    };

    [[nodiscard]] MenuItems makeItems(const Items& from) {
        MenuItems made;
        made.reserve(from.size());
        for (const PopupItem<T>& item : from) {
            if (item.isDivider) {
                made.push_back(platform::MenuItem::separator());
                continue;
            }
            auto entry = std::make_unique<platform::MenuItem>(item.title);
            entry->setIcon(item.image);
            entry->setEnabled(item.isEnabled);
            if (item.object) {
                entry->setRepresentedObject(*item.object);
            }
            entry->setAction(&Coordinator::choose, coordinator_);
            if (item.subMenu) {
                auto menu = std::make_unique<platform::Menu>(item.title);
                menu->setItems(makeItems(*item.subMenu));
                entry->setSubmenu(std::move(menu));
            }
            made.push_back(std::move(entry));
        }
        return made;
    }

    void replaceItems() {
        const QString shown = button_->title();
        button_->setItems(makeItems(items_));
        button_->selectItem(nullptr); // none but the one that is bound
        button_->setTitle(shown);
        showSelection();
    }

    void showSelection() {
        const T selected = coordinator_.selection.get();
        platform::MenuItem* const found =
            button_->menu().firstItem([&](const platform::MenuItem& item) {
                const T* const object = item.represented<T>();
                return object != nullptr && *object == selected;
            });
        if (found != nullptr) {
            button_->selectItem(found);
            button_->setTitle(found->title());
        }
    }

    Items items_;
    Coordinator coordinator_;
    StyledPopUpButton* button_;
    core::Subscription changes_;
};

} // namespace driftwood
