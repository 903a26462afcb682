#pragma once

#include <functional>

#include "engine/repair/raw_record.h"

namespace engine {

// Finds every row of the table that can still be read in a damaged file: first on the pages that the table's
// tree leads to, then on leaf pages that nothing leads to any more, but for those that the file calls free.
// Each row comes once. False when not even an empty page of the table was found. Fails as `take` does; what
// cannot be read is told by `pages` alone.
[[nodiscard]] Result<bool> salvage(const RawPages& pages, const std::function<Result<>(const RawRow&)>& take);

}  // namespace engine
