#pragma once

#include <string>
#include <vector>

#include "lists/row_items.h"
#include "search/search_request.h"

namespace search {

using lists::NoteReading;

// One statement of a search and how its rows come into the list.
struct Pass {
    std::string sql;
    PassKind kind = PassKind::File;
    bool addsToCount = false;            // further statements of a split row; the others set their count
    FileType shownType = FileType::All;  // other than All: its picture and caption, whatever the name says
    NoteReading note = NoteReading::Read;
    bool silent = false;  // a refused statement skips the pass; of others it ends the search
};

// The passes of a search in the order in which they run: folders before files.
[[nodiscard]] std::vector<Pass> passesOf(const SearchRequest& request, const core::Rotulos& rotulos);

}  // namespace search
