#include "platform/system/files.hpp"
#include "platform/system/process.hpp"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <cerrno>
#include <fstream>

namespace platform {
namespace {

namespace fs = std::filesystem;

class Files : public ::testing::Test {
  protected:
    Files() {
        std::string pattern = (fs::temp_directory_path() / "larkvox-files-XXXXXX").string();
        path = mkdtemp(pattern.data());
        fs::create_directories(path / "outside");
        std::ofstream(path / "outside/precious") << "precious";
        folder = openFolder(path);
    }
    ~Files() override { fs::remove_all(path); }

    fs::path path;
    Descriptor folder;
};

TEST_F(Files, AreRemovedWithEverythingInThemAndNothingElse) {
    for (const char* const kind : {"tree", "link", "file", "nothing"}) {
        const std::string what = kind;
        if (what == "tree") {
            fs::create_directories(path / "old/a/b/c");
            std::ofstream(path / "old/a/file") << "x";
            fs::create_directory_symlink(path / "outside", path / "old/a/b/link");
            fs::create_hard_link(path / "outside/precious", path / "old/hard");
        } else if (what == "link") {
            fs::create_directory_symlink(path / "outside", path / "old");
        } else if (what == "file") {
            std::ofstream(path / "old") << "x";
        }
        EXPECT_EQ(removeTree(folder.get(), "old"), 0) << kind;
        EXPECT_FALSE(fs::exists(fs::symlink_status(path / "old"))) << kind;
        EXPECT_EQ(contentOf(openFolder(path / "outside").get(), "precious", 100), "precious");
    }
}

TEST_F(Files, AreReplacedWholeAndNotThroughLinks) {
    const mode_t before = umask(077);
    EXPECT_EQ(replaceFile(folder.get(), "new", "one", 0644), 0);
    EXPECT_EQ(makeFolder(folder.get(), "made"), 0);
    umask(before);
    EXPECT_EQ(fs::status(path / "new").permissions(), fs::perms(0644));
    EXPECT_EQ(fs::status(path / "made").permissions(), fs::perms(0755));
    // Somebody has put links where the file and its unfinished form go.
    fs::remove(path / "new");
    for (const std::string& name : {std::string("new"), unfinishedName("new")}) {
        fs::create_symlink(path / "outside/precious", path / name);
    }
    EXPECT_EQ(contentOf(folder.get(), "new", 100), "");
    EXPECT_EQ(makeFile(folder.get(), "new", 0644).get(), -1);
    EXPECT_EQ(openLockFile(folder.get(), "new").get(), -1);
    EXPECT_EQ(replaceFile(folder.get(), "new", "two", 0644), 0);
    EXPECT_EQ(contentOf(folder.get(), "new", 100), "two");
    EXPECT_EQ(contentOf(folder.get(), "new", 2), "") << "longer than it may be";
    fs::create_directory_symlink(path / "outside", path / "link");
    EXPECT_FALSE(openFolder(folder.get(), "link"));
    EXPECT_FALSE(openFolder(path / "link"));
    EXPECT_EQ(contentOf(openFolder(path / "outside").get(), "precious", 100), "precious");
}

TEST_F(Files, AreLockedByTheirOwnerAlone) {
    const Descriptor first = openLockFile(folder.get(), "lock");
    ASSERT_TRUE(first);
    EXPECT_TRUE(isPrivate(first.get()));
    const Descriptor second = openLockFile(folder.get(), "lock");
    EXPECT_EQ(lock(first.get(), Sharing::shared), 0);
    EXPECT_EQ(lock(second.get(), Sharing::shared), 0);
    EXPECT_EQ(lock(second.get(), Sharing::exclusive), EWOULDBLOCK);
}

TEST(Process, HandsItsArgumentsOnByteForByte) {
    char pattern[] = "/tmp/larkvox-process-XXXXXX";
    const fs::path folder = mkdtemp(pattern);
    const std::string script = "printf '<%s>' \"$@\" >" + (folder / "new").string() + "; mv " +
                               (folder / "new").string() + ' ' + (folder / "said").string();
    EXPECT_TRUE(startProgram("/bin/sh", {"-c", script, "sh", "-platform", "a b", "", "\xff\xfe"}));
    for (int i = 0; i < 500 && !fs::exists(folder / "said"); ++i) {
        timespec hundredth{0, 10'000'000};
        nanosleep(&hundredth, nullptr);
    }
    EXPECT_EQ(contentOf(openFolder(folder).get(), "said", 100), "<-platform><a b><><\xff\xfe>");
    EXPECT_FALSE(startProgram(folder / "none", {}));
    fs::remove_all(folder);
    EXPECT_EQ(fs::canonical(programFile()).filename(), "platform_system_test");
    EXPECT_EQ(programArguments().size(), ::testing::internal::GetArgvs().size() - 1);
}

} // namespace
} // namespace platform
