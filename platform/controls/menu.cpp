#include "platform/controls/menu.hpp"

#include "platform/controls/cell_control.hpp"
#include "platform/controls/cell_painting.hpp"
#include "platform/controls/desktop_composition.hpp"
#include "platform/controls/internal/menu_look.hpp"
#include "platform/controls/kit_style.hpp"

#include <QAbstractButton>
#include <QActionEvent>
#include <QBitmap>
#include <QDateTime>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

/// A release that soon and that near after a menu has opened under the pointer chooses nothing.
constexpr qint64 accidentMilliseconds = 300;

/// Where the item goes that is chosen by the event that a menu is dealing with; null outside of
/// one.
QPointer<MenuItem>* keptItem = nullptr;

core::Rect toRect(const QRect& rect) {
    return platform::toRect(QRectF(rect));
}

void setLit(QWidget* control, bool isLit) {
    if (auto* const button = qobject_cast<QAbstractButton*>(control)) {
        button->setDown(isLit);
    } else if (auto* const cell = qobject_cast<CellControl*>(control)) {
        cell->setHighlighted(isLit, HighlightOwner::menu);
    }
}

/// The toolkit does not notice that the pointer has left a control while a pop-up had the mouse.
void noticePointer(QWidget& control) {
    if (control.underMouse() && !control.rect().contains(control.mapFromGlobal(QCursor::pos()))) {
        control.setAttribute(Qt::WA_UnderMouse, false);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&control, &leave);
        control.update();
    }
}

} // namespace

Menu::Menu(const QString& title, QWidget* parent) : QMenu(title, parent) {
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setPalette(menuPalette());
    setFont(menuFont());
    adoptKitStyle(*this);
}

Menu::~Menu() {
    release();
    setItems({}); // their submenus are children, too, and must not go twice
}

std::vector<MenuItem*> Menu::items() const {
    std::vector<MenuItem*> items;
    for (QAction* const action : actions()) {
        if (auto* const item = qobject_cast<MenuItem*>(action)) {
            items.push_back(item);
        }
    }
    return items;
}

MenuItem* Menu::itemAt(int index) const {
    const auto all = items();
    return index >= 0 && static_cast<std::size_t>(index) < all.size()
               ? all[static_cast<std::size_t>(index)]
               : nullptr;
}

int Menu::indexOf(const MenuItem* item) const {
    const auto all = items();
    const auto found = std::ranges::find(all, item);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

MenuItem& Menu::take(std::unique_ptr<MenuItem> item) {
    MenuItem& taken = *item.release();
    taken.setParent(this);
    taken.menu_ = this;
    if (taken.submenu() != nullptr) {
        taken.submenu()->setParent(this, taken.submenu()->windowFlags());
    }
    return taken;
}

MenuItem& Menu::addItem(std::unique_ptr<MenuItem> item) {
    MenuItem& added = take(std::move(item));
    addAction(&added);
    if (added.isAlternate_) {
        pairAlternates();
    }
    return added;
}

MenuItem& Menu::insertItem(int index, std::unique_ptr<MenuItem> item) {
    MenuItem* const before = itemAt(index);
    MenuItem& added = take(std::move(item));
    insertAction(before, &added); // before nothing: at the end
    pairAlternates();
    return added;
}

std::unique_ptr<MenuItem> Menu::removeItem(MenuItem& item) {
    item.menu_ = nullptr;
    removeAction(&item);
    forget(item);
    item.setParent(nullptr);
    item.setVisible(!item.isHidden_);
    return std::unique_ptr<MenuItem>(&item);
}

void Menu::setItems(std::vector<std::unique_ptr<MenuItem>> items) {
    auto former = this->items();
    hasAlternates_ = false;
    for (; !former.empty(); former.pop_back()) { // from the end: the rest stays where it is
        former.back()->menu_ = nullptr;
        delete former.back();
    }
    for (auto& item : items) {
        addItem(std::move(item));
    }
}

Menu* Menu::superMenu() const {
    const auto* const item = qobject_cast<MenuItem*>(menuAction());
    return item != nullptr ? item->containingMenu() : nullptr;
}

void Menu::forget(MenuItem& item) {
    if (MenuItem* const other = std::exchange(item.counterpart_, nullptr)) {
        other->counterpart_ = nullptr;
        pairAlternates();
    }
}

void Menu::pairAlternates() {
    MenuItem* before = nullptr;
    hasAlternates_ = false;
    for (MenuItem* const item : items()) {
        item->counterpart_ = nullptr;
        if (item->isAlternate_ && before != nullptr && !before->isSeparator()) {
            item->counterpart_ = before;
            before->counterpart_ = item;
            hasAlternates_ = true;
        }
        before = item->isAlternate_ ? nullptr : item;
    }
    for (MenuItem* const item : items()) {
        showItem(*item);
    }
}

void Menu::showItem(MenuItem& item) const {
    const bool isInItsPlace =
        item.counterpart_ == nullptr ? !item.isAlternate_ : item.isAlternate_ == showsAlternates_;
    item.setVisible(isInItsPlace && !item.isHidden_);
}

void Menu::setShowsAlternates(bool shows) {
    if (shows == showsAlternates_) {
        return;
    }
    showsAlternates_ = shows;
    if (hasAlternates_) {
        auto* const active = qobject_cast<MenuItem*>(activeAction());
        for (MenuItem* const item : items()) {
            if (item->counterpart_ != nullptr) {
                showItem(*item);
            }
        }
        if (active != nullptr && active->counterpart_ != nullptr) {
            setActiveAction(active->counterpart_);
        }
    }
    for (MenuItem* const item : items()) {
        if (item->submenu() != nullptr && item->submenu()->isVisible()) {
            item->submenu()->setShowsAlternates(shows);
        }
    }
}

QRect Menu::panel() const {
    return rect().marginsRemoved(contentsMargins());
}

void Menu::prepareWindow() {
    const bool isComposited = desktopComposites();
    if (isComposited != isComposited_ || !testAttribute(Qt::WA_WState_Created)) {
        isComposited_ = isComposited;
        if (testAttribute(Qt::WA_WState_Created)) {
            destroy();
        }
        setAttribute(Qt::WA_TranslucentBackground, isComposited);
        setContentsMargins(isComposited ? menuShadowMargins() : QMargins());
    }
}

bool Menu::open(QWidget& view) {
    if (isVisible()) {
        return false;
    }
    if (parentWidget() == nullptr) {
        setParent(&view, windowFlags());
    }
    setLayoutDirection(view.layoutDirection());
    prepareWindow();
    edge_.reset();
    leading_.reset();
    over_.clear();
    setShowsAlternates(QGuiApplication::keyboardModifiers().testFlag(Qt::AltModifier));
    openedAt_ = QCursor::pos();
    openedTime_ = QDateTime::currentMSecsSinceEpoch();
    return true;
}

void Menu::openAt(QPoint at, QAction* over, MenuOpenedBy by) {
    const QPointer<Menu> self(this);
    popup(at, over);
    if (self != nullptr && by == MenuOpenedBy::key) {
        // What chooses the first item and does not open its submenu.
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, {});
        QMenu::keyPressEvent(&down);
    }
}

void Menu::popUpBelow(QWidget& control, Qt::Alignment edge, int gap, MenuOpenedBy by) {
    if (!open(control)) {
        return;
    }
    const bool isTrailing = edge.testFlag(Qt::AlignTrailing);
    edge_ = isTrailing != isRightToLeft() ? MenuEdge::right : MenuEdge::left;
    gap_ = gap;
    control_ = &control;
    setLit(&control, true);
    openAt(control.mapToGlobal(control.rect().bottomLeft()), nullptr, by);
}

void Menu::popUpOver(QWidget& control, MenuItem& item, double titleX, MenuOpenedBy by) {
    if (!open(control)) {
        return;
    }
    const QMargins margins = contentsMargins();
    const int title = qRound(titleX) - menuTitleStart(*this); // where the panel begins
    setMinimumWidth(control.width() + std::max(0, -title) + margins.left() + margins.right());
    leading_ =
        control.mapToGlobal(QPoint(isRightToLeft() ? control.width() - title : title, 0)).x();
    control_ = &control;
    over_ = &item;
    setLit(&control, true);
    const QPointer<Menu> self(this);
    const int middle = control.mapToGlobal(QPoint(0, control.height() / 2)).y();
    openAt(QPoint(*leading_ - margins.left(),
                  middle - menuItemHeight / 2 - margins.top() - menuPadding),
           &item, MenuOpenedBy::pointer);
    // In a menu that scrolls the toolkit would move the item away from the pointer.
    if (self != nullptr && (by == MenuOpenedBy::key || sizeHint().height() <= height())) {
        setActiveAction(&item);
    }
}

void Menu::popUpAt(QWidget& view, QPoint global, MenuOpenedBy by) {
    if (open(view)) {
        const QMargins margins = contentsMargins();
        openAt(global + QPoint(isRightToLeft() ? margins.right() : -margins.left(), -margins.top()),
               nullptr, by);
    }
}

void Menu::release() {
    if (QWidget* const control = control_) {
        control_ = nullptr;
        setLit(control, false);
        noticePointer(*control);
    }
}

void Menu::showEvent(QShowEvent* event) {
    // The size is known by now, and the window is not on the screen yet.
    const QMargins margins = contentsMargins();
    const core::Rect screen = toRect(this->screen()->availableGeometry());
    const core::Rect seen = toRect(geometry().marginsRemoved(margins));
    std::optional<core::Rect> place;
    if (control_ != nullptr && edge_) {
        const core::Rect control = toRect(QRect(control_->mapToGlobal(QPoint()), control_->size()));
        place = menuBelow(control, seen.size, screen, *edge_, gap_);
    } else if (leading_) {
        const double x = isRightToLeft() ? *leading_ - seen.size.width : *leading_;
        place = menuWithin({{x, seen.origin.y}, seen.size}, screen);
    }
    if (place) {
        move(QPoint(qRound(place->origin.x), qRound(place->origin.y)) -
             QPoint(margins.left(), margins.top()));
    }
    if (!isComposited_) {
        QBitmap shape(size());
        shape.clear();
        QPainter painter(&shape);
        painter.setBrush(Qt::color1);
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(rect(), menuRadius, menuRadius);
        painter.end();
        setMask(shape);
    }
    for (MenuItem* const item : items()) {
        if (item->submenu() != nullptr) {
            item->submenu()->prepareWindow();
        }
    }
    QMenu::showEvent(event);
}

void Menu::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    setMinimumWidth(0);
    release();
    QMetaObject::invokeMethod( // what has been chosen is there until it is done
        this,
        [this] {
            if (!isVisible()) {
                setShowsAlternates(false);
            }
        },
        Qt::QueuedConnection);
    emit closed();
}

bool Menu::event(QEvent* event) {
    if (event->isInputEvent() && event->type() != QEvent::ShortcutOverride) {
        auto held = static_cast<QInputEvent*>(event)->modifiers();
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) {
                // The key itself is told as held by some systems and not by others.
                held.setFlag(Qt::AltModifier, event->type() == QEvent::KeyPress);
            }
        }
        for (Menu* menu = this; menu != nullptr; menu = menu->superMenu()) {
            menu->setShowsAlternates(held.testFlag(Qt::AltModifier));
        }
    }
    if (event->type() == QEvent::Resize &&
        (over_ == nullptr || indexOf(qobject_cast<MenuItem*>(over_)) == 0)) {
        // The toolkit would measure all items a second time. Their places follow from the screen
        // and from the items, not from the size, unless the menu opens scrolled.
        return QWidget::event(event);
    }
    if (!event->isInputEvent()) {
        return QMenu::event(event);
    }
    // The toolkit writes to the menu after an item was triggered: whoever destroys the menu in an
    // action has to come later.
    QPointer<MenuItem> chosen;
    QPointer<MenuItem>* const outer = std::exchange(keptItem, &chosen);
    const bool isDealtWith = QMenu::event(event);
    keptItem = outer;
    if (chosen != nullptr) {
        chosen->tell(); // may destroy the menu
    }
    return isDealtWith;
}

bool Menu::keep(MenuItem& item) {
    if (keptItem == nullptr) {
        return false;
    }
    *keptItem = &item;
    return true;
}

void Menu::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Alt) {
        event->accept(); // the toolkit would close the menu
        return;
    }
    if (over_ != nullptr && activeAction() == nullptr) {
        setActiveAction(over_); // keys go on from there
    }
    QMenu::keyPressEvent(event);
}

bool Menu::handOn(const QMouseEvent& event) {
    if (panel().contains(event.position().toPoint())) {
        return false;
    }
    // The shadow is not the menu: what is below it may be the menu above this one, or nothing.
    const QPointF global = event.globalPosition();
    for (Menu* menu = superMenu(); menu != nullptr; menu = menu->superMenu()) {
        if (menu->panel().contains(menu->mapFromGlobal(global).toPoint())) {
            QMouseEvent same(event.type(), menu->mapFromGlobal(global), global, event.button(),
                             event.buttons(), event.modifiers());
            QCoreApplication::sendEvent(menu, &same);
            return true;
        }
    }
    if (event.type() == QEvent::MouseButtonPress && rect().contains(event.position().toPoint())) {
        Menu* top = this;
        while (Menu* const above = top->superMenu()) {
            top = above;
        }
        top->hide();
        return true;
    }
    return false;
}

bool Menu::isAccident(const QMouseEvent& event) const {
    return QDateTime::currentMSecsSinceEpoch() - openedTime_ < accidentMilliseconds &&
           (event.globalPosition().toPoint() - openedAt_).manhattanLength() <
               QGuiApplication::styleHints()->startDragDistance();
}

void Menu::mousePressEvent(QMouseEvent* event) {
    if (handOn(*event)) {
        return;
    }
    if (control_ != nullptr &&
        control_->rect().contains(control_->mapFromGlobal(event->globalPosition().toPoint()))) {
        setAttribute(Qt::WA_NoMouseReplay); // the press closes it, and opens it not once more
    }
    QMenu::mousePressEvent(event);
}

void Menu::mouseMoveEvent(QMouseEvent* event) {
    if (!handOn(*event)) {
        QMenu::mouseMoveEvent(event);
    }
}

void Menu::mouseReleaseEvent(QMouseEvent* event) {
    if (!isAccident(*event) && !handOn(*event)) {
        QMenu::mouseReleaseEvent(event);
    }
}

void Menu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    option->styleObject = const_cast<QAction*>(action); // what the style paints it by
}

} // namespace platform
