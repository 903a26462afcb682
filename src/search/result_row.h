#pragma once

#include <string>

#include "core/language.h"
#include "engine/recordset.h"
#include "lists/list_item.h"
#include "search/passes.h"

namespace search {

// What rows leave behind for the rows after them, across searches.
struct RowMemory {
    std::string notafila;     // note of the last row shown
    std::string tipocarpeta;  // caption of the last folder; a row of unknown kind shows it again
};

// The item of ListView2 for the current row of a pass.
[[nodiscard]] lists::ListItem resultItem(const engine::Recordset& row, const Pass& pass,
                                         core::Language language, RowMemory& memory);

}  // namespace search
