#pragma once

#include "platform/system/descriptor.hpp"
#include "platform/system/sealed_file.hpp"

#include <filesystem>
#include <string>
#include <string_view>

// The publisher's program has one thread.
namespace updates {

/// A copy of a file in memory that does not change while it is looked at and signed. Fails for a
/// file of more than `limit` bytes.
[[nodiscard]] platform::SealedFile readCopy(const std::filesystem::path& path, std::uint64_t limit);

/// A text file of at most `limit` bytes.
[[nodiscard]] std::string readText(const std::filesystem::path& path, std::uint64_t limit);

/// Makes a new file with these access rights, safe on the disk when it returns. Fails where there
/// is a file already; nothing is left behind after a failure.
void writeNewFile(const std::filesystem::path& path, std::string_view content, unsigned mode);

/// Replaces a file, or makes it: readers see the old content or the new one, whole, also after a
/// power cut. Access rights stay as they were.
void replaceFile(const std::filesystem::path& path, std::string_view content);

/// Keeps other runs of the program from changing files of the folder, as long as the descriptor
/// lives; waits for its turn.
[[nodiscard]] platform::Descriptor lockFolder(const std::filesystem::path& folder);

} // namespace updates
