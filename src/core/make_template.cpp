// Writes the empty catalogue that every new catalogue is a copy of. Run once by the build.

#include <cstdio>

#include "engine/maintenance.h"
#include "platform/files.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_template FILE\n", stderr);
        return 2;
    }
    const std::string path = argv[1];
    if (platform::FileExists(path) && !platform::DeleteFile(path)) {
        std::fprintf(stderr, "%s: cannot be replaced\n", path.c_str());
        return 1;
    }
    if (const auto made = engine::CreateDatabase(path); !made) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), made.error().text.c_str());
        return 1;
    }
    return 0;
}
