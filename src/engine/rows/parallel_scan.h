#pragma once

#include <optional>
#include <string>

#include "engine/rows/row_scan.h"

namespace engine {

// The statement of a pass over part of the table: its first two values are the first and the last rowid.
struct RangeStatement {
    std::string sql;
    std::vector<BoundValue> values;
};

// A pass over a large range of rows on several threads, each with a connection of its own that reads the same
// state of the file. The rows come sorted. Nothing when one thread will do, or when others cannot see what
// this connection sees.
[[nodiscard]] std::optional<Result<CollectedRows>> collectInParallel(const Scan& scan,
                                                                     const RangeStatement& statement,
                                                                     std::int64_t firstRow,
                                                                     std::int64_t lastRow);

}  // namespace engine
