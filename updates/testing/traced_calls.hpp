#pragma once

// The calls of a program that change files, as the system call tracer `strace` lists them and makes
// them fail.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace updates::testing {

namespace fs = std::filesystem;

/// One call that changes something below the installation's root.
struct Call {
    std::string name;
    int ordinal = 0;  ///< it is the so manieth call of this name in the program
    std::string line; ///< as traced, with the paths of descriptors
};

inline const std::string tracedCalls =
    "openat,open,creat,write,pwrite64,writev,mkdirat,mkdir,renameat,renameat2,rename,symlinkat,"
    "symlink,linkat,link,unlinkat,unlink,rmdir,ftruncate,truncate,fchmod,fchmodat,chmod,fallocate,"
    "fsync,fdatasync,syncfs,sync,sync_file_range,copy_file_range,sendfile,utimensat,mknodat,fchown,"
    "fchownat";

/// The command that traces a program, and breaks one of its calls.
inline std::vector<std::string> traced(const fs::path& log, const std::string& injection = {}) {
    // Looking for leaks is impossible while another one traces.
    std::vector<std::string> command{
        "strace",     "-E", "ASAN_OPTIONS=detect_leaks=0", "-qq", "-y", "-s", "0", "-o",
        log.string(), "-e", "trace=" + tracedCalls};
    if (!injection.empty()) {
        command.insert(command.end(), {"-e", "inject=" + injection});
    }
    return command;
}

inline bool isRemoval(const std::string& call) {
    return call.starts_with("unlink") || call == "rmdir";
}

inline std::vector<Call> changes(const fs::path& log, const fs::path& root) {
    std::map<std::string, int> counts;
    std::vector<Call> calls;
    std::ifstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find('('));
        const int ordinal = ++counts[name];
        const bool isBelow = line.find(root.string()) != std::string::npos;
        const bool changes =
            name.rfind("open", 0) != 0 || line.find("O_CREAT") != std::string::npos;
        if (isBelow && changes) {
            calls.push_back({name, ordinal, line});
        }
    }
    return calls;
}

/// What a loss of power may undo: files whose content, and folders whose entries, were changed
/// since they were last flushed.
class Disk {
  public:
    void note(const Call& call) {
        if (isRemoval(call.name)) {
            return; // whether what nobody needs is still there does not matter
        }
        static const std::regex descriptor("<([^>]*)>");
        static const std::regex named("<([^>]*)>, \"([^\"]*)\"");
        std::smatch found;
        ASSERT_TRUE(std::regex_search(call.line, found, descriptor)) << call.line;
        const fs::path target = found[1].str();
        std::vector<fs::path> paths;
        for (auto match = std::sregex_iterator(call.line.begin(), call.line.end(), named);
             match != std::sregex_iterator(); ++match) {
            paths.push_back(fs::path((*match)[1].str()) / (*match)[2].str());
        }
        if (call.name == "syncfs") {
            changed_.clear();
        } else if (call.name == "fsync") {
            changed_.erase(target);
        } else if (call.name == "write") {
            changed_.insert(target);
        } else {
            for (const fs::path& path : paths) {
                changed_.insert(path.parent_path());
            }
            if (call.name == "openat" || call.name == "mkdirat") {
                changed_.insert(paths.at(0));
            }
        }
    }

    /// What is not safe of a folder and all in it.
    [[nodiscard]] std::vector<std::string> unsafeBelow(const fs::path& folder) const {
        std::vector<std::string> found;
        for (const fs::path& path : changed_) {
            if (path == folder || path.string().starts_with(folder.string() + '/')) {
                found.push_back(path);
            }
        }
        return found;
    }

  private:
    std::set<fs::path> changed_;
};

} // namespace updates::testing
