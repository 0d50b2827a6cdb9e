// Archives of any kind, signed by the key of the tests, so that they reach all that lies behind the
// signature. An input is an archive, whose checksums are mended first, or, after a "D", a
// description from which one is made: what is in it, in which order, under which names.
//
// Whatever comes: nothing outside the staging folder is touched, and what is accepted keeps the
// rules that are written down here once more, by other means than those of the program.
#include "updates/install/installer.hpp"
#include "updates/testing/test_key.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace updates;

using Bytes = std::vector<std::byte>;
constexpr std::size_t blockSize = 512;
constexpr const char* newVersion = "1.1.0";
constexpr const char* goodPlatform = "linux-x86_64";

void require(bool isGood, const char* what) {
    if (!isGood) {
        std::fprintf(stderr, "archive_fuzz: %s\n", what);
        std::abort();
    }
}

// Writing tar by hand.

void setField(std::byte* block, std::size_t at, std::size_t width, const std::string& text) {
    std::memcpy(block + at, text.data(), std::min(width, text.size()));
}

std::string octal(std::uint64_t number, int digits) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*llo", digits,
                  static_cast<unsigned long long>(number));
    return text.data();
}

bool isHeader(const std::byte* block) {
    return std::memcmp(block + 257, "ustar", 5) == 0;
}

void mendChecksum(std::byte* block) {
    std::memset(block + 148, ' ', 8);
    unsigned sum = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        sum += static_cast<unsigned>(block[i]);
    }
    setField(block, 148, 7, octal(sum, 6) + '\0');
}

struct Entry {
    std::string name;
    std::string link = {};
    std::string content = {};
    char type = '0';
    unsigned mode = 0644;
    std::uint64_t claimed = 0; ///< bytes more than there are
};

void add(Bytes& archive, const Entry& entry) {
    std::array<std::byte, blockSize> block{};
    setField(block.data(), 0, 100, entry.name);
    setField(block.data(), 100, 8, octal(entry.mode, 7));
    setField(block.data(), 124, 12, octal(entry.content.size() + entry.claimed, 11));
    block[156] = static_cast<std::byte>(entry.type);
    setField(block.data(), 157, 100, entry.link);
    setField(block.data(), 257, 8, std::string("ustar\00000", 8));
    mendChecksum(block.data());
    archive.insert(archive.end(), block.begin(), block.end());
    const auto* const content = reinterpret_cast<const std::byte*>(entry.content.data());
    archive.insert(archive.end(), content, content + entry.content.size());
    archive.resize((archive.size() + blockSize - 1) / blockSize * blockSize);
}

/// Takes an archive apart into choices.
class Description {
  public:
    explicit Description(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    [[nodiscard]] bool isAtEnd() const { return size_ == 0; }
    unsigned next(unsigned limit) {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++ % limit;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

const std::string& goodManifest() {
    static const std::string text = archiveManifestText(
        {"Larkvox", "larkvox", "i", newVersion, goodPlatform, testing::publicTestKey});
    return text;
}

/// Of another product of the same maker.
const std::string& otherManifest() {
    static const std::string text = archiveManifestText(
        {"Otter", "larkvox", "o", newVersion, goodPlatform, testing::publicTestKey});
    return text;
}

std::string describedName(Description& description) {
    static const char* const starts[] = {
        "Larkvox/versions/1.1.0/", "Larkvox/versions/", "Larkvox/", "", "/", "../"};
    static const char* const parts[] = {
        "bin", "larkvox",  "manifest.json", "share", "current", "outside", "..",   ".",
        "",    "versions", "1.1.0",         "1.0.0", "link",    "a",       "\xff", "state"};
    std::string name = starts[description.next(std::size(starts))];
    for (unsigned count = description.next(4); count > 0; --count) {
        name += parts[description.next(std::size(parts))];
        name += count > 1 ? "/" : "";
    }
    return name;
}

Entry describedEntry(Description& description) {
    static const char types[] = {'0', '0', '0', '5', '5', '2', '1', '\0', '3',
                                 '4', '6', '7', 'S', 'L', 'K', 'x', 'g'};
    const char* const contents[] = {"",
                                    "#!/bin/sh\n",
                                    "{}",
                                    goodManifest().c_str(),
                                    otherManifest().c_str(),
                                    "30 path=Larkvox/../../outside\n",
                                    "22 linkpath=../outside\n",
                                    "20 GNU.sparse.size=9\n"};
    Entry entry{describedName(description)};
    entry.type = types[description.next(std::size(types))];
    entry.mode = description.next(4) == 3 ? 04755 : 0755;
    entry.content = contents[description.next(std::size(contents))];
    if (entry.type == '1' || entry.type == '2') {
        entry.content.clear();
        entry.link = describedName(description);
    }
    if (description.next(16) == 15) {
        entry.claimed = std::uint64_t{1} << (description.next(33));
    }
    return entry;
}

Bytes describedArchive(Description description) {
    const std::string folder = std::string("Larkvox/versions/") + newVersion;
    const std::vector<Entry> good{
        {"Larkvox/", {}, {}, '5', 0755},
        {"Larkvox/current", std::string("versions/") + newVersion, {}, '2', 0777},
        {"Larkvox/versions/", {}, {}, '5', 0755},
        {folder + '/', {}, {}, '5', 0755},
        {folder + "/bin/", {}, {}, '5', 0755},
        {folder + "/bin/larkvox", {}, "#!/bin/sh\n", '0', 0755},
        {folder + "/manifest.json",
         {},
         description.next(8) == 7 ? otherManifest() : goodManifest()},
        {folder + "/libexec/", {}, {}, '5', 0755},
        {folder + "/libexec/larkvox-install", {}, "#!/bin/sh\n", '0', 0755}};
    Bytes archive;
    // Which of the good ones are there, and where something else comes between.
    const unsigned left = description.next(16);
    for (std::size_t i = 0; i < good.size(); ++i) {
        if (i != left) {
            add(archive, good[i]);
        }
        if (description.next(8) == 1) {
            add(archive, describedEntry(description));
        }
    }
    while (!description.isAtEnd()) {
        add(archive, describedEntry(description));
    }
    archive.resize(archive.size() + 2 * blockSize);
    return archive;
}

Bytes mendedArchive(const std::uint8_t* data, std::size_t size) {
    const auto* const bytes = reinterpret_cast<const std::byte*>(data);
    Bytes archive(bytes, bytes + size);
    for (std::size_t at = 0; at + blockSize <= archive.size(); at += blockSize) {
        if (isHeader(&archive[at])) {
            mendChecksum(&archive[at]);
        }
    }
    return archive;
}

// The rules, once more.

/// All that can be seen of the files below a folder, but for what every update changes.
std::string fingerprint(const fs::path& folder) {
    std::vector<std::string> lines;
    for (auto entry = fs::recursive_directory_iterator(folder);
         entry != fs::recursive_directory_iterator(); ++entry) {
        const std::string name = entry->path().filename();
        if (name == "staging" || name == "state") {
            entry.disable_recursion_pending();
            continue;
        }
        struct stat status {};
        require(lstat(entry->path().c_str(), &status) == 0, "a file is gone");
        std::string line = entry->path().string();
        const auto addNumber = [&line](std::int64_t number) {
            line += ' ';
            line += std::to_string(number);
        };
        addNumber(status.st_mode);
        if (name != "Larkvox" && name != "versions" && name != "current") {
            addNumber(static_cast<std::int64_t>(status.st_ino));
            addNumber(static_cast<std::int64_t>(status.st_nlink));
            addNumber(status.st_size);
            addNumber(status.st_mtim.tv_sec);
            addNumber(status.st_mtim.tv_nsec);
        }
        lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    std::string all;
    for (const std::string& line : lines) {
        all += line;
        all += '\n';
    }
    return all;
}

void requireGoodTree(const fs::path& tree, std::uint64_t archiveSize) {
    std::uint64_t bytes = 0;
    for (const auto& entry : fs::recursive_directory_iterator(tree)) {
        struct stat status {};
        require(lstat(entry.path().c_str(), &status) == 0, "cannot look at a file");
        require(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode), "neither file nor folder");
        require((status.st_mode & 07022) == 0, "set-id bits, or others may write");
        require(!S_ISREG(status.st_mode) || status.st_nlink == 1, "a hard link");
        bytes += S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
    }
    require(bytes <= archiveSize * 20 + (1 << 20), "a bomb");
    std::ifstream file(tree / "manifest.json");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (const char* const word : {"Larkvox", newVersion, goodPlatform}) {
        require(text.find(word) != std::string::npos, "another manifest");
    }
    require(access((tree / "bin/larkvox").c_str(), X_OK) == 0, "no program");
    require(access((tree / "libexec/larkvox-install").c_str(), X_OK) == 0, "no helper");
    require(text.find("Otter") == std::string::npos, "another product");
}

bool isOneOf(char type, std::string_view types) {
    return types.find(type) != std::string_view::npos;
}

/// Walks the headers of a plain archive, as far as they are the ordinary ones.
void requireGoodHeaders(const Bytes& archive) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at + blockSize <= archive.size();) {
        const auto* const block = reinterpret_cast<const char*>(&archive[at]);
        const char type = block[156];
        if (!isHeader(&archive[at]) || block[124] < '0' || isOneOf(type, "xgLKS")) {
            return; // the end, or names and sizes that are told in another way
        }
        std::string name(block, strnlen(block, 100));
        const std::string prefix(block + 345, strnlen(block + 345, 155));
        if (!prefix.empty()) {
            name.insert(0, prefix + '/');
        }
        require(!isOneOf(type, "346"), "a device was accepted");
        require(type != '1', "a hard link was accepted");
        require(type != '2' || name == "Larkvox/current", "a link was accepted");
        require(name.front() != '/', "an absolute name was accepted");
        require(('/' + name + '/').find("/../") == std::string::npos, "\"..\" was accepted");
        require(std::find(names.begin(), names.end(), name) == names.end(), "a name twice");
        names.push_back(name);
        const auto size = std::strtoull(std::string(block + 124, 12).c_str(), nullptr, 8);
        at += blockSize + (type == '5' ? 0 : (size + blockSize - 1) / blockSize * blockSize);
    }
}

bool isOfArchive(UpdateProblem problem) {
    return problem >= UpdateProblem::archiveTooLarge && problem <= UpdateProblem::otherVersion;
}

/// An installation and something beside it, made once.
class Place {
  public:
    Place() {
        const fs::path memory = "/dev/shm";
        std::error_code error;
        std::string pattern =
            ((fs::is_directory(memory, error) ? memory : fs::temp_directory_path()) /
             "archive-fuzz-XXXXXX")
                .string();
        require(mkdtemp(pattern.data()) != nullptr, "no folder");
        folder_ = pattern;
        fs::create_directories(root() / "versions/1.0.0/bin");
        fs::create_directory(folder_ / "outside");
        std::ofstream(folder_ / "outside/file") << "precious";
        std::ofstream(root() / "versions/1.0.0/bin/larkvox") << "old";
        fs::create_symlink("versions/1.0.0", root() / "current");
        before_ = fingerprint(folder_);
    }
    ~Place() {
        std::error_code error;
        fs::remove_all(folder_, error);
        std::printf("%zu archives, %zu of them accepted\n", tried_, accepted_);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    void tryArchive(const Bytes& archive) {
        ++tried_;
        {
            Installer installer(
                {testing::publicTestKey, "Larkvox", "larkvox", "i", goodPlatform},
                {root(), -1, archive.size(), testing::testSignature(archive), newVersion, "1.0.0"});
            const auto refusal = installer.stage(archive);
            require(!refusal || isOfArchive(refusal->problem),
                    "refused for a reason that lies outside of the archive");
            require(fingerprint(folder_) == before_, "something outside was touched");
            if (!refusal) {
                ++accepted_;
                requireGoodTree(root() / "staging/tree", archive.size());
                requireGoodHeaders(archive);
                require(!installer.install(), "what was accepted is installed");
            }
        }
        if (fs::read_symlink(root() / "current") != "versions/1.0.0") {
            requireGoodTree(root() / "versions" / newVersion, archive.size());
            putBack();
        }
        require(fingerprint(folder_) == before_, "more than the version was installed");
        require(!fs::exists(root() / "staging"), "the staging folder stayed");
    }

  private:
    /// As if nothing had been installed.
    void putBack() const {
        fs::remove(root() / "current");
        fs::create_symlink("versions/1.0.0", root() / "current");
        fs::remove_all(root() / "versions" / newVersion);
        fs::remove(root() / "state/record");
    }

    [[nodiscard]] fs::path root() const { return folder_ / "Larkvox"; }

    fs::path folder_;
    std::string before_;
    std::size_t tried_ = 0;
    std::size_t accepted_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Place place;
    place.tryArchive(size > 0 && data[0] == 'D' ? describedArchive(Description(data + 1, size - 1))
                                                : mendedArchive(data, size));
    return 0;
}
