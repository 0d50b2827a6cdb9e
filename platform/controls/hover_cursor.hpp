#pragma once

#include <QCursor>
#include <QObject>
#include <QPoint>

#include <optional>

class QWidget;

namespace platform {

class ImageAsset;

/// Gives a widget a pointer of its own, made from an image at the widget's scale when the pointer
/// first comes. It is the widget's cursor like any other, so that a wait cursor of the program
/// stays on top of it and is not taken away when the pointer leaves. A member of the widget. Main
/// thread.
class HoverCursor final : public QObject {
    Q_OBJECT

  public:
    /// The image outlives the widget; the hot spot is in points from its upper left corner.
    HoverCursor(QWidget& widget, const ImageAsset& image, QPoint hotSpot);

    [[nodiscard]] const ImageAsset& image() const { return *image_; }
    void setImage(const ImageAsset& image);
    [[nodiscard]] QPoint hotSpot() const { return hotSpot_; }
    void setHotSpot(QPoint hotSpot);

    /// Made when it is first asked for, at the scale of the widget's screen.
    [[nodiscard]] const QCursor& cursor() const;

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void renew();

    QWidget& widget_;
    const ImageAsset* image_;
    QPoint hotSpot_;
    mutable std::optional<QCursor> cursor_;
    mutable qreal scale_ = 0; // that the cursor was made for
};

} // namespace platform
