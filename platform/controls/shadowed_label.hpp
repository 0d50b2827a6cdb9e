#pragma once

#include <QImage>
#include <QLabel>

#include <vector>

namespace platform {

/// A soft copy of what is above it. Points; the radius is twice the standard deviation of the
/// blur, and 0 gives a hard edge.
struct TextShadow {
    QColor color; ///< with its opacity
    double radius = 0;
    QPointF offset;
};

/// One line of text, centred, with shadows that are applied one after another: each falls from the
/// text and the shadows before it. Main thread.
class ShadowedLabel final : public QLabel {
    Q_OBJECT

  public:
    ShadowedLabel(const QString& text, std::vector<TextShadow> shadows, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] QImage render() const;

    std::vector<TextShadow> shadows_;
    QImage picture_;      // made when first painted
    QString pictureText_; // what it shows
};

} // namespace platform
