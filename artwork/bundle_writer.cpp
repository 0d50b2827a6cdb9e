#include "artwork/bundle_writer.hpp"

#include "artwork/canvas.hpp"
#include "artwork/faces.hpp"
#include "artwork/palette.hpp"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>

namespace artwork {

namespace {

QString text(std::string_view view) {
    return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
}

QString imageFile(const Drawing& drawing, int scale) {
    auto name = drawing.name;
    return QStringLiteral("%1@%2x.png").arg(name.replace('/', '-')).arg(scale);
}

QJsonValue resizingName(Resizing resizing) {
    switch (resizing) {
    case Resizing::none:
        return "none";
    case Resizing::stretch:
        return "stretch";
    case Resizing::tile:
        return "tile";
    }
    return {};
}

QJsonObject describe(const Drawing& drawing) {
    QJsonObject variants;
    for (const int scale : drawing.scales) {
        variants[QString::number(scale)] = "Images/" + imageFile(drawing, scale);
    }
    const auto& caps = drawing.capInsets;
    return {{"size", QJsonArray{drawing.size.width, drawing.size.height}},
            {"capInsets", QJsonArray{caps.top, caps.left, caps.bottom, caps.right}},
            {"resizing", resizingName(drawing.resizing)},
            {"template", drawing.isTemplate},
            {"variants", variants}};
}

QByteArray manifest(const QString& bundle, const std::vector<Drawing>& drawings) {
    QJsonObject images;
    for (const auto& drawing : drawings) {
        images[drawing.name] = describe(drawing);
    }
    QJsonObject colors;
    for (const auto& entry : palette()) {
        if (text(entry.bundle) == bundle) {
            const auto part = [](int value) { return value / 255.0; };
            colors[text(entry.name)] = QJsonObject{
                {"space", "srgb"},
                {"components", QJsonArray{part(qRed(entry.rgb)), part(qGreen(entry.rgb)),
                                          part(qBlue(entry.rgb)), part(qAlpha(entry.rgb))}}};
        }
    }
    QJsonArray fonts;
    QJsonObject named;
    for (const auto& face : faces()) {
        if (text(face.bundle) == bundle) {
            const auto file = "Fonts/" + text(face.file);
            fonts.append(file);
            named[text(face.name)] = QJsonObject{{"file", file},
                                                 {"family", text(face.family)},
                                                 {"style", text(face.style)},
                                                 {"weight", face.weight}};
        }
    }
    const QJsonObject root{
        {"images", images}, {"colors", colors}, {"fonts", fonts}, {"faces", named}};
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

QString writeIfChanged(const QString& path, const QByteArray& bytes) {
    QFile present(path);
    if (present.open(QIODevice::ReadOnly) && present.readAll() == bytes) {
        return {};
    }
    present.close();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString());
    }
    return {};
}

QString writeImage(const QString& path, const QImage& image) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "png");
    if (!buffer.open(QIODevice::WriteOnly) || !writer.write(image)) {
        return QStringLiteral("%1 cannot be encoded: %2").arg(path, writer.errorString());
    }
    return writeIfChanged(path, buffer.data());
}

} // namespace

QImage bake(const Drawing& drawing, int scale) {
    Canvas canvas(drawing.size, scale);
    drawing.draw(canvas);
    auto image = canvas.finish();
    if (drawing.isTemplate) {
        image = Mask::ofAlpha(image).tinted(Qt::black);
    }
    image = image.convertToFormat(QImage::Format_ARGB32);
    // 72 pixels an inch and point, whatever the display of the machine says.
    image.setDotsPerMeterX(2835 * scale);
    image.setDotsPerMeterY(2835 * scale);
    return image;
}

QString writeBundle(const QString& bundle, const std::vector<Drawing>& drawings,
                    const QString& folder) {
    const QDir images(folder + "/Images");
    if (!QDir().mkpath(drawings.empty() ? folder : images.path())) {
        return QStringLiteral("the folder %1 cannot be made").arg(images.path());
    }
    QSet<QString> written;
    for (const auto& drawing : drawings) {
        for (const int scale : drawing.scales) {
            const auto file = imageFile(drawing, scale);
            if (written.contains(file)) {
                return QStringLiteral("two drawings would be written as %1").arg(file);
            }
            written.insert(file);
            if (auto error = writeImage(images.filePath(file), bake(drawing, scale));
                !error.isEmpty()) {
                return error;
            }
        }
    }
    for (const auto& file : images.entryList({"*.png"}, QDir::Files)) {
        if (!written.contains(file) && !QFile::remove(images.filePath(file))) {
            return QStringLiteral("the old image %1 cannot be removed").arg(file);
        }
    }
    return writeIfChanged(folder + "/Assets.json", manifest(bundle, drawings));
}

} // namespace artwork
