// Installations from the outside: who manages them, how they start, what they keep.
#include "platform/updates/install/install_testing.hpp"
#include "platform/updates/install/installation.hpp"

#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>
#include <memory>

namespace platform::testing {
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
    auto twice = pointers;
    twice.insert(twice.end(), {"--version", "2.0"});
    EXPECT_FALSE(readInstallArguments(twice));
    for (const InstallMessage& message : std::initializer_list<InstallMessage>{
             InstallVerifying{}, InstallProgress{3, 4}, InstallReady{}, InstallDone{"1.1.0"},
             InstallRefused{InstallFault::noSpace, "writing: full"}, InstallRefused{}}) {
        EXPECT_EQ(readInstallLine(installLine(message)), message);
    }
    for (int fault = 0; fault <= static_cast<int>(InstallFault::cannotUpdate); ++fault) {
        EXPECT_EQ(installFaultNamed(wireName(static_cast<InstallFault>(fault))),
                  static_cast<InstallFault>(fault));
    }
    for (const char* const nonsense : {"", "ready now", "progress 1", "progress 5 4",
                                       "progress -1 4", "installed", "refused", "refused so"}) {
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
    EXPECT_THAT(faultOf(installUpdate(copy, "1.0.9")), Optional(InstallFault::notNewer));
    // It may be tried again, and then it may be mended.
    ASSERT_THAT(installUpdate(copy, "1.1.0"), Optional(installed110));
    EXPECT_EQ(runProgram({copy.launcher()}).output, "1.1.0\n");
    EXPECT_EQ(copy.current(), "versions/1.1.0");
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
} // namespace platform::testing
