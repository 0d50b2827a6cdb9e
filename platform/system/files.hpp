#pragma once

#include "platform/system/descriptor.hpp"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Files and folders by their descriptors: what was opened is what is changed, no path is walked
// twice, and no link is followed. Names are single names in the folder given. Access rights are
// exactly those that are asked for, whatever the umask. What returns an int returns 0 or an errno;
// what returns a descriptor or an optional leaves it in `errno`. Any thread.

namespace platform {

/// A folder; none where there is no such one, or a link in its place.
[[nodiscard]] Descriptor openFolder(const std::filesystem::path& path);
[[nodiscard]] Descriptor openFolder(int parent, const std::string& name);
/// Makes a folder that everybody may read. EEXIST where something has its name.
[[nodiscard]] int makeFolder(int parent, const std::string& name);
/// The names in a folder, in no order; empty where it cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(int folder);
/// Removes a file, a link or a folder with all that is in it. 0 where there is none.
[[nodiscard]] int removeTree(int parent, const std::string& name);

/// A file to read, without waiting for it should it be a pipe.
[[nodiscard]] Descriptor openFile(int folder, const std::string& name);
/// The same by a path, which may be one of a link.
[[nodiscard]] Descriptor openFile(const std::filesystem::path& path);
/// A new file to write. EEXIST where something has its name.
[[nodiscard]] Descriptor makeFile(int folder, const std::string& name, unsigned mode);
/// Whether only its owner can read and write an open file.
[[nodiscard]] bool isPrivate(int file);
/// The next bytes, up to the buffer's size; 0 of them at the end.
[[nodiscard]] int readSome(int file, std::span<char> buffer, std::size_t& count);
/// Hands the rest of a regular file to `take`, piece by piece; EFBIG when it is longer than `limit`
/// bytes, EINVAL for what is no regular file.
[[nodiscard]] int readAll(int file, std::uint64_t limit,
                          const std::function<void(std::string_view piece)>& take);
/// The whole of a small file; empty where it cannot be read.
[[nodiscard]] std::string contentOf(int folder, const std::string& name, std::uint64_t limit);
[[nodiscard]] int writeAll(int file, std::span<const std::byte> bytes);
[[nodiscard]] int writeAll(int file, std::string_view text);
/// Makes a new file, safe on the disk when it returns; nothing is left of a failure.
[[nodiscard]] int writeNewFile(int folder, const std::string& name, std::string_view content,
                               unsigned mode);
/// Replaces a file, or makes it: readers see the old content or the new one, whole, also after a
/// loss of power. Two at a time must be kept apart by a lock.
[[nodiscard]] int replaceFile(int folder, const std::string& name, std::string_view content,
                              unsigned mode);
/// What a file is called until it is in its place.
[[nodiscard]] std::string unfinishedName(const std::string& name);

/// Flushes everything of the file system that a file is on: one call for many files.
[[nodiscard]] int syncAll(int file);

enum class Sharing { shared, exclusive };

/// Locks an open file or folder, trying again for some tenths of a second (-1: as long as it
/// takes). EWOULDBLOCK where somebody else holds it.
[[nodiscard]] int lock(int file, Sharing sharing, int tenths = 0);
/// A file that is there to be locked, by nobody but its owner; made where there is none, and then
/// it belongs to the owner of the folder.
[[nodiscard]] Descriptor openLockFile(int folder, const std::string& name);

/// Who may do everything does from here on only what the owner of the folder may, and what it makes
/// belongs to them. Others stay who they are. For the whole process.
[[nodiscard]] int becomeOwnerOf(int folder);

} // namespace platform
