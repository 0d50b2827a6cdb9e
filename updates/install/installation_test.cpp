// Installations from the outside: who manages them, how they start, what they keep.
#include "updates/install/installation.hpp"
#include "updates/testing/install_testing.hpp"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <memory>

namespace updates::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::Optional;

const InstallMessage installed110 = InstallDone{"1.1.0"};

TEST(InstallProtocol, ReadsBackWhatItWrites) {
    const InstallRequest request{"/some where", 7, 12345678901, "c2ln", "1.1.0", "1.0.0"};
    const auto arguments = installArguments(request);
    std::vector<const char*> pointers;
    for (const auto& argument : arguments) {
        pointers.push_back(argument.c_str());
    }
    EXPECT_EQ(readInstallArguments(pointers), request);
    for (std::size_t missing = 0; missing < pointers.size(); ++missing) {
        auto fewer = pointers;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(missing));
        EXPECT_FALSE(readInstallArguments(fewer));
    }
    for (const auto& [at, nonsense] : std::initializer_list<std::pair<std::size_t, const char*>>{
             {0, "some/where"}, {1, "-1"}, {1, "x"}, {2, "12 "}, {4, ""}, {5, ""}}) {
        auto other = pointers;
        other[at] = nonsense;
        EXPECT_FALSE(readInstallArguments(other)) << at << nonsense;
    }
    pointers.push_back("more");
    EXPECT_FALSE(readInstallArguments(pointers));
    for (const InstallMessage& message : std::initializer_list<InstallMessage>{
             InstallVerifying{}, InstallProgress{3, 4}, InstallReady{}, InstallDone{"1.1.0"},
             Refusal{UpdateProblem::noSpace, "writing: \"full\"\n"}, Refusal{}}) {
        EXPECT_EQ(readInstallLine(installLine(message)), message);
        EXPECT_EQ(installLine(message).find('\n'), std::string::npos);
    }
    for (const char* const nonsense :
         {"", "ready", "{}", "[]", R"({"is":1})", R"({"is":"ready")", R"({"is":"over"})",
          R"({"is":"unpacking","done":5,"total":4})", R"({"is":"unpacking","done":-1,"total":4})",
          R"({"is":"installed"})", R"({"is":"refused","problem":1000,"detail":""})",
          R"({"is":"refused","problem":-1,"detail":""})"}) {
        EXPECT_FALSE(readInstallLine(nonsense)) << nonsense;
    }
}

TEST(Installation, KnowsWhoManagesIt) {
    const InstalledCopy copy;
    const fs::path place = copy.root().parent_path();
    const fs::path program = copy.root() / "versions/1.0.0/bin/larkvox";
    const SystemPlaces none{place / "none", place / "none"};

    auto found = examineInstallation(program, none);
    EXPECT_EQ(found.management, Management::itself);
    EXPECT_EQ(found.root, copy.root());
    EXPECT_EQ(found.runningVersion, "1.0.0");
    EXPECT_EQ(found.highestInstalledVersion, "1.0.0");
    EXPECT_EQ(launcher(found), copy.launcher());
    fs::create_symlink(copy.root(), place / "link");
    EXPECT_EQ(examineInstallation(place / "link/versions/1.0.0/bin/larkvox", none).root,
              copy.root());

    const fs::path lists = place / "lists";
    fs::create_directory(lists);
    std::ofstream(lists / "other.list") << "/.\n" << program.string() << "-not\n";
    EXPECT_EQ(examineInstallation(program, {lists, place / "none"}).management, Management::itself);
    std::ofstream(lists / "larkvox:amd64.list") << "/.\n" << program.string() << '\n';
    found = examineInstallation(program, {lists, place / "none"});
    EXPECT_EQ(found.management, Management::dpkg);
    EXPECT_EQ(found.packageName, "larkvox");

    std::ofstream(place / "flatpak-info") << "[Application]\nname=example.fennick.larkvox\n";
    found = examineInstallation(program, {lists, place / "flatpak-info"});
    EXPECT_EQ(found.management, Management::flatpak);
    EXPECT_EQ(found.packageName, "example.fennick.larkvox");

    // Removed or moved to another disk while it runs.
    found = examineInstallation(place / "nowhere", none);
    EXPECT_EQ(found.management, Management::gone);

    // The same program in no such folder, as when it was just built.
    fs::create_directory(place / "build");
    fs::copy_file(program, place / "build/larkvox");
    found = examineInstallation(place / "build/larkvox", none);
    EXPECT_EQ(found.management, Management::nobody);
    EXPECT_TRUE(launcher(found).empty());
    fs::remove(copy.root() / "versions/1.0.0/manifest.json");
    EXPECT_EQ(examineInstallation(program, none).management, Management::nobody);
}

TEST(Installation, IsReadOnlyForWhoMayNotWrite) {
    const InstalledCopy copy;
    const fs::path program = copy.root() / "versions/1.0.0/bin/larkvox";
    const bool isRoot = geteuid() == 0; // root may write everywhere
    if (isRoot) {
        ASSERT_EQ(seteuid(65534), 0);
    } else {
        fs::permissions(copy.root() / "versions", fs::perms(0555));
    }
    const Installation found = examineInstallation(program, {"/nowhere", "/nowhere"});
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    fs::permissions(copy.root() / "versions", fs::perms(0755));
    EXPECT_EQ(found.management, Management::readOnly);
    EXPECT_EQ(found.root, copy.root());
}

TEST(Update, StartsTheNewVersionWithItsArguments) {
    const InstalledCopy copy;
    EXPECT_EQ(runProgram({copy.launcher(), "a b", ""}).output, "1.0.0 [a b] []\n");
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()), Packing::xz);
    HelperRun helper(goodRequest(copy, archive, "1.1.0"), archive);
    ASSERT_TRUE(helper.waitUntilReady());
    EXPECT_EQ(helper.said().front(), InstallMessage(InstallVerifying{}));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.0.0\n") << "not before it is asked for";
    EXPECT_THAT(helper.install(), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher(), "--flag", "$x"}).output, "1.1.0 [--flag] [$x]\n");
    // Through a link, as from a folder of programs.
    fs::create_symlink(copy.launcher(), copy.root().parent_path() / "larkvox");
    EXPECT_EQ(runProgram({copy.root().parent_path() / "larkvox"}).output, "1.1.0\n");
    EXPECT_THAT(copy.versions(), ElementsAre("1.0.0", "1.1.0"));
}

TEST(Update, KeepsThePreviousVersionAndThoseThatRun) {
    const InstalledCopy copy;
    Child old({copy.launcher(), "--stay"});
    EXPECT_THAT(old.readLine(), Optional(std::string("1.0.0 [--stay]")));
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    ASSERT_TRUE(installUpdate(copy, "1.2.0"));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.2.0\n");
    EXPECT_THAT(copy.versions(), ElementsAre("1.0.0", "1.1.0", "1.2.0")) << "1.0.0 is running";
    EXPECT_EQ(old.finish(), 0);
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.2.0\n");
    EXPECT_THAT(copy.versions(), ElementsAre("1.1.0", "1.2.0"));
}

TEST(Update, ThatDoesNotComeUpTwiceGivesWayToThePreviousVersion) {
    const InstalledCopy copy;
    ASSERT_THAT(installUpdate(copy, "1.1.0", brokenProgram()), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).code, 3);
    EXPECT_EQ(runProgram({copy.launcher()}).code, 3);
    EXPECT_EQ(runProgram({copy.launcher(), "again"}).output, "1.0.0 [again]\n");
    EXPECT_EQ(copy.current(), "versions/1.0.0");
    EXPECT_THAT(copy.versions(), ElementsAre("1.0.0"));

    const auto found =
        examineInstallation(copy.root() / "versions/1.0.0/bin/larkvox", {"/nowhere", "/nowhere"});
    EXPECT_EQ(found.failedVersion, "1.1.0");
    EXPECT_EQ(found.highestInstalledVersion, "1.1.0");
    EXPECT_THAT(faultOf(installUpdate(copy, "1.0.9")), Optional(UpdateProblem::notNewer));
    // It may be tried again, and then it may be mended.
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    EXPECT_EQ(copy.current(), "versions/1.1.0");
}

TEST(Update, IsNotTakenBackForStartsThatFindNoScreen) {
    const InstalledCopy copy;
    ASSERT_THAT(installUpdate(copy, "1.1.0", brokenProgram()), Optional(installed110));
    const std::string launcher = copy.launcher();
    const std::vector<std::string> nowhere[] = {
        {"env", "-u", "QT_QPA_PLATFORM", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", launcher},
        {"env", "-u", "QT_QPA_PLATFORM", "-u", "WAYLAND_DISPLAY", "DISPLAY=:987", launcher},
        {"env", "-u", "QT_QPA_PLATFORM", "-u", "DISPLAY", "WAYLAND_DISPLAY=none", launcher}};
    for (const auto& command : nowhere) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(runProgram(command).code, 3);
        }
    }
    EXPECT_EQ(runProgram({launcher}).code, 3);
    EXPECT_EQ(runProgram({launcher}).code, 3);
    EXPECT_EQ(runProgram({launcher}).output, "1.0.0\n") << "these two found one";
}

TEST(Update, IsForEverybodyWhateverTheUmask) {
    const InstalledCopy copy;
    const mode_t before = umask(077);
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    umask(before);
    for (const auto& entry : fs::recursive_directory_iterator(copy.root())) {
        const fs::path& path = entry.path();
        const bool isOwners = path.extension() == ".lock" || path.filename() == "reserve";
        const bool isProgram =
            entry.is_directory() || path.filename().string().starts_with("larkvox");
        EXPECT_EQ(entry.is_symlink() ? 0 : static_cast<unsigned>(entry.status().permissions()),
                  entry.is_symlink()                              ? 0U
                  : isOwners                                      ? 0600U
                  : isProgram && path.filename() != "larkvox.txt" ? 0755U
                                                                  : 0644U)
            << path;
    }
}

TEST(Update, ByRootBelongsToTheOwnerOfTheFolder) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can be somebody else";
    }
    const InstalledCopy copy;
    constexpr uid_t owner = 65534;
    const fs::path place = copy.root().parent_path();
    ASSERT_EQ(runProgram({"chown", "-R", std::to_string(owner), copy.root()}).code, 0);
    fs::create_directory(place / "outside");
    std::ofstream(place / "outside/precious") << "precious";
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    for (const auto& entry : fs::recursive_directory_iterator(copy.root())) {
        struct stat status {};
        ASSERT_EQ(lstat(entry.path().c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, owner) << entry.path();
    }
    // They go on by themselves, whoever starts it in between.
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    const auto archive = makeArchive(goodUpdate("1.2.0", workingProgram()));
    auto request = goodRequest(copy, archive, "1.2.0");
    request.installed = "1.1.0";
    EXPECT_THAT(HelperRun(request, archive, {}, owner).install(),
                Optional(InstallMessage(InstallDone{"1.2.0"})));
}

TEST(Update, CannotBeHeldUpByWhoMayOnlyRead) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can be somebody else";
    }
    const InstalledCopy copy;
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    ASSERT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    // Whatever they can open of it they lock.
    Child reader({"setpriv", "--reuid=65534", "--clear-groups", "bash", "-c",
                  "for file in $0 $0/* $0/state/*; do { exec {lock}<$file && flock -n $lock; } "
                  "2>/dev/null; done; echo locked; read line",
                  copy.root()});
    ASSERT_THAT(reader.readLine(), Optional(std::string("locked")));
    EXPECT_THAT(installUpdate(copy, "1.2.0"), Optional(InstallMessage(InstallDone{"1.2.0"})));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.2.0\n");
}

TEST(Update, ThatIsBrokenGivesWayOnAFullDisk) {
    const InstalledCopy copy;
    const fs::path disk = copy.root().parent_path() / "disk";
    fs::create_directory(disk);
    if (runProgram({"mount", "-t", "tmpfs", "-o", "size=256m", "tmpfs", disk}).code != 0) {
        GTEST_SKIP() << "no file system of its own";
    }
    {
        const InstalledCopy onDisk(disk);
        EXPECT_THAT(installUpdate(onDisk, "1.1.0", brokenProgram()), Optional(installed110));
        std::ofstream filler(disk / "filler");
        while (filler << std::string(4096, 'x') << std::flush) {
        }
        EXPECT_EQ(runProgram({onDisk.launcher()}).code, 3);
        EXPECT_EQ(runProgram({onDisk.launcher()}).code, 3);
        EXPECT_EQ(runProgram({onDisk.launcher()}).output, "1.0.0\n");
    }
    EXPECT_EQ(runProgram({"umount", disk}).code, 0);
}

TEST(Update, ThatCameUpIsNoLongerOnTrial) {
    const InstalledCopy copy;
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    std::ofstream(copy.root() / "versions/1.1.0/bin/larkvox") << brokenProgram();
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(runProgram({copy.launcher()}).code, 3) << "what came up once stays";
    }
}

TEST(Update, ThatCannotBeStartedAtAllGivesWayAtOnce) {
    const InstalledCopy copy;
    ASSERT_THAT(installUpdate(copy, "1.1.0", "#!/no/such/interpreter\n"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.0.0\n");
}

TEST(Update, ThatIsStillComingUpHasNotFailed) {
    const InstalledCopy copy;
    // Comes up, but takes its time and has not confirmed itself.
    ASSERT_THAT(installUpdate(copy, "1.1.0", "#!/bin/sh\necho up\nread line\n"),
                Optional(installed110));
    std::vector<std::unique_ptr<Child>> starts;
    for (int i = 0; i < 4; ++i) {
        starts.push_back(std::make_unique<Child>(std::vector<std::string>{copy.launcher()}));
        EXPECT_THAT(starts.back()->readLine(), Optional(std::string("up"))) << i;
    }
    EXPECT_EQ(copy.current(), "versions/1.1.0");
}

TEST(Launcher, SaysWhenThereIsNothingToStart) {
    const InstalledCopy copy;
    fs::remove(copy.root() / "current");
    EXPECT_EQ(runProgram({copy.launcher()}).code, 127);
    fs::create_symlink("../outside", copy.root() / "current");
    EXPECT_EQ(runProgram({copy.launcher()}).code, 127);
}

} // namespace
} // namespace updates::testing
