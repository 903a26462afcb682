#pragma once

#include <optional>

#include "search/search_request.h"

namespace search {

// The two roads into a search. The straight one, Enter in a size or combo field with the size box on, neither
// resets the counters nor shows the busy pointer, and words its messages differently.
enum class Road { Button, Straight };

// Why a request isn't run.
struct SearchRefusal {
    core::Bilingual message;
    bool asksForName = false;  // the name field gets the focus once the message is confirmed
};
[[nodiscard]] std::optional<SearchRefusal> refusalOf(const SearchRequest& request, Road road);

}  // namespace search
