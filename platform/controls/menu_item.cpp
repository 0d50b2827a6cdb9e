#include "platform/controls/menu_item.hpp"

#include "platform/controls/menu.hpp"

#include <QPointer>

#include <utility>

namespace platform {
namespace {

// The toolkit takes '&' for the mark of a key and a tab for what stands before a shortcut.

QString escaped(QString title) {
    return title.replace(QLatin1Char('&'), QLatin1String("&&"))
        .replace(QLatin1Char('\t'), QLatin1Char(' '));
}

} // namespace

MenuItem::MenuItem(const QString& title) {
    setTitle(title);
    setMenuRole(NoRole); // a word in a title does not move it to another menu
    connect(this, &QAction::triggered, this, &MenuItem::choose);
}

MenuItem::MenuItem(const QString& title, std::unique_ptr<Menu> submenu) : MenuItem(title) {
    setSubmenu(std::move(submenu));
}

MenuItem::~MenuItem() {
    retire();
    if (Menu* const menu = std::exchange(menu_, nullptr)) {
        menu->removeAction(this);
        menu->forget(*this);
    }
}

std::unique_ptr<MenuItem> MenuItem::separator() {
    auto item = std::make_unique<MenuItem>();
    item->setSeparator(true);
    return item;
}

std::unique_ptr<MenuItem> MenuItem::sectionHeader(const QString& title) {
    auto item = std::make_unique<MenuItem>(title);
    item->setSeparator(true);
    return item;
}

QString MenuItem::title() const {
    return text().replace(QLatin1String("&&"), QLatin1String("&"));
}

void MenuItem::setTitle(const QString& title) {
    setText(escaped(title));
}

void MenuItem::setState(StateValue state) {
    if (state == state_) {
        return;
    }
    state_ = state;
    setCheckable(true); // a screen reader says "not checked" of one that was
    setChecked(state == StateValue::on);
    emit changed(); // mixed looks different from off
}

void MenuItem::setStateImages(const QIcon& on, const QIcon& off, const QIcon& mixed) {
    stateImages_ = std::make_unique<StateImages>(StateImages{on, off, mixed});
    emit changed();
}

QIcon MenuItem::stateImage() const {
    if (stateImages_ == nullptr) {
        return {};
    }
    switch (state_) {
    case StateValue::on:
        return stateImages_->on;
    case StateValue::mixed:
        return stateImages_->mixed;
    case StateValue::off:
        break;
    }
    return stateImages_->off;
}

bool MenuItem::hasStateColumn() const {
    return isCheckable() || stateImages_ != nullptr;
}

void MenuItem::setAlternate(bool isAlternate) {
    if (isAlternate != isAlternate_) {
        isAlternate_ = isAlternate;
        if (menu_ != nullptr) {
            menu_->pairAlternates();
        }
    }
}

void MenuItem::setHidden(bool isHidden) {
    if (isHidden != isHidden_) {
        isHidden_ = isHidden;
        if (menu_ != nullptr) {
            menu_->showItem(*this);
        } else {
            setVisible(!isHidden);
        }
    }
}

void MenuItem::setSubmenu(std::unique_ptr<Menu> submenu) {
    setMenu(submenu.get()); // before the former one goes
    submenu_ = std::move(submenu);
    if (submenu_ != nullptr && menu_ != nullptr) {
        submenu_->setParent(menu_, submenu_->windowFlags());
    }
}

void MenuItem::choose() {
    if (isCheckable()) {
        setChecked(state_ == StateValue::on); // the toolkit has turned it over
    }
    if (menu_ != nullptr && menu_->keep(*this)) {
        return; // told when the toolkit is done with the menu
    }
    tell();
}

void MenuItem::tell() {
    const QPointer<MenuItem> self(this);
    for (const Menu* at = menu_; at != nullptr; at = at->superMenu()) {
        emit at->chosen(this);
        if (self == nullptr) {
            return;
        }
    }
    sendAction(); // may destroy the item and its menu
}

} // namespace platform
