#pragma once

#include "platform/assets/asset_manifest.hpp"

#include <QColor>
#include <QDir>
#include <QFont>
#include <QImage>
#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

namespace platform {

/// One image of a bundle in all its scales. The pixels of a scale are read and prepared when they
/// are first asked for, and then kept.
class ImageAsset {
  public:
    ImageAsset(const QDir& bundle, const ImageEntry& entry);

    [[nodiscard]] QSizeF size() const { return size_; } ///< points
    [[nodiscard]] QMarginsF capInsets() const { return capInsets_; }
    [[nodiscard]] ImageResizing resizing() const { return resizing_; }
    [[nodiscard]] bool isTemplate() const { return isTemplate_; }

    /// The pixels for a device pixel ratio, premultiplied: the variant of that scale as it stands,
    /// or the next larger one reduced once by area, or, beyond the largest, the largest enlarged. A
    /// null image when the file cannot be read.
    [[nodiscard]] const QImage& image(qreal devicePixelRatio) const;

    /// The memory of the pixels prepared by now, in bytes.
    [[nodiscard]] std::size_t pixelBytes() const;

  private:
    QDir bundle_;
    std::map<int, std::string> variants_;
    QSizeF size_;
    QMarginsF capInsets_;
    ImageResizing resizing_;
    bool isTemplate_;
    mutable std::map<int, QImage> prepared_; // by device pixel ratio in thousandths
};

/// The images, colours and fonts of one bundle by name. A name that the bundle does not have gives
/// null, no colour, or nothing; what follows from that is decided where it is used. Main thread.
class AssetCatalog {
  public:
    explicit AssetCatalog(const QDir& bundle);

    [[nodiscard]] const ImageAsset* image(const QString& name) const;
    /// An invalid colour when the bundle has none of that name.
    [[nodiscard]] QColor color(const QString& name) const;
    /// A typeface under its exact name, at a size in points; its fonts have to be registered. The
    /// system's own font at that size when the bundle has none of that name.
    [[nodiscard]] QFont font(const QString& face, double size) const;
    /// Makes the bundle's fonts known to the program under their names. Returns the files that
    /// could not be registered.
    QStringList registerFonts() const;

  private:
    QDir bundle_;
    AssetManifest manifest_;
    mutable std::map<QString, std::unique_ptr<ImageAsset>> images_;
};

} // namespace platform
