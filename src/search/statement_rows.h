#pragma once

#include <string>
#include <vector>

#include "search/statement_row.h"

namespace search {

// All combinations that have a statement of their own, in the order family, case, pass, date, type.
[[nodiscard]] std::vector<StatementRow> allRows();

// A readable name of a row: "size+note/D/file/on/web".
[[nodiscard]] std::string nameOf(const StatementRow& row);

}  // namespace search
