#pragma once

#include <QProgressBar>
#include <QTimer>

namespace updates {

/// A thin bar. While the length of the work is not known a light wanders through it. Main thread.
class UpdateProgressBar final : public QProgressBar {
    Q_OBJECT

  public:
    explicit UpdateProgressBar(QWidget* parent = nullptr);

    /// 0…1; below 0: not known.
    void setShare(double share);

    [[nodiscard]] QSize sizeHint() const override { return {240, 8}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {80, 8}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void animate();

    QTimer ticks_; // only while something moves and somebody can see it
    double phase_ = 0.3;
};

} // namespace updates
