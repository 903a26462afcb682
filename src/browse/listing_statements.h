#pragma once

#include <span>
#include <string>
#include <string_view>

namespace browse {

// The pair of statements that list what lies directly in a unit or folder: folders first, then files.
// Each way of reaching a folder has its own family of texts; the blanks differ from level to level.
struct ListingStatements {
    std::string folders;
    std::string files;
};

// Levels run from 2 to 11 throughout: the `nivel` of the rows that are listed.

// A unit's first level. The texts differ in one capital when the unit was clicked while collapsed.
[[nodiscard]] ListingStatements unitListing(std::string_view disco, bool collapsed = false);

// A folder clicked in the tree. `chain`: the ancestors below the unit, outermost first.
[[nodiscard]] ListingStatements clickedFolderListing(int level, std::string_view disco,
                                                     std::span<const std::string> chain,
                                                     std::string_view node);

// A folder reached by going up.
[[nodiscard]] ListingStatements raisedFolderListing(int level, std::string_view disco,
                                                    std::span<const std::string> chain,
                                                    std::string_view node);

// A folder stepped into from the browse list, and from the search list, by its row's `ruta`.
[[nodiscard]] ListingStatements steppedFolderListing(int level, std::string_view disco,
                                                     std::string_view ruta);
[[nodiscard]] ListingStatements steppedResultListing(int level, std::string_view disco, std::string_view ruta,
                                                     std::string_view name);

// The row of a folder that is about to be stepped into, for its `nivel`.
[[nodiscard]] std::string steppedFolderLookup(std::string_view name, std::string_view disco,
                                              std::string_view ruta);
[[nodiscard]] std::string steppedResultLookup(std::string_view name, std::string_view disco,
                                              std::string_view ruta);

}  // namespace browse
