#pragma once

#include "updates/archive/archive_manifest.hpp"
#include "updates/feed/appcast_reader.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The publisher's program has one thread.
namespace updates {

/// The name of the file that an address ends in, with its %-signs resolved; empty when there is
/// none that could be a name in a folder.
[[nodiscard]] std::string fileNameIn(std::string_view address);

/// The address of a file in the folder at `base`, an address that ends in "/"; any other address is
/// the file's own.
[[nodiscard]] std::string addressOf(std::string_view base, const std::string& fileName);

/// Whether archives for these systems can be for the same machine ("linux" and "linux-x86_64" can).
[[nodiscard]] bool isForSameSystem(std::string_view os, std::string_view otherOs);

/// What is wrong with a feed and the archives in the folder, one sentence each; nothing when every
/// item can be published. Nothing is fetched. The keys are in base64: the one that signs, and one
/// that archives may trust in its place, which may be empty.
[[nodiscard]] std::vector<std::string> problemsOf(const updates::Appcast& appcast,
                                                  const std::filesystem::path& archives,
                                                  const std::string& publicKey,
                                                  const std::string& newKey);

/// Nothing when copies that install the archive can be updated with one of the keys later; else
/// what is wrong.
[[nodiscard]] std::optional<std::string> keyProblem(const ArchiveManifest& manifest,
                                                    const std::string& publicKey,
                                                    const std::string& newKey);

} // namespace updates
