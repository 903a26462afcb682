#pragma once

#include <optional>
#include "core/language.h"

#include "search/search_request.h"

namespace search {

// The procedures ask for the same things in words of their own; the English ones differ between them.
namespace messages {

inline constexpr core::Bilingual itemForName{"Introduzca el item a buscar.", "Write the item to search."};
inline constexpr core::Bilingual itemForNote{"Introduzca el item a buscar.", "Introduce the item to search."};
inline constexpr core::Bilingual itemForSize{"Introduzca el item a buscar.", "Introduce a item to search."};

inline constexpr core::Bilingual noteOnButton{"Introduzca la Nota a buscar.", "Introduce a note to search."};
inline constexpr core::Bilingual noteOnEnter{"Introduzca la Nota a buscar.", "Write the note to search."};
inline constexpr core::Bilingual noteForSize{"Introduzca la Nota a buscar.", "Introduzca la Nota a buscar."};

}  // namespace messages

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
