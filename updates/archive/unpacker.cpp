#include "updates/archive/unpacker.hpp"

#include "platform/system/files.hpp"
#include "updates/archive/archive_reader.hpp"
#include "updates/archive/archive_rules.hpp"
#include "updates/feed/signature.hpp"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

namespace updates {
namespace {

using Kind = ArchiveEntry::Kind;
using MaybeRefused = std::optional<Refusal>;

constexpr std::string_view manifestName = "manifest.json";
constexpr std::size_t longestManifest = std::size_t{64} * 1024;

/// Makes files and folders below one folder, which is the only way it has to any of them. Without a
/// folder it makes nothing.
class TreeWriter {
  public:
    explicit TreeWriter(int root) : root_(root) {}

    MaybeRefused makeFolder(const std::string& path) {
        const auto name = enterParent(path);
        return refusal(name ? platform::makeFolder(folder_.get(), *name) : errno, path);
    }

    MaybeRefused beginFile(const std::string& path, bool isProgram) {
        const auto name = enterParent(path);
        file_ = name ? platform::makeFile(folder_.get(), *name, isProgram ? 0755 : 0644)
                     : platform::Descriptor();
        return refusal(file_ ? 0 : errno, path);
    }

    MaybeRefused write(std::span<const std::byte> bytes) {
        return refusal(root_ < 0 ? 0 : platform::writeAll(file_.get(), bytes), "writing");
    }

    MaybeRefused endFile() { return refusal(file_.reset() ? 0 : errno, "closing"); }

  private:
    [[nodiscard]] MaybeRefused refusal(int error, const std::string& what) const {
        return root_ < 0 || error == 0 ? MaybeRefused() : systemRefusal(error, what);
    }

    /// Opens the folder that `path` lies in, one part after the other. Returns the name in it.
    std::optional<std::string> enterParent(const std::string& path) {
        const auto slash = path.rfind('/');
        const std::string parent = slash == std::string::npos ? "" : path.substr(0, slash);
        if (root_ >= 0 && (!folder_ || parent != folderPath_)) {
            folder_ = platform::openFolder(root_, ".");
            folderPath_ = parent;
            for (std::string_view rest = parent; folder_ && !rest.empty();) {
                const std::string_view part = rest.substr(0, rest.find('/'));
                folder_ = platform::openFolder(folder_.get(), std::string(part));
                rest.remove_prefix(std::min(rest.size(), part.size() + 1));
            }
        }
        if (!folder_) {
            return std::nullopt;
        }
        return slash == std::string::npos ? path : path.substr(slash + 1);
    }

    int root_;
    platform::Descriptor folder_; // of what was made last, and its path
    std::string folderPath_;
    platform::Descriptor file_;
};

class Unpacking {
  public:
    Unpacking(std::span<const std::byte> archive, int folder, const ArchiveProgress& progress)
        : reader_(archive),
          rules_(archive.size()),
          writer_(folder),
          progress_(progress),
          buffer_(std::size_t{64} * 1024) {}

    UnpackResult run() {
        while (const auto entry = reader_.next()) {
            const auto admitted = rules_.admit(*entry);
            if (const auto* const refused = std::get_if<Refusal>(&admitted)) {
                return *refused;
            }
            const std::string& path = std::get<ArchiveRules::Place>(admitted).path;
            MaybeRefused failure = goOn();
            if (!failure && entry->kind == Kind::file) {
                failure = unpackFile(*entry, path);
            } else if (!failure && entry->kind == Kind::folder && !path.empty()) {
                failure = writer_.makeFolder(path);
            }
            if (failure) {
                return *failure;
            }
        }
        return reader_.damage().empty() ? finish()
                                        : Refusal{UpdateProblem::archiveDamaged, reader_.damage()};
    }

  private:
    MaybeRefused goOn() const {
        if (progress_ && !progress_(reader_.consumed())) {
            return Refusal{UpdateProblem::inputOutput, "cancelled"};
        }
        return {};
    }

    /// With an empty path the content is read and thrown away.
    MaybeRefused unpackFile(const ArchiveEntry& entry, const std::string& path) {
        if (!path.empty()) {
            ++files_;
            const bool isProgram = (entry.mode & 0111U) != 0;
            if (isProgram) {
                programs_.insert(path);
            }
            if (auto failure = writer_.beginFile(path, isProgram)) {
                return failure;
            }
        }
        while (const auto count = reader_.read(buffer_)) {
            if (*count == 0) {
                return path.empty() ? MaybeRefused() : writer_.endFile();
            }
            if (!rules_.admitBytes(*count)) {
                return Refusal{UpdateProblem::archiveTooLarge, "unpacks to too many bytes"};
            }
            const auto bytes = std::span(buffer_).first(*count);
            if (path == manifestName && !keepManifest(bytes)) {
                return Refusal{UpdateProblem::archiveTooLarge, "its manifest is too long"};
            }
            auto failure = path.empty() ? MaybeRefused() : writer_.write(bytes);
            failure = failure ? failure : goOn();
            if (failure) {
                return failure;
            }
            bytes_ += path.empty() ? 0 : *count;
        }
        return Refusal{UpdateProblem::archiveDamaged, reader_.damage()};
    }

    bool keepManifest(std::span<const std::byte> bytes) {
        manifest_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return manifest_.size() <= longestManifest;
    }

    UnpackResult finish() const {
        const auto unsafe = [](std::string detail) {
            return Refusal{UpdateProblem::archiveUnsafe, std::move(detail)};
        };
        if (rules_.version().empty()) {
            return unsafe("no version in it");
        }
        const std::string& target = rules_.currentTarget();
        if (!target.empty() && target != "versions/" + rules_.version()) {
            return unsafe("\"current\" leads elsewhere");
        }
        const auto manifest = readArchiveManifest(manifest_);
        if (!manifest) {
            return unsafe("no manifest in it");
        }
        if (manifest->version != rules_.version()) {
            return unsafe("its manifest is of another version than its folder");
        }
        // Without the one it would not start, without the other it could never be updated again.
        for (const std::string& path : {programPath(manifest->name), helperPath(manifest->name)}) {
            if (!programs_.contains(path)) {
                return unsafe("no program " + path + " in it");
            }
        }
        if (!isPublicKey(manifest->publicKey)) {
            return unsafe("the key in its manifest is none: it could never be updated again");
        }
        return UnpackedArchive{*manifest, bytes_, files_};
    }

    ArchiveReader reader_;
    ArchiveRules rules_;
    TreeWriter writer_;
    const ArchiveProgress& progress_;
    std::vector<std::byte> buffer_;
    std::string manifest_;
    std::set<std::string> programs_;
    std::uint64_t bytes_ = 0;
    std::size_t files_ = 0;
};

} // namespace

UnpackResult unpackArchive(std::span<const std::byte> archive, int folder,
                           const ArchiveProgress& progress) {
    return Unpacking(archive, folder, progress).run();
}

UnpackResult examineArchive(std::span<const std::byte> archive) {
    return Unpacking(archive, -1, {}).run();
}

} // namespace updates
