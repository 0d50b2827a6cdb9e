#pragma once

#include "platform/assets/asset_catalog.hpp"

#include <QString>

#include <vector>

class QPainter;

namespace fernhorn {

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

} // namespace fernhorn
