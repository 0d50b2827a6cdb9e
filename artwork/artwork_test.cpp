#include "artwork/bundle_writer.hpp"
#include "artwork/canvas.hpp"
#include "artwork/catalogue.hpp"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRawFont>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

namespace artwork {
namespace {

const QString fonts = ARTWORK_FONTS;

QString builtBundle(const QString& name) {
    return name == "Larkvox" ? QString(ARTWORK_APPLICATION_RESOURCES)
                             : QStringLiteral(ARTWORK_BUNDLES "/%1.bundle").arg(name);
}

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const auto path = it.next();
        files[path.mid(folder.size())] = contentsOf(path);
    }
    return files;
}

QJsonObject manifestOf(const QString& folder) {
    return QJsonDocument::fromJson(contentsOf(folder + "/Assets.json")).object();
}

Drawing square(const QString& name) {
    return {.bundle = "B", .name = name, .size = {4, 4}, .scales = {1}, .draw = [](Canvas& canvas) {
                canvas.painter().fillRect(QRectF(0, 0, 4, 4), Qt::white);
            }};
}

TEST(Baking, GivesTheSameBytesInAnotherProcess) {
    for (const QString bundle :
         {"Larkvox", "Driftwood_Driftwood", "KestrelShaders_KestrelShaders"}) {
        const QTemporaryDir again;
        const auto drawings = drawingsOf(bundle, fonts);
        ASSERT_FALSE(drawings.empty());
        ASSERT_EQ(writeBundle(bundle, drawings, again.path()), "");
        const auto images = filesBelow(again.filePath("Images"));
        EXPECT_EQ(images, filesBelow(builtBundle(bundle) + "/Images"));
        EXPECT_EQ(contentsOf(again.filePath("Assets.json")),
                  contentsOf(builtBundle(bundle) + "/Assets.json"));
    }
}

TEST(Baking, LeavesUnchangedFilesAloneAndRemovesOldImages) {
    const QTemporaryDir folder;
    ASSERT_EQ(writeBundle("B", {square("kept"), square("old/one")}, folder.path()), "");
    EXPECT_TRUE(QFile::exists(folder.filePath("Images/old-one@1x.png")));
    QFile kept(folder.filePath("Images/kept@1x.png"));
    const auto longAgo = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    ASSERT_TRUE(kept.open(QIODevice::ReadWrite));
    ASSERT_TRUE(kept.setFileTime(longAgo, QFileDevice::FileModificationTime));
    kept.close();

    ASSERT_EQ(writeBundle("B", {square("kept")}, folder.path()), "");
    EXPECT_EQ(QFileInfo(kept).lastModified(), longAgo);
    EXPECT_FALSE(QFile::exists(folder.filePath("Images/old-one@1x.png")));
    EXPECT_EQ(manifestOf(folder.path())["images"].toObject().keys(), QStringList{"kept"});
}

TEST(Baking, RefusesTwoNamesForOneFileAndAFolderItCannotWrite) {
    const QTemporaryDir folder;
    EXPECT_NE(writeBundle("B", {square("a/b"), square("a-b")}, folder.path()), "");
    EXPECT_NE(writeBundle("B", {square("a")}, "/dev/null/nowhere"), "");
}

TEST(Manifest, DescribesExactlyTheImagesThatAreThere) {
    for (const QString bundle :
         {"Larkvox", "Driftwood_Driftwood", "Fernhorn_Fernhorn", "KestrelShaders_KestrelShaders"}) {
        const QDir folder(builtBundle(bundle));
        const auto images = manifestOf(folder.path())["images"].toObject();
        EXPECT_FALSE(images.isEmpty());
        for (auto it = images.begin(); it != images.end(); ++it) {
            SCOPED_TRACE(it.key().toStdString());
            const auto image = it->toObject();
            const double width = image["size"][0].toDouble();
            const double height = image["size"][1].toDouble();
            const auto caps = image["capInsets"].toArray();
            EXPECT_LT(caps[0].toDouble() + caps[2].toDouble(), height);
            EXPECT_LT(caps[1].toDouble() + caps[3].toDouble(), width);
            const auto variants = image["variants"].toObject();
            EXPECT_FALSE(variants.isEmpty());
            for (auto variant = variants.begin(); variant != variants.end(); ++variant) {
                const int scale = variant.key().toInt();
                // Decoded from bytes: a file name with @2x would change what is reported.
                const auto pixels =
                    QImage::fromData(contentsOf(folder.filePath(variant->toString())));
                EXPECT_EQ(pixels.width(), width * scale);
                EXPECT_EQ(pixels.height(), height * scale);
                for (const auto cap : caps) {
                    EXPECT_EQ(std::fmod(cap.toDouble() * scale, 1), 0) << "cap within a pixel";
                }
            }
        }
    }
}

TEST(Manifest, ResizableImagesAreEvenInsideTheirCaps) {
    for (const auto& drawing : allDrawings(fonts)) {
        if (drawing.resizing != Resizing::stretch) {
            continue;
        }
        for (const int scale : drawing.scales) {
            const auto image = bake(drawing, scale);
            const int left = static_cast<int>(drawing.capInsets.left * scale);
            const int right = image.width() - static_cast<int>(drawing.capInsets.right * scale);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = left; x < right; ++x) {
                    ASSERT_EQ(image.pixel(x, y), image.pixel(left, y))
                        << drawing.name.toStdString() << " at " << scale << "x, row " << y;
                }
            }
        }
    }
}

TEST(Faces, AreFoundUnderTheirExactNames) {
    QStringList names;
    for (const QString bundle : {"Fernhorn_Fernhorn", "Driftwood_Driftwood"}) {
        const auto folder = builtBundle(bundle) + '/';
        const auto manifest = manifestOf(folder);
        for (const auto file : manifest["fonts"].toArray()) {
            ASSERT_GE(QFontDatabase::addApplicationFont(folder + file.toString()), 0)
                << file.toString().toStdString();
        }
        const auto faces = manifest["faces"].toObject();
        for (auto it = faces.begin(); it != faces.end(); ++it) {
            SCOPED_TRACE(it.key().toStdString());
            names << it.key();
            const auto face = it->toObject();
            QFont font(face["family"].toString(), 40);
            font.setWeight(static_cast<QFont::Weight>(face["weight"].toInt()));
            const auto found = QRawFont::fromFont(font);
            const QRawFont wanted(folder + face["file"].toString(), 40);
            ASSERT_TRUE(wanted.isValid());
            EXPECT_EQ(found.familyName(), face["family"].toString());
            EXPECT_EQ(found.styleName(), face["style"].toString());
            EXPECT_EQ(found.fontTable("hmtx"), wanted.fontTable("hmtx")) << "another face";
            EXPECT_EQ(found.weight(), face["weight"].toInt());
        }
    }
    EXPECT_THAT(names,
                testing::UnorderedElementsAre("Rocket", "Dosis-Light", "Dosis-Medium",
                                              "FennickRounded-Medium", "FennickRounded-Bold"));
    EXPECT_TRUE(QFontDatabase::hasFamily("Rocket"));
    EXPECT_TRUE(QFontDatabase::hasFamily("Fennick Rounded"));
}

TEST(Faces, CoverLatin1AndCarryTheirNewNamesOnly) {
    struct Renamed {
        QString file;
        QString original;
    };
    for (const auto& [file, original] : {Renamed{"Rocket.otf", "Jura-SemiBold"},
                                         Renamed{"FennickRounded-Medium.ttf", "Quicksand-"},
                                         Renamed{"FennickRounded-Bold.ttf", "Quicksand-"}}) {
        SCOPED_TRACE(file.toStdString());
        const QRawFont font(fonts + "/" + file, 40);
        ASSERT_TRUE(font.isValid());
        for (char32_t c = 0x20; c <= 0xff; c += c == 0x7e ? 0x22 : 1) {
            EXPECT_TRUE(font.supportsCharacter(static_cast<uint>(c))) << static_cast<uint>(c);
        }
        for (const char* table : {"name", "CFF "}) {
            auto bytes = font.fontTable(table);
            EXPECT_FALSE(bytes.contains(original.toLatin1()));
            bytes.removeIf([](char c) { return c == 0; }); // UTF-16 to something readable
            EXPECT_FALSE(bytes.contains(original.toLatin1()));
        }
    }
}

} // namespace
} // namespace artwork

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
