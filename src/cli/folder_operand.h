#pragma once

#include <string>

#include "cli/arguments.h"
#include "scan/exclusion.h"

namespace cli {

// What the commands that read a medium share.

inline constexpr core::Bilingual noFolder{"no es una carpeta", "is no folder"};

inline constexpr Option exclusionOptions[]{
    {"--exclude",
     "GLOB",
     {"sin los nombres que encajan en GLOB (*, ?, [ ])", "without names that match GLOB (*, ?, [ ])"},
     true},
    {"--no-hidden", "", {"sin nombres que empiezan por punto", "without names that begin with a dot"}}};

[[nodiscard]] scan::Exclusion exclusionOf(const Arguments& arguments);

// A folder without links, "." and "..", so that its rows name the drive that it is really on.
[[nodiscard]] std::string resolved(const std::string& folder);

}  // namespace cli
