// The program in the installations of the tests: does with its installation what a program does.
// test_program PROGRAM-FILE ARGUMENTS…
#include "updates/install/installation.hpp"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string_view>

int main(int argc, char** argv) {
    const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
    const updates::RunningCopy running(arguments[1]);
    const updates::Installation installation =
        updates::examineInstallation(arguments[1], {"/nowhere", "/nowhere"});
    std::printf("%s", installation.runningVersion.c_str());
    for (const char* const argument : arguments.subspan(2)) {
        std::printf(" [%s]", argument);
    }
    std::printf("%s\n", running.holds() ? "" : " unlocked");
    std::fflush(stdout);
    if (!updates::confirmStart(installation)) {
        std::puts("not confirmed");
    }
    updates::removeLeftovers(installation);
    if (std::ranges::find(arguments, std::string_view("--stay")) != arguments.end()) {
        std::puts("stays");
        std::fflush(stdout);
        std::getchar();
    }
    return 0;
}
