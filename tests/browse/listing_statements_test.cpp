#include "browse/listing_statements.h"

#include "browse/tree_loader.h"
#include "support/statement_list.h"

namespace {

constexpr auto unit = "U :", node = "n", ruta = R"(C:\a)";

// The statements of every way to a folder, at every level.
test::Statements listingStatements() {
    test::Statements statements;
    const auto add = [&](const std::string& way, const browse::ListingStatements& listing) {
        statements[way + "\tfolders"] = listing.folders;
        statements[way + "\tfiles"] = listing.files;
    };
    add("unit", browse::unitListing(unit));
    add("collapsed unit", browse::unitListing(unit, true));
    std::vector<std::string> chain;  // the ancestors below the unit, outermost first
    for (int level = 2; level <= 11; ++level) {
        const std::string at = ' ' + std::to_string(level);
        add("clicked" + at, browse::clickedFolderListing(level, unit, chain, node));
        add("raised" + at, browse::raisedFolderListing(level, unit, chain, node));
        add("stepped" + at, browse::steppedFolderListing(level, unit, ruta));
        add("stepped from results" + at, browse::steppedResultListing(level, unit, ruta, "a"));
        chain.push_back("f" + std::to_string(level));
        statements["tree" + at] = browse::foldersOfLevel(unit, level, chain);
    }
    statements["tree 1"] = browse::foldersOfLevel(unit, 1, {});
    statements["tree 1 by the combo"] = browse::foldersOfLevel(unit, 1, {}, browse::FirstLevel::FoldersOnly);
    statements["stepped lookup"] = browse::steppedFolderLookup("a", unit, ruta);
    statements["stepped from results lookup"] = browse::steppedResultLookup("a", unit, ruta);
    return statements;
}

TEST(ListingStatements, StandInTheList) {
    test::expectListed(listingStatements(), ZARQUELIN_TESTS "/browse/statements_expected.tsv");
}

}  // namespace
