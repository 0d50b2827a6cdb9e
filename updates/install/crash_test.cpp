// What is left when the helper, the launcher or a starting program is killed at any of its calls
// that change a file, or when such a call fails; and whether what was renamed was on the disk
// before. The system call tracer `strace` lists the calls and makes them fail.
#include "updates/testing/install_testing.hpp"
#include "updates/testing/traced_calls.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <functional>

namespace updates::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::Optional;

/// A scenario: what is there before, which program is broken, and what the next start may be.
struct Scenario {
    const char* what;
    std::function<void(const InstalledCopy&)> prepare;
    std::function<std::optional<InstallMessage>(const InstalledCopy&, std::vector<std::string>)>
        run;
    std::string before;
    std::string after;
};

void PrintTo(const Scenario& scenario, std::ostream* stream) {
    *stream << scenario.what;
}

std::optional<InstallMessage> install110(const InstalledCopy& copy,
                                         std::vector<std::string> before) {
    static const auto archive = makeArchive(goodUpdate("1.1.0", workingProgram()), Packing::xz);
    return HelperRun(goodRequest(copy, archive, "1.1.0"), archive, std::move(before)).install();
}

std::optional<InstallMessage> startIt(const InstalledCopy& copy, std::vector<std::string> before) {
    before.push_back(copy.launcher());
    Child(before).finish();
    return std::nullopt;
}

void expectWhole(const InstalledCopy& copy, const Scenario& scenario,
                 const std::map<std::string, std::map<std::string, std::string>>& whole) {
    std::string started = runProgram({copy.launcher()}).output;
    EXPECT_THAT(started, AnyOf(scenario.before + '\n', scenario.after + '\n'));
    started.pop_back();
    EXPECT_EQ(copy.current(), "versions/" + started);
    for (const std::string& version : copy.versions()) {
        const auto expected = whole.find(version);
        ASSERT_NE(expected, whole.end()) << version;
        EXPECT_EQ(treeContent(copy.root() / "versions" / version), expected->second) << version;
    }
    // Started once more, what a broken start left is gone as well.
    EXPECT_EQ(runProgram({copy.launcher()}).output, started + '\n');
    for (const char* const leftover : {"staging", "state/record.new", "state/current.new"}) {
        EXPECT_FALSE(fs::exists(copy.root() / leftover)) << leftover;
    }
}

class Crash : public ::testing::TestWithParam<Scenario> {};

TEST_P(Crash, LeavesAWholeVersionWhereverItStrikes) {
    const Scenario& scenario = GetParam();
    std::map<std::string, std::map<std::string, std::string>> whole;
    std::vector<Call> calls;
    const fs::path logFolder =
        fs::temp_directory_path() / ("larkvox-trace-" + std::to_string(getpid()));
    fs::create_directory(logFolder);
    const fs::path log = logFolder / "log";
    const InstalledCopy prepared;
    scenario.prepare(prepared);
    {
        const InstalledCopy copy(prepared);
        for (const std::string& version : copy.versions()) {
            whole[version] = treeContent(copy.root() / "versions" / version);
        }
        scenario.run(copy, traced(log));
        for (const std::string& version : copy.versions()) {
            whole[version] = treeContent(copy.root() / "versions" / version);
        }
        EXPECT_EQ(runProgram({copy.launcher()}).output, scenario.after + '\n');
        calls = changes(log, copy.root());
    }
    ASSERT_GT(calls.size(), 3U);
    int refusals = 0;
    for (const Call& call : calls) {
        const std::string when = ":when=" + std::to_string(call.ordinal);
        for (const std::string& fault : {std::string("signal=KILL"), std::string("error=ENOSPC"),
                                         std::string("error=EROFS")}) {
            if (fault == "error=EROFS" && call.name != "mkdirat") {
                continue; // the same paths; one kind of call is enough for the name of the fault
            }
            SCOPED_TRACE(fault + " at " + call.line);
            const InstalledCopy copy(prepared);
            const auto said = scenario.run(copy, traced(log, call.name + ':' + fault + when));
            const std::string current = copy.current();
            if (const auto refused = faultOf(said)) {
                ++refusals;
                EXPECT_EQ(*refused, fault == "error=EROFS" ? UpdateProblem::readOnly
                                                           : UpdateProblem::noSpace);
                EXPECT_EQ(current, "versions/" + scenario.before);
                if (!isRemoval(call.name)) { // or it is what could not be removed
                    EXPECT_FALSE(fs::exists(copy.root() / "staging"));
                }
            } else if (said && std::holds_alternative<InstallDone>(*said)) {
                EXPECT_EQ(current, "versions/" + scenario.after);
            }
            expectWhole(copy, scenario, whole);
        }
    }
    std::printf("%s: %zu calls broken, %d refusals\n", scenario.what, calls.size(), refusals);
    fs::remove_all(logFolder);
}

const Scenario scenarios[] = {
    {"install", [](const InstalledCopy&) {}, install110, "1.0.0", "1.1.0"},
    {"installOverLeftovers",
     [](const InstalledCopy& copy) {
         // An update that was cut off just before its version became the current one.
         fs::create_directory(copy.root() / "state");
         for (const char* const lock : {"state/update.lock", "state/record.lock"}) {
             std::ofstream(copy.root() / lock) << "";
         }
         fs::create_directories(copy.root() / "staging/tree/share");
         fs::create_directories(copy.root() / "versions/1.1.0/bin");
         std::ofstream(copy.root() / "versions/1.1.0/bin/larkvox") << "half of";
     },
     install110, "1.0.0", "1.1.0"},
    {"startOnTrial", [](const InstalledCopy& copy) { installUpdate(copy, "1.1.0"); }, startIt,
     "1.1.0", "1.1.0"},
    {"goBack",
     [](const InstalledCopy& copy) {
         installUpdate(copy, "1.1.0", brokenProgram());
         startIt(copy, {});
         startIt(copy, {});
     },
     startIt, "1.0.0", "1.0.0"},
    {"tidyUp",
     [](const InstalledCopy& copy) {
         installUpdate(copy, "1.1.0");
         startIt(copy, {});
         installUpdate(copy, "1.2.0");
         fs::create_directories(copy.root() / "staging/tree/share");
     },
     startIt, "1.2.0", "1.2.0"},
};

INSTANTIATE_TEST_SUITE_P(Everywhere, Crash, ::testing::ValuesIn(scenarios),
                         [](const auto& row) { return row.param.what; });

TEST(PowerLoss, FindsEverythingOnTheDiskThatARenameMakesVisible) {
    const InstalledCopy copy;
    const fs::path log = copy.root().parent_path() / "log";
    ASSERT_THAT(install110(copy, traced(log)), Optional(InstallMessage(InstallDone{"1.1.0"})));
    const fs::path& root = copy.root();
    const fs::path state = root / "state";
    Disk disk;
    std::vector<std::string> renamed;
    const std::vector<std::string> none;
    for (const Call& call : changes(log, root)) {
        SCOPED_TRACE(call.line);
        if (call.name == "renameat") {
            const auto end = call.line.rfind('"');
            const auto begin = call.line.rfind('"', end - 1) + 1;
            renamed.push_back(call.line.substr(begin, end - begin));
            if (renamed.back() == "1.1.0") {
                EXPECT_EQ(disk.unsafeBelow(root / "staging/tree"), none);
            } else if (renamed.back() == "record") {
                EXPECT_EQ(disk.unsafeBelow(root / "versions"), none);
                EXPECT_EQ(disk.unsafeBelow(state / "record.new"), none);
            } else if (renamed.back() == "current") {
                EXPECT_EQ(disk.unsafeBelow(root / "versions"), none);
                EXPECT_EQ(disk.unsafeBelow(state / "record"), none);
                // Only the new pointer itself is on its way there.
                EXPECT_THAT(disk.unsafeBelow(state), ::testing::ElementsAre(state.string()));
            }
        }
        disk.note(call);
        if (!renamed.empty() && renamed.back() == "current" && call.name == "fsync") {
            EXPECT_EQ(disk.unsafeBelow(root / "versions"), none);
            EXPECT_THAT(disk.unsafeBelow(root), ::testing::Not(::testing::Contains(root.string())));
            renamed.emplace_back("flushed");
        }
    }
    EXPECT_THAT(renamed, ::testing::ElementsAre("1.1.0", "record", "current", "flushed"));
}

} // namespace
} // namespace updates::testing
