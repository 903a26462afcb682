#pragma once

#include <string>
#include <vector>

#include "search/statement_row.h"

namespace search {

// The statements of a row in the order in which they run: one, or one per extension where the row is split.
[[nodiscard]] std::vector<std::string> statementsOf(const StatementRow& row, const StatementValues& values);

[[nodiscard]] bool isSplit(const StatementRow& row);

}  // namespace search
