#include "platform/gpu/gpu_error.hpp"
#include "platform/testing/test_cells.hpp"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(ShaderLibrary, IsMissing) {
    const QTemporaryDir directory;
    const Bundle bundle(QDir(directory.path()));
    EXPECT_THROW(ShaderLibrary{bundle}, GpuError);
}

TEST(ShaderLibrary, TellsMissingFunctionsFromBrokenOnes) {
    const QTemporaryDir directory;
    ASSERT_TRUE(QDir(directory.path()).mkdir(QStringLiteral("Shaders")));
    const ShaderLibrary library(Bundle(QDir(directory.path())));
    EXPECT_FALSE(library.function(QStringLiteral("function")));

    QFile intact(QStringLiteral(GPU_TEST_BUNDLE "/Shaders/cells.qsb"));
    ASSERT_TRUE(intact.open(QIODevice::ReadOnly));
    const QByteArray bytes = intact.readAll();
    std::vector<QByteArray> broken{{}, "garbage", QByteArray(5000, '\xff'), bytes.mid(20)};
    for (const double part : {0.001, 0.1, 0.5, 0.99}) {
        broken.push_back(bytes.left(static_cast<qsizetype>(part * double(bytes.size()))));
    }
    for (const QByteArray& content : broken) {
        QFile file(directory.filePath(QStringLiteral("Shaders/function.qsb")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        file.close();
        EXPECT_THROW((void)library.function(QStringLiteral("function")), GpuError)
            << content.size() << " bytes";
    }
    EXPECT_TRUE(testing::testLibrary().function(QStringLiteral("cells")));
}

} // namespace
} // namespace platform
