#pragma once

#include "platform/assets/asset_catalog.hpp"

#include <QCache>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <QWidget>

#include <vector>

class QPainter;

namespace fernhorn {

/// Copies an image pixel for pixel, its corner on the device pixel next to a place in the painter's
/// coordinates, which may be scaled and moved but not turned. Main thread.
void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& image);

/// Repaints a widget that its ground shows through. That repaints the ground as well, so the ground
/// is asked right away: many such widgets in one parent, asked one by one, would each be compared
/// with all their siblings. Main thread.
inline void repaintWithGround(QWidget& widget) {
    QWidget* const parent = widget.parentWidget();
    if (parent == nullptr || widget.isWindow()) {
        widget.update();
    } else if (widget.isVisible()) {
        parent->update(widget.geometry());
    }
}

/// The images of a knob at evenly spaced positions. A frame's pixels are read when it is first
/// shown and shared by all knobs from then on. Main thread.
class FilmStrip {
  public:
    /// The frames are the images `prefix` + "01", "02" … of a catalogue, which outlives the strip.
    FilmStrip(const platform::AssetCatalog& assets, QString prefix, int frameCount);

    /// A strip of the kit's own bundle; lives until the program ends.
    static const FilmStrip& ofKit(const QString& prefix, int frameCount);

    [[nodiscard]] int frameCount() const { return static_cast<int>(frames_.size()); }
    /// Frames count from 1.
    [[nodiscard]] QString frameName(int index) const;

    /// Paints a frame into a rectangle, whose edges fall on device pixels. What is not of the size
    /// of an image's variant is reduced from the next larger one, by area. Does nothing when the
    /// bundle has no such image.
    void paint(QPainter& painter, const QRectF& rect, int index) const;

  private:
    struct Frame {
        bool isKnown = false;
        const platform::ImageAsset* image = nullptr;
    };

    [[nodiscard]] const platform::ImageAsset* frame(int index) const;

    const platform::AssetCatalog& assets_;
    QString prefix_;
    mutable std::vector<Frame> frames_;
};

/// Lines of text in one font and colour, as pictures. What was painted once is kept for a while,
/// for all labels that look alike: the same values come again and again. Main thread.
class TextPictures {
  public:
    TextPictures(const QFont& font, const QColor& color);
    /// The one for this look; lives until the program ends.
    static TextPictures& of(const QFont& font, const QColor& color);

    [[nodiscard]] double lineHeight() const { return lineHeight_; } ///< points
    [[nodiscard]] double width(const QString& text) const;          ///< points
    /// Paints a line from its upper left corner on.
    void paint(QPainter& painter, const QPointF& topLeft, const QString& text);

  private:
    struct Key {
        QString text;
        qreal scale;
        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) noexcept {
            return qHashMulti(seed, key.text, key.scale);
        }
    };

    [[nodiscard]] QImage draw(const QString& text, qreal scale) const;

    QFont font_;
    QColor color_;
    double lineHeight_;
    QCache<Key, QImage> pictures_;
    mutable QCache<QString, double> widths_;
};

} // namespace fernhorn
