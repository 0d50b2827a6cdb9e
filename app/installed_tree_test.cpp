#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace larkvox {
namespace {

/// What the program says within its first seconds, when it ends; nothing while it lives on.
QByteArray lastWordsOf(const QString& program) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    process.setProcessEnvironment(environment);
    process.start(program, {});
    if (!process.waitForStarted()) {
        return "does not start";
    }
    if (process.waitForFinished(2500)) {
        return process.readAllStandardError() + "(ended)";
    }
    process.kill();
    process.waitForFinished();
    return {};
}

TEST(InstalledTree, FindsItsBundlesWhereverItIsMoved) {
    const QTemporaryDir place;
    const QString first = place.filePath("first");
    QProcess install;
    install.start(CMAKE_PROGRAM, {"--install", BUILD_FOLDER, "--prefix", first});
    ASSERT_TRUE(install.waitForFinished());
    ASSERT_EQ(install.exitCode(), 0) << install.readAllStandardError().toStdString();
    QFile::remove(BUILD_FOLDER "/install_manifest.txt"); // that was no installation of the user's
    EXPECT_EQ(lastWordsOf(first + "/bin/larkvox").toStdString(), "");

    const QString moved = place.filePath("some where/else");
    ASSERT_TRUE(QDir().mkpath(place.filePath("some where")));
    ASSERT_TRUE(QDir().rename(first, moved));
    EXPECT_EQ(lastWordsOf(moved + "/bin/larkvox").toStdString(), "");

    // The same tree without one of its bundles, so it was this tree that it used.
    for (const QString name : {"Fernhorn_Fernhorn", "Driftwood_Driftwood"}) {
        const QString bundle = moved + "/share/larkvox/" + name + ".bundle";
        ASSERT_TRUE(QDir().rename(bundle, moved + "/aside"));
        EXPECT_THAT(lastWordsOf(moved + "/bin/larkvox").toStdString(),
                    testing::ContainsRegex("resource_bundle_accessor\\.cpp:[0-9]+: Fatal error: "
                                           "unable to find bundle named " +
                                           name.toStdString() + "\n"));
        ASSERT_TRUE(QDir().rename(moved + "/aside", bundle));
    }
}

} // namespace
} // namespace larkvox
