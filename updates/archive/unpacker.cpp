#include "platform/updates/archive/unpacker.hpp"

#include "platform/system/descriptor.hpp"
#include "platform/updates/archive/archive_reader.hpp"
#include "platform/updates/archive/archive_rules.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {
namespace {

using Kind = ArchiveEntry::Kind;
using MaybeFailure = std::optional<ArchiveFailure>;

constexpr std::string_view manifestName = "manifest.json";
constexpr std::size_t longestManifest = std::size_t{64} * 1024;

MaybeFailure systemFailure(const std::string& what) {
    const int error = errno;
    return ArchiveFailure{ArchiveFault::system, what, error};
}

/// Makes files and folders below one folder, which is the only way it has to any of them. Without a
/// folder it makes nothing.
class TreeWriter {
  public:
    explicit TreeWriter(int root) : root_(root) {}

    MaybeFailure makeFolder(const std::string& path) {
        if (root_ < 0) {
            return {};
        }
        const auto name = enterParent(path);
        if (!name || mkdirat(folder_.get(), name->c_str(), 0755) != 0) {
            return systemFailure("folder " + path);
        }
        return {};
    }

    MaybeFailure beginFile(const std::string& path, bool isProgram) {
        if (root_ < 0) {
            return {};
        }
        const auto name = enterParent(path);
        if (name) {
            file_ = Descriptor(openat(folder_.get(), name->c_str(),
                                      O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                      isProgram ? 0755 : 0644));
        }
        return file_ ? MaybeFailure() : systemFailure("file " + path);
    }

    MaybeFailure write(std::span<const std::byte> bytes) {
        while (root_ >= 0 && !bytes.empty()) {
            const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR) {
                return systemFailure("writing");
            }
            bytes = bytes.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
        return {};
    }

    MaybeFailure endFile() { return file_.reset() ? MaybeFailure() : systemFailure("closing"); }

  private:
    /// Opens the folder that `path` lies in, one part after the other and following no link.
    /// Returns the name in it.
    std::optional<std::string> enterParent(const std::string& path) {
        const auto slash = path.rfind('/');
        const std::string parent = slash == std::string::npos ? "" : path.substr(0, slash);
        if (!folder_ || parent != folderPath_) {
            folder_ = open(root_, ".");
            folderPath_ = parent;
            for (std::string_view rest = parent; folder_ && !rest.empty();) {
                const std::string_view part = rest.substr(0, rest.find('/'));
                folder_ = open(folder_.get(), std::string(part));
                rest.remove_prefix(std::min(rest.size(), part.size() + 1));
            }
        }
        if (!folder_) {
            return std::nullopt;
        }
        return slash == std::string::npos ? path : path.substr(slash + 1);
    }

    static Descriptor open(int folder, const std::string& name) {
        return Descriptor(
            openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    }

    int root_;
    Descriptor folder_; // of what was made last, and its path
    std::string folderPath_;
    Descriptor file_;
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
            if (const auto* const refused = std::get_if<ArchiveFailure>(&admitted)) {
                return *refused;
            }
            const std::string& path = std::get<ArchiveRules::Place>(admitted).path;
            MaybeFailure failure = goOn();
            if (!failure && entry->kind == Kind::file) {
                failure = unpackFile(*entry, path);
            } else if (!failure && entry->kind == Kind::folder && !path.empty()) {
                failure = writer_.makeFolder(path);
            }
            if (failure) {
                return *failure;
            }
        }
        return reader_.damage().empty()
                   ? finish()
                   : ArchiveFailure{ArchiveFault::unreadable, reader_.damage()};
    }

  private:
    MaybeFailure goOn() const {
        if (progress_ && !progress_(reader_.consumed())) {
            return ArchiveFailure{ArchiveFault::cancelled, "cancelled"};
        }
        return {};
    }

    /// With an empty path the content is read and thrown away.
    MaybeFailure unpackFile(const ArchiveEntry& entry, const std::string& path) {
        if (!path.empty()) {
            ++files_;
            if (auto failure = writer_.beginFile(path, (entry.mode & 0111U) != 0)) {
                return failure;
            }
        }
        while (const auto count = reader_.read(buffer_)) {
            if (*count == 0) {
                return path.empty() ? MaybeFailure() : writer_.endFile();
            }
            if (!rules_.admitBytes(*count)) {
                return ArchiveFailure{ArchiveFault::tooLarge, "unpacks to too many bytes"};
            }
            const auto bytes = std::span(buffer_).first(*count);
            if (path == manifestName && !keepManifest(bytes)) {
                return ArchiveFailure{ArchiveFault::tooLarge, "its manifest is too long"};
            }
            auto failure = path.empty() ? MaybeFailure() : writer_.write(bytes);
            failure = failure ? failure : goOn();
            if (failure) {
                return failure;
            }
            bytes_ += path.empty() ? 0 : *count;
        }
        return ArchiveFailure{ArchiveFault::unreadable, reader_.damage()};
    }

    bool keepManifest(std::span<const std::byte> bytes) {
        manifest_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return manifest_.size() <= longestManifest;
    }

    UnpackResult finish() const {
        const auto unsafe = [](std::string detail) {
            return ArchiveFailure{ArchiveFault::unsafe, std::move(detail)};
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
        return UnpackedArchive{*manifest, bytes_, files_};
    }

    ArchiveReader reader_;
    ArchiveRules rules_;
    TreeWriter writer_;
    const ArchiveProgress& progress_;
    std::vector<std::byte> buffer_;
    std::string manifest_;
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

} // namespace platform
