#include "platform/ui/window_scene.hpp"

#include "platform/controls/accessible_role.hpp"
#include "platform/controls/glyph_button.hpp"
#include "platform/controls/menu.hpp"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QShortcut>
#include <QShowEvent>
#include <QWindow>

#include <functional>

namespace platform {

WindowScene::WindowScene(const QString& title, const QString& identifier, QSize contentSize,
                         const AssetCatalog& assets)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      menuButton_(new GlyphButton(QStringLiteral("window-menu"), tr("Menu"), assets, this)),
      minimiseButton_(
          new GlyphButton(QStringLiteral("window-minimise"), tr("Minimize"), assets, this)),
      closeButton_(new GlyphButton(QStringLiteral("window-close"), tr("Close"), assets, this)) {
    setAccessibleRole(*this, QAccessible::Window);
    setWindowTitle(title);
    setObjectName(identifier);
    setFixedSize(contentSize);
    menuButton_->hide();
    connect(menuButton_, &QAbstractButton::clicked, this, [this] {
        popUpMenu(menuButton_->hasFocus() ? MenuOpenedBy::key : MenuOpenedBy::pointer);
    });
    connect(minimiseButton_, &QAbstractButton::clicked, this, &QWidget::showMinimized);
    connect(closeButton_, &QAbstractButton::clicked, this, &QWidget::close);
    addShortcut({Qt::CTRL | Qt::Key_W, Qt::ALT | Qt::Key_F4}, [this] { close(); });
    addShortcut({Qt::CTRL | Qt::Key_M}, [this] { showMinimized(); });
    addShortcut({Qt::CTRL | Qt::Key_Q}, [] { QApplication::quit(); });
    addShortcut({Qt::Key_F10, Qt::Key_Menu}, [this] { popUpMenu(MenuOpenedBy::key); });
    placeButtons();
}

void WindowScene::addShortcut(const QList<QKeySequence>& keys,
                              const std::function<void()>& action) {
    for (const QKeySequence& key : keys) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    }
}

void WindowScene::setContent(QWidget* content) {
    delete content_;
    content_ = content;
    content_->setParent(this);
    content_->setGeometry(rect());
    content_->lower();
    // Tab goes round; it starts in the content and comes to the window's own buttons last.
    for (QWidget* next = content_->nextInFocusChain(); content_->isAncestorOf(next);
         next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0) {
            next->setFocus();
            break;
        }
    }
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
    placeButtons();
}

void WindowScene::popUpMenu(MenuOpenedBy by) {
    if (menu_ != nullptr) {
        menu_->popUpBelow(*menuButton_, Qt::AlignTrailing, 2, by);
    }
}

void WindowScene::placeButtons() {
    constexpr int margin = 6;
    int x = margin;
    for (GlyphButton* const button : {closeButton_, minimiseButton_, menuButton_}) {
        button->move(isRightToLeft() ? x : width() - x - button->width(), margin);
        x += button->width();
    }
}

bool WindowScene::event(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        placeButtons();
    }
    return QWidget::event(event);
}

void WindowScene::showEvent(QShowEvent* event) {
    // An X server without a window manager gives the keyboard to nobody who does not ask. Where
    // there is one it decides, as for every new window.
    if (!event->spontaneous() && QGuiApplication::platformName() == QLatin1String("xcb")) {
        activateWindow();
    }
}

void WindowScene::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
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

void WindowScene::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
}

} // namespace platform
