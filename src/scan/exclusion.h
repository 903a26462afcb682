#pragma once

#include <string>
#include <vector>

namespace scan {

// What a scan leaves out, by bare names. In a pattern `*` stands for any run of characters, `?` for one and
// `[ ]` for one of a set; upper and lower case are the same, as in a search.
struct Exclusion {
    std::vector<std::string> patterns;
    bool hidden = false;  // names that begin with a dot

    [[nodiscard]] bool excludes(const char* diskName) const;
};

}  // namespace scan
