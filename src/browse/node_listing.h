#pragma once

#include <optional>
#include <span>
#include <string>

#include "browse/listing_statements.h"
#include "browse/name_lists.h"
#include "browse/node_names.h"
#include "engine/database.h"

namespace browse {

// The statements that a click on a folder lists by, and the `nivel` of their rows.
struct FolderListing {
    int nivel;
    Listing listing;
};

// What a click on a folder of the tree lists; nothing when the names tell no depth for it.
[[nodiscard]] std::optional<FolderListing> clickedListing(const NameLists& lists, const NodeNames& node);

// What a click lists on the node that the folders, outermost first, lead to in the freshly loaded tree of a
// unit. Case matters only where two spellings stand side by side. Nothing when no such node is in the tree;
// an empty Listing when the names tell no depth.
[[nodiscard]] engine::Result<std::optional<Listing>> nodeListing(engine::Database& database,
                                                                 const std::string& unit,
                                                                 std::span<const std::string> folders);

}  // namespace browse
