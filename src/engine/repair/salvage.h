#pragma once

#include <functional>

#include "engine/repair/raw_record.h"

namespace engine {

// Finds every row of the table that can still be read in a damaged file: first on the pages that the table's
// tree leads to, then on leaf pages that nothing leads to any more, but for those that the file calls free.
// Each row comes once. Stops when `take` gives false.
//
// `tableFound` is set when a page of the table was found, with or without rows.
struct Salvage {
    std::function<bool(const RawRow&)> take;
    bool tableFound = false;

    void run(const RawPages& pages);
};

}  // namespace engine
