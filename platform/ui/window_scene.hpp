#pragma once

#include <QKeySequence>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QWidget>

#include <functional>

namespace platform {

class AssetCatalog;
class GlyphButton;
class Menu;
class WindowFrame;
enum class MenuOpenedBy;

/// The window of a program: without a title bar, of one fixed size; only where the screen is
/// smaller it is, too, and its content makes do. Every part of it that is not a control moves it.
/// It is minimised and closed with the buttons in its corner, and with Ctrl+M, Ctrl+W and Alt+F4.
/// Its menu is in the desktop's global menu bar where there is one; it also opens with the button
/// in the corner, F10, Shift+F10, the menu key, and the secondary mouse button. With whichever of
/// the program's windows has the keyboard, F10 opens the menu, Ctrl+W closes that window, and
/// Ctrl+Q ends the program. Closing it closes the program's other windows first, and stops where
/// one of them refuses. Nothing in it has the focus until the user asks with Tab. Main thread.
class WindowScene final : public QWidget {
    Q_OBJECT

  public:
    /// `title` is what the desktop shows for the window, `identifier` its name in the program. The
    /// glyphs "window-menu", "window-minimise" and "window-close" come from `assets`, which has to
    /// outlive the window. `contentSize` in points.
    WindowScene(const QString& title, const QString& identifier, QSize contentSize,
                const AssetCatalog& assets);

    /// The window owns its content, which fills it below the buttons in the corner.
    void setContent(QWidget* content);
    /// The window owns the menu. Its title is the program's name.
    void setMenu(Menu* menu);
    [[nodiscard]] Menu* menu() const { return menu_; }
    /// Below its button.
    void popUpMenu(MenuOpenedBy by);

  protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void addShortcut(const QList<QKeySequence>& keys, const std::function<void()>& action,
                     Qt::ShortcutContext context = Qt::WindowShortcut);
    void placeParts();
    void followScreen();
    void fitScreen();

    QSize contentSize_;
    WindowFrame* frame_;
    QWidget* content_ = nullptr;
    Menu* menu_ = nullptr;
    GlyphButton* menuButton_;
    GlyphButton* minimiseButton_;
    GlyphButton* closeButton_;
    QPoint pressPosition_;
    bool isPressed_ = false;
    bool isMovedByHand_ = false;
};

} // namespace platform
