#pragma once

#include <optional>

#include "engine/rows/row_scan.h"

namespace engine {

// `delete ... where disco <> 'U'` on a scratch copy: when most rows go, the few that stay move into a new
// table that takes the old one's place, for a fraction of the cost. The new one has no index: the census is
// handed on, and for what else is asked of one unit an index costs more than it saves. Gives the number of
// rows deleted; nothing when the statement is another one, when it would not pay, or when it did not work:
// then every row is as it was.
[[nodiscard]] std::optional<long long> deleteAllButOneUnit(const Scan& scan);

}  // namespace engine
