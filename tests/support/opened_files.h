#pragma once

#include <string>
#include <vector>

#include "platform/shell_open.h"

namespace test {

// Writes down what the desktop was to open, and where.
struct OpenedFiles {
    OpenedFiles() {
        platform::setShellOpener([this](const std::string& target, const std::string& folder) {
            targets.push_back(target);
            folders.push_back(folder);
            return true;
        });
    }
    ~OpenedFiles() { platform::setShellOpener({}); }

    std::vector<std::string> targets, folders;
};

}  // namespace test
