#include "updates/publisher/appcast_tool.hpp"

#include <iostream>

int main(int argc, char** argv) {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
    return static_cast<int>(
        updates::runTool(words.empty() ? words : words.subspan(1), std::cout, std::cerr, now));
}
