#pragma once

#include <QCheckBox>
#include <QScrollBar>

namespace platform {

/// A check box in the look of the updater's dialogs.
class DialogCheckBox final : public QCheckBox {
    Q_OBJECT

  public:
    static constexpr int ringReach = 3; ///< points, of the focus ring around everything

    explicit DialogCheckBox(const QString& text, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};

/// A thin scroll bar without arrows.
class DialogScrollBar final : public QScrollBar {
    Q_OBJECT

  public:
    explicit DialogScrollBar(QWidget* parent = nullptr) : QScrollBar(Qt::Vertical, parent) {}

    [[nodiscard]] QSize sizeHint() const override { return {12, 40}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
