#pragma once

#include <algorithm>
#include <iterator>

#include "support/parts.h"

namespace test {

// Names of a disk as no sane person gives them: one for every byte, the longest, and what looks like
// something else.
inline Parts hostileNames() {
    Parts names;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '.') names.emplace_back(1, static_cast<char>(byte));
    for (const char longest : {'\'', '\\', '\xff'}) names.push_back(std::string(255, longest));
    std::ranges::copy(
        parts(
            "...| |-rf|~|*|[a|%s%n|a\nb|'); delete * from datos; --|$(x);--*?[#|''\\'\n\xff'|\xc2\xb4 alone|"
            "\xc3\xb1\xc3|\xed\xa0\x80|\xef\xbb\xbf begins with a mark|\xf0\x9f\x98\x80'\x7f\"%|"
            "\xf4\x90\x80\x80|\u202eexe.txt|C:|C:\\x|\xef\x80\xaf|\xef\x80\xa7\\\xef\x80\xa7"),
        std::back_inserter(names));
    std::ranges::sort(names);
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

}  // namespace test
