#pragma once

#include <optional>

#include "browse/listing_statements.h"
#include "browse/name_lists.h"
#include "browse/node_names.h"
#include "core/lookup.h"

namespace browse {

// The statements that a click on a folder lists by, and the `nivel` of their rows.
struct FolderListing {
    int nivel;
    ListingStatements listing;
};

// What a click on a folder of the tree lists; nothing when the names tell no depth for it.
[[nodiscard]] std::optional<FolderListing> clickedListing(const NameLists& lists, const NodeNames& node);

// What a click lists on a unit or folder that was found by its path, whatever other nodes its names would
// fit.
[[nodiscard]] ListingStatements listingOf(const core::FoundRow& place);

}  // namespace browse
