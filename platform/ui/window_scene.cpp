#include "platform/ui/window_scene.hpp"

#include "platform/controls/accessible_role.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/controls/menu.hpp"
#include "platform/ui/window_frame.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QShowEvent>
#include <QWindow>

#include <functional>

namespace platform {

WindowScene::WindowScene(const QString& title, const QString& identifier, QSize contentSize,
                         const AssetCatalog& assets)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      contentSize_(contentSize),
      frame_(new WindowFrame(*this)),
      menuButton_(new GlyphButton(QStringLiteral("window-menu"), tr("Menu"), assets, this)),
      minimiseButton_(
          new GlyphButton(QStringLiteral("window-minimise"), tr("Minimize"), assets, this)),
      closeButton_(new GlyphButton(QStringLiteral("window-close"), tr("Close"), assets, this)) {
    setAccessibleRole(*this, QAccessible::Window);
    setWindowTitle(title);
    setObjectName(identifier);
    fitScreen();
    menuButton_->hide();
    connect(menuButton_, &QAbstractButton::clicked, this, [this] {
        popUpMenu(menuButton_->hasFocus() ? MenuOpenedBy::key : MenuOpenedBy::pointer);
    });
    connect(minimiseButton_, &QAbstractButton::clicked, this, &QWidget::showMinimized);
    connect(closeButton_, &QAbstractButton::clicked, this, &QWidget::close);
    addShortcut({Qt::ALT | Qt::Key_F4}, [this] { close(); });
    addShortcut({Qt::CTRL | Qt::Key_M}, [this] { showMinimized(); });
    addShortcut({Qt::SHIFT | Qt::Key_F10, Qt::Key_Menu}, [this] { popUpMenu(MenuOpenedBy::key); });
    addShortcut(
        {Qt::CTRL | Qt::Key_W},
        [] {
            if (QWidget* const front = QApplication::activeWindow()) {
                front->close();
            }
        },
        Qt::ApplicationShortcut);
    addShortcut(
        {Qt::CTRL | Qt::Key_Q}, [] { QApplication::quit(); }, Qt::ApplicationShortcut);
    addShortcut(
        {Qt::Key_F10}, [this] { popUpMenu(MenuOpenedBy::key); }, Qt::ApplicationShortcut);
    placeParts();
    setFocus(); // in place of the first control, which the toolkit would choose
}

void WindowScene::addShortcut(const QList<QKeySequence>& keys, const std::function<void()>& action,
                              Qt::ShortcutContext context) {
    for (const QKeySequence& key : keys) {
        auto* const shortcut = new QShortcut(key, this);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, this, action);
    }
}

void WindowScene::setContent(QWidget* content) {
    delete content_;
    content_ = content;
    content_->setParent(this);
    content_->lower();
    placeParts();
}

/// Tab goes round: through the content, then through the window's own buttons.
bool WindowScene::focusNextPrevChild(bool next) {
    if (!hasFocus() || content_ == nullptr) {
        return QWidget::focusNextPrevChild(next);
    }
    if (!next) {
        closeButton_->setFocus(Qt::BacktabFocusReason);
        return true;
    }
    for (QWidget* control = content_->nextInFocusChain(); content_->isAncestorOf(control);
         control = control->nextInFocusChain()) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isEnabled() &&
            control->isVisibleTo(this)) {
            control->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QWidget::focusNextPrevChild(next);
}

void WindowScene::setMenu(Menu* menu) {
    delete menu_;
    menu_ = menu;
    menu_->setParent(this, menu_->windowFlags());
    menuButton_->show();
    // Shown by the desktop where it has a global menu bar, and nowhere else.
    auto* const bar = new QMenuBar(this);
    bar->addMenu(menu_);
    bar->setVisible(false);
    placeParts();
}

void WindowScene::popUpMenu(MenuOpenedBy by) {
    if (menu_ != nullptr) {
        if (!isActiveWindow()) { // another one of the program's is
            if (isMinimized()) {
                showNormal();
            }
            raise();
            activateWindow();
        }
        menu_->popUpBelow(*menuButton_, Qt::AlignTrailing, 2, by);
    }
}

void WindowScene::placeParts() {
    constexpr int margin = 6;
    const QRect panel = frame_->panel();
    if (content_ != nullptr) {
        content_->setGeometry(panel);
    }
    int x = margin;
    for (GlyphButton* const button : {closeButton_, minimiseButton_, menuButton_}) {
        button->move(isRightToLeft() ? panel.left() + x : panel.right() + 1 - x - button->width(),
                     panel.top() + margin);
        x += button->width();
    }
}

/// The size is the one it was made for, or what the screen has room for.
void WindowScene::fitScreen() {
    const QSize room = screen()->availableGeometry().size();
    setFixedSize(contentSize_.boundedTo(room).grownBy(frame_->margins()));
}

void WindowScene::followScreen() {
    const auto follow = [this](const QScreen* screen) {
        if (screen != nullptr) {
            connect(screen, &QScreen::availableGeometryChanged, this, &WindowScene::fitScreen,
                    Qt::UniqueConnection);
            fitScreen();
        }
    };
    connect(windowHandle(), &QWindow::screenChanged, this, follow);
    follow(screen());
}

bool WindowScene::event(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        placeParts();
    } else if (event->type() == QEvent::WinIdChange && windowHandle() != nullptr) {
        followScreen();
    }
    return QWidget::event(event);
}

void WindowScene::resizeEvent(QResizeEvent* /*event*/) {
    placeParts();
}

/// The program ends with its window: whatever else it shows has no ground to stand on.
void WindowScene::closeEvent(QCloseEvent* event) {
    for (QWidget* const other : QApplication::topLevelWidgets()) {
        if (other != this && other->isVisible() && !other->close()) {
            event->ignore();
            return;
        }
    }
}

void WindowScene::showEvent(QShowEvent* event) {
    // An X server without a window manager gives the keyboard to nobody who does not ask. Where
    // there is one it decides, as for every new window.
    if (!event->spontaneous() && QGuiApplication::platformName() == QLatin1String("xcb")) {
        activateWindow();
    }
}

void WindowScene::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && frame_->panel().contains(event->pos())) {
        isPressed_ = true;
        isMovedByHand_ = false;
        pressPosition_ = event->globalPosition().toPoint();
        event->accept();
    }
}

void WindowScene::mouseMoveEvent(QMouseEvent* event) {
    const QPoint position = event->globalPosition().toPoint();
    if (!isPressed_) {
        return;
    }
    if (isMovedByHand_) {
        move(pos() + position - pressPosition_);
        pressPosition_ = position;
    } else if ((position - pressPosition_).manhattanLength() >= QApplication::startDragDistance()) {
        // The window manager moves it best; where there is none, it moves itself.
        if (windowHandle() != nullptr && windowHandle()->startSystemMove()) {
            isPressed_ = false;
        } else {
            isMovedByHand_ = true;
            move(pos() + position - pressPosition_);
            pressPosition_ = position;
        }
    }
}

void WindowScene::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        isPressed_ = false;
        isMovedByHand_ = false;
    }
}

void WindowScene::contextMenuEvent(QContextMenuEvent* event) {
    if (menu_ != nullptr) {
        const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
        menu_->popUpAt(*this, event->globalPos(),
                       isByKey ? MenuOpenedBy::key : MenuOpenedBy::pointer);
    }
}

void WindowScene::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    frame_->paint(painter, event->rect());
}

} // namespace platform
