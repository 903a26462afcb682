#pragma once

#include <expected>
#include <string>

namespace mount {

// Shows a catalogue as a read-only file system in a folder, until it is unmounted or the program told to end
// (SIGINT, SIGTERM, SIGHUP). In the background the program detaches as soon as the file system is there: its
// parent ends with status 0, and what returns is the child. Both paths are absolute. The error tells why it
// could not be mounted.
struct Session {
    std::string catalogue;
    std::string folder;
    bool foreground = false;

    [[nodiscard]] std::expected<void, std::string> serve() const;
};

}  // namespace mount
