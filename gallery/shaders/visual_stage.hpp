#pragma once

#include <QWidget>

namespace gallery {

/// How long a visual needs to get going, in milliseconds.
inline constexpr int visualSettlingTime = 3000;

/// Where a visual is shown: a place as wide as a card, on the ground of the program's window. The
/// visual lies in it or is its only child.
class VisualStage : public QWidget {
  public:
    explicit VisualStage(int height);

    /// Puts a view in it that fills it, in place of the one before.
    void show(QWidget* view);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void place();

    QWidget* view_ = nullptr;
};

} // namespace gallery
