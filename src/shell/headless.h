#pragma once

#include <string>

namespace shell {

// The main job without a user: a folder becomes a unit of a catalogue through the window's own controls, and
// a picture shows the window with the unit's content. All paths are native.
struct HeadlessJob {
    std::string catalogue;  // made when it does not exist
    std::string folder;     // empty: only show what the catalogue holds
    std::string picture;    // a PNG file
};

// The exit status: 0, or 1 with a line on stderr.
[[nodiscard]] int runHeadless(const HeadlessJob& job);

}  // namespace shell
