// A host that opens a plug-in's window, unloads the plug-in, and goes on.
//
// Usage: fernhorn_unloading_host PLUGIN.

#include <QAccessible>
#include <QApplication>
#include <QPushButton>

#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <string>

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

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        return 2;
    }
    bool isGood = true;
    for (int i = 0; i < 2 && isGood; ++i) { // it may come again
        void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
        const auto openAndClose = reinterpret_cast<int (*)()>(dlsym(library, "openAndClose"));
        isGood = check(openAndClose != nullptr && openAndClose() == 2,
                       "the plug-in's controls are known to screen readers");
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
