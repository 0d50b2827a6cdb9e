#pragma once

#include "driftwood/bridges/style_follower.hpp"
#include "driftwood/bridges/styled_class.hpp"

#include <QSplitter>

// All of this is for the main thread.
namespace driftwood {

/// A container whose coordinates grow downwards, as all of them do here.
class FlippedView : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    [[nodiscard]] bool isFlipped() const { return true; }
};

/// The same, painted with the background colour of its shared style.
class StyledFlippedView : public FlippedView, public StyledClass<StyledFlippedView, BaseStyle> {
    Q_OBJECT

  public:
    explicit StyledFlippedView(QWidget* parent = nullptr);

    using StyledClass::style; // and not the toolkit's

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    StyleFollower follower_;
};

/// Views beside or above each other, without anything between them: where they meet can still be
/// dragged, over 5 points, and moved by the arrow keys, Home and End once Tab has led there, which
/// alone is shown.
class NoDividerSplitView : public QSplitter {
    Q_OBJECT

  public:
    explicit NoDividerSplitView(Qt::Orientation orientation = Qt::Horizontal,
                                QWidget* parent = nullptr);

    [[nodiscard]] static QColor dividerColor() { return Qt::transparent; }
    [[nodiscard]] int dividerThickness() const { return handleWidth(); } ///< 0
    [[nodiscard]] static bool isOpaque() { return true; }
    [[nodiscard]] static bool allowsVibrancy() { return false; }

    bool eventFilter(QObject* object, QEvent* event) override;

  protected:
    [[nodiscard]] QSplitterHandle* createHandle() override;
    void childEvent(QChildEvent* event) override;

  private:
    bool isMoving_ = false;
};

} // namespace driftwood
