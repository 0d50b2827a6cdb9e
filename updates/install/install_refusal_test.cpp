// Everything that the helper must refuse, with the real helper and real, signed archives.
#include "updates/testing/install_testing.hpp"
#include "updates/testing/test_key.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include <fstream>
#include <functional>

namespace updates::testing {
namespace {

namespace fs = std::filesystem;
using Type = MadeEntry::Type;
using ::testing::Optional;

constexpr uid_t nobody = 65534;
const std::string newFolder = "Larkvox/versions/1.1.0/";

struct Row {
    const char* what;
    std::function<std::vector<MadeEntry>()> entries;
    UpdateProblem fault = UpdateProblem::archiveUnsafe;
    Packing packing = Packing::plain;
};

std::function<std::vector<MadeEntry>()> with(std::vector<MadeEntry> more) {
    return [more] { return updateWith("1.1.0", more); };
}

/// A good update whose manifest says something else.
std::function<std::vector<MadeEntry>()> saying(std::function<void(ArchiveManifest&)> change) {
    return [change] {
        auto entries = goodUpdate("1.1.0", workingProgram());
        ArchiveManifest manifest = goodManifest("1.1.0");
        change(manifest);
        entries[7].content = archiveManifestText(manifest);
        return entries;
    };
}

/// A good update with one entry changed.
std::function<std::vector<MadeEntry>()> changing(std::size_t index,
                                                 std::function<void(MadeEntry&)> change) {
    return [index, change] {
        auto entries = goodUpdate("1.1.0", workingProgram());
        change(entries[index]);
        return entries;
    };
}

/// A good update without the entries of a name.
std::function<std::vector<MadeEntry>()> without(std::string name) {
    return [name] {
        auto entries = goodUpdate("1.1.0", workingProgram());
        std::erase_if(entries, [&](const auto& entry) { return entry.name.ends_with(name); });
        return entries;
    };
}

std::vector<MadeEntry> aMillionFiles() {
    auto entries = goodUpdate("1.1.0", workingProgram());
    for (int i = 0; i < 1000000; ++i) {
        entries.push_back({newFolder + "share/" + std::to_string(i), Type::file, {}});
    }
    return entries;
}

const std::vector<Row>& rows() {
    using enum UpdateProblem;
    static const std::vector<Row> all{
        {"parent folders", with({{newFolder + "share/../../../../outside/new"}})},
        {"parent folder at the end", with({{newFolder + "share/..", Type::folder}})},
        {"parent folder first", with({{"../outside/new"}})},
        {"dots", with({{newFolder + "./new"}})},
        {"absolute name", with({{"/tmp/larkvox-evil"}})},
        {"double slash", with({{newFolder + "share//new"}})},
        {"backslash", with({{newFolder + "share\\new"}})},
        {"line break", with({{newFolder + "share/a\nb"}})},
        {"not UTF-8", with({{newFolder + "share/\xff\xfe"}})},
        {"letters that look like others", with({{newFolder + "share/\u0430"}})},
        {"long name", with({{newFolder + std::string(201, 'n')}})},
        {"another top folder", with({{"Other", Type::folder}})},
        {"a file beside the top folder", with({{"file"}})},
        {"something beside the versions", with({{"Larkvox/state", Type::folder}})},
        {"another version", with({{"Larkvox/versions/1.2.0", Type::folder}})},
        {"a file without its folder", with({{newFolder + "nowhere/new"}})},
        {"into a file", with({{newFolder + "bin/larkvox/new"}})},
        {"a link out", with({{newFolder + "out", Type::symbolicLink, "../../../outside"},
                             {newFolder + "out/new"}})},
        {"a folder of a link's name",
         with({{newFolder + "out", Type::symbolicLink, "../../../outside"},
               {newFolder + "out", Type::folder},
               {newFolder + "out/new"}})},
        {"an absolute link", with({{newFolder + "out", Type::symbolicLink, "/"}})},
        {"a link within", with({{newFolder + "in", Type::symbolicLink, "bin"}})},
        {"versions as a link",
         [] {
             return std::vector<MadeEntry>{{"Larkvox", Type::folder, {}},
                                           {"Larkvox/versions", Type::symbolicLink, "../outside"},
                                           {newFolder + "new"}};
         }},
        {"the pointer leads elsewhere",
         changing(2, [](auto& entry) { entry.content = "../outside"; })},
        {"a hard link out", with({{newFolder + "hard", Type::hardLink, "../outside/file"}})},
        {"a hard link within",
         with({{newFolder + "hard", Type::hardLink, newFolder + "bin/larkvox"}})},
        {"a device", with({{newFolder + "null", Type::device}})},
        {"a fifo", with({{newFolder + "fifo", Type::fifo}})},
        {"setuid", with({{newFolder + "bin/su", Type::file, "x", 04755}})},
        {"setgid", with({{newFolder + "bin/sg", Type::file, "x", 02755}})},
        {"sticky folder", with({{newFolder + "tmp", Type::folder, {}, 01777}})},
        {"a file twice", with({{newFolder + "bin/larkvox", Type::file, "other", 0755}})},
        {"a folder twice", with({{newFolder + "share", Type::folder}})},
        {"a second manifest", with({{newFolder + "manifest.json", Type::file, "{}"}})},
        {"a manifest without end", changing(7, [](auto& entry) { entry.zeros = 100000; }),
         archiveTooLarge},
        {"no manifest", without("manifest.json")},
        {"no program", without("bin/larkvox")},
        {"a program that cannot be run", changing(6, [](auto& entry) { entry.mode = 0644; })},
        {"no helper", without("libexec/larkvox-install")},
        {"a helper that cannot be run", changing(9, [](auto& entry) { entry.mode = 0644; })},
        {"no key", saying([](auto& manifest) { manifest.publicKey.clear(); })},
        {"something that is no key", saying([](auto& manifest) { manifest.publicKey[2] = '!'; })},
        {"another program's name", saying([](auto& manifest) { manifest.name = "otter"; })},
        {"another product of the maker's",
         [] {
             auto entries = goodUpdate("1.1.0", workingProgram());
             ArchiveManifest manifest = goodManifest("1.1.0");
             manifest.name = "otter";
             entries[6].name = newFolder + "bin/otter";
             entries[7].content = archiveManifestText(manifest);
             entries[9].name = newFolder + "libexec/otter-install";
             return entries;
         },
         otherProduct},
        {"compressed with gzip", with({}), archiveDamaged, Packing::gzip},
        {"a zip archive", with({}), archiveDamaged, Packing::zip},
        {"a 7z archive", with({}), archiveDamaged, Packing::sevenZip},
        {"a cpio archive", with({}), archiveDamaged, Packing::cpio},
        {"a program that is a folder", changing(6, [](auto& entry) { entry.type = Type::folder; })},
        {"nothing", [] { return std::vector<MadeEntry>{}; }},
        {"another product", saying([](auto& manifest) { manifest.product = "Otter"; }),
         otherProduct},
        {"another identifier", saying([](auto& manifest) { manifest.identifier += ".pro"; }),
         otherProduct},
        {"another platform", saying([](auto& manifest) { manifest.platform = "linux-z80"; }),
         otherPlatform},
        {"folder and manifest differ", saying([](auto& manifest) { manifest.version = "1.0.9"; })},
        {"genuine, but older than the item says",
         [] { return goodUpdate("1.0.5", workingProgram()); }, otherVersion},
        {"a million files", aMillionFiles, archiveTooLarge, Packing::xz},
        {"a bomb of a hundred times its size",
         with({{newFolder + "bomb", Type::file, {}, 0644, std::uint64_t{200} << 20}}),
         archiveTooLarge, Packing::xz},
        {"a bomb of many files",
         [] {
             auto entries = goodUpdate("1.1.0", workingProgram());
             for (int i = 0; i < 200; ++i) {
                 entries.push_back({newFolder + "share/" + std::to_string(i),
                                    Type::file,
                                    {},
                                    0644,
                                    std::uint64_t{1} << 19});
             }
             return entries;
         },
         archiveTooLarge, Packing::xz},
    };
    return all;
}

/// A copy with something precious beside it.
class InstallRefusal : public ::testing::Test {
  protected:
    InstallRefusal() {
        fs::create_directory(copy_.root().parent_path() / "outside");
        std::ofstream(copy_.root().parent_path() / "outside" / "file") << "precious";
        before_ = copy_.content();
    }
    void expectUntouched() const { EXPECT_EQ(copy_.content(), before_); }

    InstalledCopy copy_;
    std::map<std::string, std::string> before_;
};

TEST_F(InstallRefusal, OfArchivesThatHoldWhatNoUpdateHolds) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.what);
        const auto archive = makeArchive(row.entries(), row.packing);
        const auto said = HelperRun(goodRequest(copy_, archive, "1.1.0"), archive).install();
        EXPECT_THAT(faultOf(said), Optional(row.fault)) << (said ? installLine(*said) : "nothing");
        expectUntouched();
    }
    EXPECT_FALSE(fs::exists("/tmp/larkvox-evil"));
}

TEST_F(InstallRefusal, OfDamagedArchives) {
    auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()), Packing::xz);
    const std::string zip = "PK\x03\x04 something else";
    const auto* const bytes = reinterpret_cast<const std::byte*>(zip.data());
    for (const std::vector<std::byte>& damaged :
         {std::vector(archive.begin(), archive.end() - 40), std::vector(bytes, bytes + zip.size()),
          std::vector<std::byte>(5000, std::byte{0x5a})}) {
        const auto said = HelperRun(goodRequest(copy_, damaged, "1.1.0"), damaged).install();
        EXPECT_THAT(faultOf(said), Optional(UpdateProblem::archiveDamaged));
        expectUntouched();
    }
}

TEST_F(InstallRefusal, OfWhatTheFeedDoesNotVouchFor) {
    using enum UpdateProblem;
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    auto other = archive;
    other[other.size() / 2] ^= std::byte{1};
    const fs::path link = copy_.root().parent_path() / "link";
    fs::create_directory_symlink(copy_.root(), link);
    before_ = copy_.content();
    struct Case {
        const char* what;
        std::function<void(InstallRequest&)> change;
        UpdateProblem fault;
    };
    const Case cases[] = {
        {"no signature", [](auto& r) { r.signature.clear(); }, signatureMissing},
        {"half a signature", [](auto& r) { r.signature.resize(44); }, signatureWrong},
        {"signed twice", [](auto& r) { r.signature += r.signature; }, signatureWrong},
        {"of other bytes", [&](auto& r) { r.signature = testSignature(other); }, signatureWrong},
        {"shorter", [](auto& r) { ++r.length; }, wrongLength},
        {"longer", [](auto& r) { --r.length; }, wrongLength},
        {"the item lies", [](auto& r) { r.version = "1.2.0"; }, otherVersion},
        {"a version that is a path", [](auto& r) { r.version = "../../outside"; }, otherVersion},
        {"older", [](auto& r) { r.version = "0.9.0"; }, notNewer},
        {"not newer than who asks", [](auto& r) { r.installed = "1.1.0"; }, notNewer},
        {"the same", [](auto& r) { r.version = "1.0.0"; }, alreadyInstalled},
        {"no installation", [&](auto& r) { r.root = copy_.root() / "versions"; }, inputOutput},
        {"a link for a root", [&](auto& r) { r.root = link; }, inputOutput},
    };
    for (const Case& tried : cases) {
        SCOPED_TRACE(tried.what);
        auto request = goodRequest(copy_, archive, "1.1.0");
        tried.change(request);
        EXPECT_THAT(faultOf(HelperRun(request, archive).install()), Optional(tried.fault));
        expectUntouched();
    }
    std::ofstream(copy_.root() / "state" / "record") << "highest 1.10.0\n";
    const auto said = HelperRun(goodRequest(copy_, archive, "1.1.0"), archive).install();
    EXPECT_THAT(faultOf(said), Optional(notNewer)) << "once there was a higher one";
}

TEST_F(InstallRefusal, OfFilesThatOthersCanStillWriteAndByAHelperThatHasNoKey) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    constexpr int everything = F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;
    const struct {
        const char* helper;
        int seals;
        UpdateProblem fault;
    } cases[] = {{TEST_HELPER, 0, UpdateProblem::archiveDamaged},
                 {KEYLESS_HELPER, everything, UpdateProblem::noKey}};
    for (const auto& [helper, seals, fault] : cases) {
        const int file = memfd_create("archive", MFD_CLOEXEC | MFD_ALLOW_SEALING);
        ASSERT_EQ(write(file, archive.data(), archive.size()),
                  static_cast<ssize_t>(archive.size()));
        ASSERT_EQ(fcntl(file, F_ADD_SEALS, seals), 0);
        std::vector<std::string> command{helper};
        for (const auto& argument : installArguments(goodRequest(copy_, archive, "1.1.0"))) {
            command.push_back(argument);
        }
        Child child(command, file);
        std::string last;
        while (const auto line = child.readLine()) {
            last = *line;
        }
        EXPECT_EQ(child.finish(), 1);
        EXPECT_THAT(faultOf(readInstallLine(last)), Optional(fault));
        expectUntouched();
        close(file);
    }
}

TEST_F(InstallRefusal, WithoutPermissionToWrite) {
    // Root may write everywhere: the helper runs as somebody else then.
    const bool isRoot = geteuid() == 0;
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    if (!isRoot) {
        fs::permissions(copy_.root(), fs::perms(0555));
    }
    const auto said =
        HelperRun(goodRequest(copy_, archive, "1.1.0"), archive, {}, isRoot ? nobody : 0).install();
    fs::permissions(copy_.root(), fs::perms(0755));
    EXPECT_THAT(faultOf(said), Optional(UpdateProblem::noPermission));
    expectUntouched();
}

TEST_F(InstallRefusal, WhileAnotherCopyUpdatesAndTheFirstOneGoesOn) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()), Packing::xz);
    HelperRun first(goodRequest(copy_, archive, "1.1.0"), archive);
    ASSERT_TRUE(first.waitUntilReady());
    HelperRun second(goodRequest(copy_, archive, "1.1.0"), archive);
    EXPECT_THAT(faultOf(second.install()), Optional(UpdateProblem::busy));
    EXPECT_THAT(first.install(), Optional(InstallMessage(InstallDone{"1.1.0"})));
    HelperRun third(goodRequest(copy_, archive, "1.1.0"), archive);
    EXPECT_THAT(faultOf(third.install()), Optional(UpdateProblem::alreadyInstalled));
    EXPECT_EQ(copy_.current(), "versions/1.1.0");
    EXPECT_FALSE(fs::exists(copy_.root() / "staging"));
}

TEST_F(InstallRefusal, ThroughFoldersThatAreLinks) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    const fs::path outside = copy_.root().parent_path() / "outside";
    for (const char* const name : {"versions", "state", "staging"}) {
        SCOPED_TRACE(name);
        const InstalledCopy copy(copy_);
        const fs::path aside = copy.root().parent_path() / "aside";
        fs::create_directories(copy.root() / name);
        fs::rename(copy.root() / name, aside);
        std::ofstream(aside / "precious") << "precious";
        fs::create_directory_symlink(aside, copy.root() / name);
        const auto before = treeContent(aside);
        const auto said = HelperRun(goodRequest(copy, archive, "1.1.0"), archive).install();
        EXPECT_EQ(treeContent(aside), before);
        // A link in the place of the staging folder is itself what an earlier update left.
        EXPECT_EQ(faultOf(said).has_value(), name != std::string("staging"));
    }
}

TEST_F(InstallRefusal, OfAVersionThatWasOvertakenOrIsRunning) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    HelperRun overtaken(goodRequest(copy_, archive, "1.1.0"), archive);
    ASSERT_TRUE(overtaken.waitUntilReady());
    // Meanwhile the user puts another version there by hand.
    fs::copy(copy_.root() / "versions/1.0.0", copy_.root() / "versions/1.2.0",
             fs::copy_options::recursive);
    fs::remove(copy_.root() / "current");
    fs::create_symlink("versions/1.2.0", copy_.root() / "current");
    before_ = copy_.content();
    EXPECT_THAT(faultOf(overtaken.install()), Optional(UpdateProblem::notNewer));
    std::erase_if(before_, [](auto& entry) { return entry.first.starts_with("Larkvox/staging"); });
    expectUntouched();

    // One that was taken back, but somebody runs it still.
    const InstalledCopy copy;
    ASSERT_TRUE(installUpdate(copy, "1.1.0", "#!/bin/sh\necho up\nread line\n"));
    Child running({copy.launcher()});
    ASSERT_THAT(running.readLine(), Optional(std::string("up")));
    fs::remove(copy.root() / "current");
    fs::create_symlink("versions/1.0.0", copy.root() / "current");
    const auto kept = treeContent(copy.root() / "versions/1.1.0");
    EXPECT_THAT(faultOf(HelperRun(goodRequest(copy, archive, "1.1.0"), archive).install()),
                Optional(UpdateProblem::busy));
    EXPECT_EQ(treeContent(copy.root() / "versions/1.1.0"), kept);
    running.finish();
    EXPECT_THAT(HelperRun(goodRequest(copy, archive, "1.1.0"), archive).install(),
                Optional(InstallMessage(InstallDone{"1.1.0"})));
}

TEST_F(InstallRefusal, OnCommandAndAtTheEndOfItsInput) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    for (const char* const words :
         {"cancel\n", "", "something else\n", "install", "cancel\ninstall\n"}) {
        SCOPED_TRACE(words);
        HelperRun run(goodRequest(copy_, archive, "1.1.0"), archive);
        ASSERT_TRUE(run.waitUntilReady());
        EXPECT_TRUE(fs::exists(copy_.root() / "staging"));
        run.child().say(words);
        run.finish();
        EXPECT_EQ(run.code(), 0);
        EXPECT_TRUE(std::holds_alternative<InstallReady>(run.said().back()));
        expectUntouched();
    }
}

TEST_F(InstallRefusal, TwoHundredTimesLeavesOneStagingTreeAtMost) {
    const auto good = makeArchive(goodUpdate("1.1.0", workingProgram()));
    const auto evil = makeArchive(updateWith("1.1.0", {{newFolder + "null", Type::device}}));
    for (int i = 0; i < 200; ++i) {
        const auto& archive = i % 2 == 0 ? good : evil;
        HelperRun run(goodRequest(copy_, archive, "1.1.0"), archive);
        if (i % 4 == 0) { // killed with everything unpacked
            ASSERT_TRUE(run.waitUntilReady());
            run.child().kill();
        }
        run.finish();
        const auto trees = std::distance(fs::directory_iterator(copy_.root() / "versions"), {});
        ASSERT_EQ(trees, 1);
        ASSERT_LE(std::distance(fs::directory_iterator(copy_.root()), {}), 5)
            << "launcher, pointer, versions, state and one staging folder";
    }
    EXPECT_EQ(runProgram({copy_.launcher()}).output, "1.0.0\n");
    expectUntouched(); // the start removed what the killed ones had left
}

} // namespace
} // namespace updates::testing
