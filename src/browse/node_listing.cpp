#include "browse/node_listing.h"

#include <span>

namespace browse {
std::optional<FolderListing> clickedListing(const NameLists& lists, const NodeNames& node) {
    const std::string disco = node.unit();
    const int level = lists.levelOf(disco, node.text, node.ancestors);
    if (level == 0) return std::nullopt;
    return FolderListing{level, clickedFolderListing(level, disco, node.chain(level), node.text)};
}

ListingStatements listingOf(const core::FoundRow& place) {
    if (place.kind == core::FoundRow::Unit) return unitListing(place.row.disco);
    const int level = static_cast<int>(place.folders.size()) + 1;
    // A click shows nothing of the deepest level; stepping into a folder would.
    if (level > NameLists::deepestListed) return steppedFolderListing(level, place.row.disco, place.row.ruta);
    const std::span chain(place.folders.begin(), place.folders.end() - 1);
    return clickedFolderListing(level, place.row.disco, chain, place.folders.back());
}

}  // namespace browse
