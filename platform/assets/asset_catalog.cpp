#include "platform/assets/asset_catalog.hpp"

#include <QColorSpace>
#include <QColorTransform>
#include <QFile>
#include <QFontDatabase>

#include <cmath>

namespace platform {
namespace {

AssetManifest readManifest(const QDir& bundle) {
    QFile file(bundle.filePath(QStringLiteral("Assets.json")));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray text = file.readAll();
    return AssetManifest::parse({text.constData(), static_cast<std::size_t>(text.size())});
}

QColor toColor(const ColorEntry& entry) {
    const auto& c = entry.components;
    const QColor color = QColor::fromRgbF(static_cast<float>(c[0]), static_cast<float>(c[1]),
                                          static_cast<float>(c[2]), static_cast<float>(c[3]));
    if (entry.encoding == ColorEncoding::sRGB) {
        return color;
    }
    return QColorSpace(QColorSpace::DisplayP3)
        .transformationToColorSpace(QColorSpace(QColorSpace::SRgb))
        .map(color);
}

} // namespace

ImageAsset::ImageAsset(const QDir& bundle, const ImageEntry& entry)
    : bundle_(bundle),
      variants_(entry.variants),
      size_(entry.size.width, entry.size.height),
      capInsets_(entry.capInsets.left, entry.capInsets.top, entry.capInsets.right,
                 entry.capInsets.bottom),
      resizing_(entry.resizing),
      isTemplate_(entry.isTemplate) {}

const QImage& ImageAsset::image(qreal devicePixelRatio) const {
    const int key = qRound(devicePixelRatio * 1000);
    if (const auto found = prepared_.find(key); found != prepared_.end()) {
        return found->second;
    }
    auto variant = variants_.lower_bound(static_cast<int>(std::ceil(devicePixelRatio - 1e-6)));
    if (variant == variants_.end()) {
        variant = std::prev(variants_.end());
    }
    // Named, because guessing the format loads every plug-in for images.
    QImage image(bundle_.filePath(QString::fromStdString(variant->second)), "PNG");
    image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    // The reader takes a ratio from the file's name; pixels are meant here.
    image.setDevicePixelRatio(1);
    const QSize wanted = (size_ * devicePixelRatio).toSize().expandedTo(QSize(1, 1));
    if (!image.isNull() && image.size() != wanted) {
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return prepared_.emplace(key, std::move(image)).first->second;
}

std::size_t ImageAsset::pixelBytes() const {
    std::size_t sum = 0;
    for (const auto& [ratio, image] : prepared_) {
        sum += static_cast<std::size_t>(image.sizeInBytes());
    }
    return sum;
}

AssetCatalog::AssetCatalog(const QDir& bundle) : bundle_(bundle), manifest_(readManifest(bundle)) {}

const ImageAsset* AssetCatalog::image(const QString& name) const {
    if (const auto found = images_.find(name); found != images_.end()) {
        return found->second.get();
    }
    const auto entry = manifest_.images.find(name.toStdString());
    if (entry == manifest_.images.end()) {
        return nullptr;
    }
    return images_.emplace(name, std::make_unique<ImageAsset>(bundle_, entry->second))
        .first->second.get();
}

QColor AssetCatalog::color(const QString& name) const {
    const auto entry = manifest_.colors.find(name.toStdString());
    return entry == manifest_.colors.end() ? QColor() : toColor(entry->second);
}

QFont AssetCatalog::font(const QString& face, double size) const {
    QFont font;
    if (const auto entry = manifest_.faces.find(face.toStdString());
        entry != manifest_.faces.end()) {
        font.setFamilies({QString::fromStdString(entry->second.family)});
        font.setStyleName(QString::fromStdString(entry->second.style));
        font.setWeight(static_cast<QFont::Weight>(entry->second.weight));
    }
    font.setPixelSize(qRound(size)); // a point is a device-independent pixel
    return font;
}

QStringList AssetCatalog::registerFonts() const {
    QStringList failed;
    for (const std::string& font : manifest_.fonts) {
        const QString file = bundle_.filePath(QString::fromStdString(font));
        if (QFontDatabase::addApplicationFont(file) < 0) {
            failed.append(file);
        }
    }
    return failed;
}

} // namespace platform
