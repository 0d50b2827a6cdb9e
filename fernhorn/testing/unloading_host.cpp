// A host that opens a plug-in's window, unloads the plug-in, and goes on.
//
// Usage: fernhorn_unloading_host PLUGIN.

#include <QAccessible>
#include <QApplication>
#include <QPushButton>

#include <array>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool isMapped(const std::string& library) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(library) != std::string::npos) {
            return true;
        }
    }
    return false;
}

bool check(bool isTrue, const char* what) {
    std::fprintf(stderr, "%s: %s\n", isTrue ? "ok" : "FAILED", what);
    return isTrue;
}

template<class Function>
Function function(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

/// Whether a host without an application object is told what is missing.
bool saysWhatIsMissing(const char* plugin) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return false;
    }
    const pid_t host = fork();
    if (host == 0) {
        dup2(ends[1], STDERR_FILENO);
        void* const library = dlopen(plugin, RTLD_NOW | RTLD_LOCAL);
        _exit(library == nullptr ? 1 : function<int (*)()>(library, "openAndClose")());
    }
    close(ends[1]);
    std::string said;
    std::array<char, 256> part{};
    for (ssize_t got = 0; (got = read(ends[0], part.data(), part.size())) > 0;) {
        said.append(part.data(), static_cast<std::size_t>(got));
    }
    int end = 0;
    waitpid(host, &end, 0);
    std::fputs(said.c_str(), stderr);
    return WIFSIGNALED(end) && WTERMSIG(end) == SIGABRT &&
           said.find("before the application object") != std::string::npos;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    bool isGood = check(saysWhatIsMissing(argv[1]), "a host without an application object is told");
    const QApplication application(argc, argv);
    for (int i = 0; i < 2 && isGood; ++i) { // it may come again
        void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        isGood = check(function<std::size_t (*)()>(library, "firstWritesOfThreads")() == 0,
                       "an audio thread's first write allocates nothing");
        isGood = check(function<int (*)()>(library, "openAndClose")() == 2,
                       "the plug-in's controls are known to screen readers") &&
                 isGood;
        dlclose(library);
        isGood = check(!isMapped(argv[1]), "the plug-in is gone") && isGood;
        QPushButton button(QStringLiteral("Play"));
        const auto* const spoken = QAccessible::queryAccessibleInterface(&button);
        isGood = check(spoken != nullptr && spoken->text(QAccessible::Name) == button.text(),
                       "the host's own button is known") &&
                 isGood;
    }
    return isGood ? 0 : 1;
}
