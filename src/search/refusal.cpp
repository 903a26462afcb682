#include "search/refusal.h"

namespace search {

std::optional<SearchRefusal> refusalOf(const SearchRequest& request, Road road) {
    using namespace messages;
    if (request.note && request.noteText.empty())
        return SearchRefusal{road == Road::Button ? noteOnButton : noteForSize};
    if (!request.name.empty()) return std::nullopt;
    if (request.size || road == Road::Straight) return SearchRefusal{itemForSize, true};
    return SearchRefusal{request.note ? itemForNote : itemForName, true};
}

}  // namespace search
