#pragma once

#include <QColor>
#include <QWidget>

namespace platform {

class ImageAsset;

/// Shows an image at its natural size, a template image in one colour. Null shows nothing.
/// Main thread.
class ImageView final : public QWidget {
    Q_OBJECT

  public:
    /// `name` is what a screen reader says. `image` outlives the view.
    ImageView(const ImageAsset* image, const QColor& tint, const QString& name,
              QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const ImageAsset* image_;
    QColor tint_;
};

} // namespace platform
