// Writes the description of the plug-in into the folder that is named.

#include "plugin/lv2/turtle.hpp"

#include <cstdio>
#include <fstream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("larkvox_describe FOLDER\n", stderr);
        return 2;
    }
    const std::string folder(argv[1]);
    std::ofstream manifest(folder + "/manifest.ttl");
    manifest << larkvox::manifestTurtle();
    std::ofstream plugin(folder + "/larkvox.ttl");
    plugin << larkvox::pluginTurtle();
    manifest.close();
    plugin.close();
    return manifest && plugin ? 0 : 1;
}
