#include "platform/assets/bundle.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <dlfcn.h>
#include <gmock/gmock.h>

namespace platform {
namespace {

const char anchor = 0;

void write(const QString& path, const QByteArray& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text);
}

TEST(BundleLookup, TriesResourcesThenTheModulesPlaceThenTheProgramsOwnFolder) {
    const QString program = QCoreApplication::applicationDirPath();
    // The build makes this folder, as an installation would.
    const QString resources =
        QDir::cleanPath(program + QStringLiteral("/../share/platform_assets_test"));
    const auto paths = [](const std::vector<QDir>& candidates) {
        QStringList result;
        for (const QDir& candidate : candidates) {
            result.append(candidate.absolutePath());
        }
        return result;
    };
    EXPECT_EQ(Bundle::main().resourceDirectory().absolutePath(), resources);
    EXPECT_EQ(paths(moduleBundleCandidates(&anchor)), QStringList({resources, resources, program}));

    // Code of a shared library that stands elsewhere.
    void* const foreign = dlsym(RTLD_DEFAULT, "qVersion");
    Dl_info library{};
    ASSERT_NE(dladdr(foreign, &library), 0);
    const QString place =
        QFileInfo(QFileInfo(QString::fromLocal8Bit(library.dli_fname)).canonicalFilePath()).path();
    EXPECT_EQ(paths(moduleBundleCandidates(foreign)), QStringList({resources, place, program}));
}

TEST(BundleLookup, TakesTheFirstCandidateThatHasTheBundle) {
    const QTemporaryDir root;
    const std::vector<QDir> candidates{root.filePath("absent"), root.filePath("a"),
                                       root.filePath("b"), root.filePath("c")};
    EXPECT_EQ(openBundle("M_M", candidates), nullptr);
    write(root.filePath("a/M_M.bundle"), "a file, no bundle");
    const auto found = [&] {
        const auto bundle = openBundle("M_M", candidates);
        return bundle == nullptr ? QString() : bundle->information("place");
    };
    for (const QString place : {"c", "b"}) {
        write(root.filePath(place + "/M_M.bundle/Info.json"),
              "{\"place\": \"" + place.toUtf8() + "\"}");
        EXPECT_EQ(found(), place);
    }
    QFile::remove(root.filePath("a/M_M.bundle"));
    write(root.filePath("a/M_M.bundle/Info.json"), R"({"place": "a", "number": 1, "null": null})");
    EXPECT_EQ(found(), "a");
    EXPECT_EQ(openBundle("M_M", candidates)->information("number"), QString());
}

TEST(BundleLookupDeathTest, NamesTheBundleThatStandsNowhere) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        findModuleBundle("Missing_Missing", &anchor, "there/resource_bundle_accessor.cpp", 7),
        testing::EndsWith("there/resource_bundle_accessor.cpp:7: Fatal error: "
                          "unable to find bundle named Missing_Missing\n"));
}

} // namespace
} // namespace platform
