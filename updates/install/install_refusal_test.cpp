// Everything that the helper must refuse, with the real helper and real, signed archives.
#include "platform/updates/install/install_testing.hpp"
#include "platform/updates/testing/test_key.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>
#include <unistd.h>

#include <fstream>
#include <functional>

namespace platform::testing {
namespace {

namespace fs = std::filesystem;
using Type = MadeEntry::Type;
using ::testing::Optional;

constexpr uid_t nobody = 65534;
const std::string newFolder = "Larkvox/versions/1.1.0/";

struct Row {
    const char* what;
    std::function<std::vector<MadeEntry>()> entries;
    InstallFault fault;
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
    using enum InstallFault;
    static const std::vector<Row> all{
        {"parent folders", with({{newFolder + "share/../../../../outside/new"}}), archiveUnsafe},
        {"parent folder at the end", with({{newFolder + "share/..", Type::folder}}), archiveUnsafe},
        {"parent folder first", with({{"../outside/new"}}), archiveUnsafe},
        {"dots", with({{newFolder + "./new"}}), archiveUnsafe},
        {"absolute name", with({{"/tmp/larkvox-evil"}}), archiveUnsafe},
        {"double slash", with({{newFolder + "share//new"}}), archiveUnsafe},
        {"backslash", with({{newFolder + "share\\new"}}), archiveUnsafe},
        {"line break", with({{newFolder + "share/a\nb"}}), archiveUnsafe},
        {"not UTF-8", with({{newFolder + "share/\xff\xfe"}}), archiveUnsafe},
        {"letters that look like others", with({{newFolder + "share/\u0430"}}), archiveUnsafe},
        {"long name", with({{newFolder + std::string(201, 'n')}}), archiveUnsafe},
        {"another top folder", with({{"Other", Type::folder}}), archiveUnsafe},
        {"a file beside the top folder", with({{"file"}}), archiveUnsafe},
        {"something beside the versions", with({{"Larkvox/state", Type::folder}}), archiveUnsafe},
        {"another version", with({{"Larkvox/versions/1.2.0", Type::folder}}), archiveUnsafe},
        {"a file without its folder", with({{newFolder + "nowhere/new"}}), archiveUnsafe},
        {"into a file", with({{newFolder + "bin/larkvox/new"}}), archiveUnsafe},
        {"a link out",
         with({{newFolder + "out", Type::symbolicLink, "../../../outside"},
               {newFolder + "out/new"}}),
         archiveUnsafe},
        {"a folder of a link's name",
         with({{newFolder + "out", Type::symbolicLink, "../../../outside"},
               {newFolder + "out", Type::folder},
               {newFolder + "out/new"}}),
         archiveUnsafe},
        {"an absolute link", with({{newFolder + "out", Type::symbolicLink, "/"}}), archiveUnsafe},
        {"a link within", with({{newFolder + "in", Type::symbolicLink, "bin"}}), archiveUnsafe},
        {"versions as a link",
         [] {
             return std::vector<MadeEntry>{{"Larkvox", Type::folder, {}},
                                           {"Larkvox/versions", Type::symbolicLink, "../outside"},
                                           {newFolder + "new"}};
         },
         archiveUnsafe},
        {"the pointer leads elsewhere",
         [] {
             auto entries = goodUpdate("1.1.0", workingProgram());
             entries[2].content = "../outside";
             return entries;
         },
         archiveUnsafe},
        {"a hard link out", with({{newFolder + "hard", Type::hardLink, "../outside/file"}}),
         archiveUnsafe},
        {"a hard link within",
         with({{newFolder + "hard", Type::hardLink, newFolder + "bin/larkvox"}}), archiveUnsafe},
        {"a device", with({{newFolder + "null", Type::device}}), archiveUnsafe},
        {"a fifo", with({{newFolder + "fifo", Type::fifo}}), archiveUnsafe},
        {"setuid", with({{newFolder + "bin/su", Type::file, "x", 04755}}), archiveUnsafe},
        {"setgid", with({{newFolder + "bin/sg", Type::file, "x", 02755}}), archiveUnsafe},
        {"sticky folder", with({{newFolder + "tmp", Type::folder, {}, 01777}}), archiveUnsafe},
        {"a file twice", with({{newFolder + "bin/larkvox", Type::file, "other", 0755}}),
         archiveUnsafe},
        {"a folder twice", with({{newFolder + "share", Type::folder}}), archiveUnsafe},
        {"a second manifest", with({{newFolder + "manifest.json", Type::file, "{}"}}),
         archiveUnsafe},
        {"a manifest without end",
         [] {
             auto entries = goodUpdate("1.1.0", workingProgram());
             entries[7].zeros = 100000;
             return entries;
         },
         archiveTooLarge},
        {"no manifest", without("manifest.json"), archiveUnsafe},
        {"no program", without("bin/larkvox"), archiveUnsafe},
        {"a program that is a folder",
         [] {
             auto entries = goodUpdate("1.1.0", workingProgram());
             entries[6].type = Type::folder;
             return entries;
         },
         archiveUnsafe},
        {"nothing", [] { return std::vector<MadeEntry>{}; }, archiveUnsafe},
        {"another product", saying([](auto& manifest) { manifest.product = "Otter"; }),
         otherProduct},
        {"another identifier", saying([](auto& manifest) { manifest.identifier += ".pro"; }),
         otherProduct},
        {"another platform", saying([](auto& manifest) { manifest.platform = "linux-z80"; }),
         otherPlatform},
        {"folder and manifest differ", saying([](auto& manifest) { manifest.version = "1.0.9"; }),
         archiveUnsafe},
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
        EXPECT_THAT(faultOf(said), Optional(InstallFault::archiveUnreadable));
        expectUntouched();
    }
}

TEST_F(InstallRefusal, OfWhatTheFeedDoesNotVouchFor) {
    using enum InstallFault;
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    auto other = archive;
    other[other.size() / 2] ^= std::byte{1};
    struct Case {
        const char* what;
        std::function<void(InstallRequest&)> change;
        InstallFault fault;
    };
    const Case cases[] = {
        {"no signature", [](auto& r) { r.signature.clear(); }, signatureMissing},
        {"half a signature", [](auto& r) { r.signature.resize(44); }, signatureMalformed},
        {"signed twice", [](auto& r) { r.signature += r.signature; }, signatureMalformed},
        {"of other bytes", [&](auto& r) { r.signature = testSignature(other); }, signatureWrong},
        {"shorter", [](auto& r) { ++r.length; }, lengthDiffers},
        {"longer", [](auto& r) { --r.length; }, lengthDiffers},
        {"the item lies", [](auto& r) { r.version = "1.2.0"; }, otherVersion},
        {"a version that is a path", [](auto& r) { r.version = "../../outside"; }, otherVersion},
        {"older", [](auto& r) { r.version = "0.9.0"; }, notNewer},
        {"not newer than who asks", [](auto& r) { r.installed = "1.1.0"; }, notNewer},
        {"the same", [](auto& r) { r.version = "1.0.0"; }, alreadyInstalled},
        {"no installation", [&](auto& r) { r.root = copy_.root() / "versions"; }, inputOutput},
    };
    for (const Case& tried : cases) {
        SCOPED_TRACE(tried.what);
        auto request = goodRequest(copy_, archive, "1.1.0");
        tried.change(request);
        EXPECT_THAT(faultOf(HelperRun(request, archive).install()), Optional(tried.fault));
        expectUntouched();
    }
    fs::create_directory(copy_.root() / "state");
    std::ofstream(copy_.root() / "state" / "record") << "highest 1.10.0\n";
    const auto said = HelperRun(goodRequest(copy_, archive, "1.1.0"), archive).install();
    EXPECT_THAT(faultOf(said), Optional(notNewer)) << "once there was a higher one";
}

TEST_F(InstallRefusal, OfFilesThatOthersCanStillWrite) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    const int file = memfd_create("not sealed", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    ASSERT_EQ(write(file, archive.data(), archive.size()), static_cast<ssize_t>(archive.size()));
    std::vector<std::string> command{TEST_HELPER};
    for (const auto& argument : installArguments(goodRequest(copy_, archive, "1.1.0"))) {
        command.push_back(argument);
    }
    std::string output;
    EXPECT_EQ(Child(command, file).finish(&output), 1);
    EXPECT_THAT(output, ::testing::StartsWith("refused archive-unreadable"));
    expectUntouched();
    close(file);
}

TEST_F(InstallRefusal, ByAHelperThatHasNoKey) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()));
    std::vector<std::string> command{KEYLESS_HELPER};
    for (const auto& argument : installArguments(goodRequest(copy_, archive, "1.1.0"))) {
        command.push_back(argument);
    }
    std::string output;
    const int file = memfd_create("sealed", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    ASSERT_EQ(fcntl(file, F_ADD_SEALS, F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL),
              0);
    EXPECT_EQ(Child(command, file).finish(&output), 1);
    EXPECT_THAT(output, ::testing::HasSubstr("refused cannot-update"));
    close(file);
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
    EXPECT_THAT(faultOf(said), Optional(InstallFault::noPermission));
    expectUntouched();
}

TEST_F(InstallRefusal, WhileAnotherCopyUpdatesAndTheFirstOneGoesOn) {
    const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()), Packing::xz);
    HelperRun first(goodRequest(copy_, archive, "1.1.0"), archive);
    ASSERT_TRUE(first.waitUntilReady());
    HelperRun second(goodRequest(copy_, archive, "1.1.0"), archive);
    EXPECT_THAT(faultOf(second.install()), Optional(InstallFault::busy));
    EXPECT_THAT(first.install(), Optional(InstallMessage(InstallDone{"1.1.0"})));
    HelperRun third(goodRequest(copy_, archive, "1.1.0"), archive);
    EXPECT_THAT(faultOf(third.install()), Optional(InstallFault::alreadyInstalled));
    EXPECT_EQ(copy_.current(), "versions/1.1.0");
    EXPECT_FALSE(fs::exists(copy_.root() / "staging"));
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
        ASSERT_LE(std::distance(fs::directory_iterator(copy_.root()), {}), 4)
            << "launcher, pointer, versions and one staging folder";
    }
    EXPECT_EQ(runProgram({copy_.launcher()}).output, "1.0.0\n");
    expectUntouched(); // the start removed what the killed ones had left
}

} // namespace
} // namespace platform::testing
