#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What this program was built for: operating system and processor, such as "linux-x86_64". The one
/// name that archives, feeds and installations have for it. Any thread.
[[nodiscard]] std::string_view thisPlatform();

/// The file of this program, also after its folder was moved. A path that leads there, not the
/// file's own name. Any thread.
[[nodiscard]] std::filesystem::path programFile();

/// The arguments that this program was started with, byte for byte, without its name; whatever a
/// toolkit has taken from them since. Any thread.
[[nodiscard]] std::vector<std::string> programArguments();

/// Starts a program in a session of its own, so that it outlives this one; false where it cannot be
/// started. Any thread.
[[nodiscard]] bool startProgram(const std::filesystem::path& program,
                                const std::vector<std::string>& arguments);

/// False where it is certain that no window could be shown: the system names no screen, or the one
/// that it names does not take us. May take as long as a screen takes to answer. One thread.
[[nodiscard]] bool canShowWindows();

} // namespace platform
