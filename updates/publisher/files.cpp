#include "updates/publisher/files.hpp"

#include "platform/system/files.hpp"
#include "updates/publisher/failure.hpp"

#include <cerrno>

namespace updates {
namespace {

namespace fs = std::filesystem;
using platform::Descriptor;

void check(int error, const fs::path& path, const char* what) {
    if (error != 0) {
        throw Failure(ExitCode::inputOutput,
                      path.string() + ": " + what + ": " + std::generic_category().message(error));
    }
}

/// Hands a regular file to `take`, piece by piece.
template<class Take>
void readPieces(const fs::path& path, std::uint64_t limit, Take take) {
    const Descriptor file = platform::openFile(path);
    const int error = file ? platform::readAll(file.get(), limit, take) : errno;
    if (error == EINVAL) {
        throw Failure(ExitCode::inputOutput, path.string() + ": is not a file");
    }
    if (error == EFBIG) {
        throw Failure(ExitCode::refused, path.string() + ": is larger than the " +
                                             std::to_string(limit) + " bytes that are allowed");
    }
    check(error, path, "cannot be read");
}

/// The folder of a file, which may be one of a link.
Descriptor openFolderOf(const fs::path& path) {
    std::error_code unresolved;
    const fs::path folder =
        fs::canonical(path.has_parent_path() ? path.parent_path() : fs::path("."), unresolved);
    Descriptor opened = platform::openFolder(unresolved ? path.parent_path() : folder);
    check(opened ? 0 : errno, path, "its folder cannot be opened");
    return opened;
}

} // namespace

platform::SealedFile readCopy(const fs::path& path, std::uint64_t limit) {
    constexpr const char* failing = "cannot be copied to memory";
    std::error_code error;
    auto copy = platform::SealedFile::create("archive", error);
    check(error.value(), path, failing);
    readPieces(path, limit, [&](std::string_view piece) {
        check(copy.append(std::as_bytes(std::span(piece))).value(), path, failing);
    });
    check(copy.seal().value(), path, failing);
    return copy;
}

std::string readText(const fs::path& path, std::uint64_t limit) {
    std::string text;
    readPieces(path, limit, [&text](std::string_view piece) { text += piece; });
    return text;
}

void writeNewFile(const fs::path& path, std::string_view content, unsigned mode) {
    const int error =
        platform::writeNewFile(openFolderOf(path).get(), path.filename(), content, mode);
    if (error == EEXIST) {
        throw Failure(ExitCode::refused,
                      path.string() + ": there is such a file, and it is not overwritten");
    }
    check(error, path, "cannot be written");
}

void replaceFile(const fs::path& path, std::string_view content) {
    // A link stays one, and what it leads to is replaced.
    std::error_code error;
    const fs::path target = fs::weakly_canonical(path, error);
    const fs::path& place = error ? path : target;
    const fs::file_status status = fs::status(place, error);
    const auto mode = static_cast<unsigned>(status.permissions());
    check(platform::replaceFile(openFolderOf(place).get(), place.filename(), content,
                                fs::exists(status) ? mode : 0644U),
          path, "cannot be written");
}

Descriptor lockFolder(const fs::path& folder) {
    Descriptor opened = openFolderOf(folder / ".");
    check(platform::lock(opened.get(), platform::Sharing::exclusive, -1), folder,
          "cannot be locked");
    return opened;
}

} // namespace updates
