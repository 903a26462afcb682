#pragma once

#include "lists/row_items.h"
#include "search/passes.h"

namespace search {

// The item of ListView2 for the current row of a pass.
[[nodiscard]] lists::ListItem resultItem(const engine::Recordset& row, const Pass& pass,
                                         core::Language language, lists::RowMemory& memory);

}  // namespace search
