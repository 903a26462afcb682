#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/database.h"

namespace duplicates {

struct Request {
    std::vector<std::string> discos{};  // to the letter; none: the whole catalogue
    std::int64_t leastKilobytes = 0;
    // What must agree: names without regard to case, sizes in KB, dates to the second.
    bool byName = true;
    bool bySize = true;
    bool byDate = false;
};

struct Copy {
    std::string_view disco;
    std::string_view ruta;
    std::string_view archivo;
    std::int64_t largo;
};

// Files that agree.
struct Group {
    std::int64_t largo = 0;        // of the largest copy
    std::int64_t waste = 0;        // KB that all copies but the largest take
    std::span<const Copy> copies;  // in the catalogue's order
};

// Finds the files of which a catalogue has more than one and hands them over group by group, the largest
// waste first, of equal waste in the catalogue's order. Two passes over the rows; memory grows with the
// number of rows by eight bytes, and with the files that have a twin by forty, the name of each and its
// folder.
[[nodiscard]] engine::Result<> find(engine::Database& database, const Request& request,
                                    const std::function<void(const Group&)>& take);

}  // namespace duplicates
