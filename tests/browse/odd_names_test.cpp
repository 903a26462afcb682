#include <gtest/gtest.h>

#include "browse/listing.h"
#include "browse/totals.h"
#include "browse/tree_loader.h"
#include "stats/statistics.h"
#include "support/catalogue_fixture.h"

namespace {

struct Folders : browse::FolderSink {
    std::string found;
    bool yieldAndTestStop() override { return false; }
    void addFolder(int nivel, std::string_view carpeta) override {
        found += std::to_string(nivel).append(carpeta) + ' ';
    }
};

std::string namesIn(engine::Database& database, const browse::Listing& listing) {
    std::string names;
    lists::RowMemory memory;
    EXPECT_TRUE(browse::list(database, listing, core::Language::English, memory,
                             [&](const lists::ListItem& item) { names += item.text + ' '; }));
    return names;
}

// Folders whose names read as patterns list, count and open like any other.
TEST(OddNames, StandForThemselves) {
    for (const std::string name : {"Music [2003]", "C# code", "what?", "[", "a]"}) {
        const test::CatalogueFixture catalogue;
        const std::string top = "E:\\" + name, inner = top + "\\in [x]#";
        catalogue.add({test::folderRow("U :", top), test::folderRow("U :", inner),
                       test::fileRow("U :", top, "a.mp3", 5), test::fileRow("U :", inner, "b [1].jpg", 7)});
        auto database = catalogue.open(engine::Use::ReadOnly);
        const std::string below[]{name};
        EXPECT_EQ(namesIn(database, browse::clickedFolderListing(2, "U :", {}, name)), "in [x]# a.mp3 ");
        EXPECT_EQ(namesIn(database, browse::raisedFolderListing(3, "U :", below, "in [x]#")), "b [1].jpg ");
        EXPECT_EQ(namesIn(database, browse::steppedFolderListing(2, "U :", top)), "in [x]# a.mp3 ");
        EXPECT_EQ(namesIn(database, browse::steppedResultListing(2, "U :", top, name)), "in [x]# a.mp3 ");
        EXPECT_FALSE(database.OpenRecordset(browse::steppedResultLookup(name, "U :", top)).value().Eof());
        EXPECT_EQ(browse::folderTotals(database, "U :", "\\" + name, 1), (browse::Totals{1, 2, 12}));
        const stats::Scope scope{"U :", "\\" + name};
        EXPECT_EQ(stats::countScope(database, scope, stats::TotalLimit::None).value().totalarchivos, 2);
        for (int round = 0; round < 2; ++round) {  // the second time from the rows of the first
            Folders folders;
            EXPECT_EQ(browse::loadFolders(database, "U :", browse::FirstLevel::NoFiles, folders),
                      browse::LoadEnd::Complete);
            EXPECT_EQ(folders.found, "1" + name + " 2in [x]# ");
        }
    }
}

TEST(Totals, OfAnyFileStayNumbers) {
    const test::CatalogueFixture catalogue;
    catalogue.add({test::fileRow("U :", "E:\\a", "x"), test::fileRow("U :", "E:\\a", "y"),
                   test::fileRow("U :", "E:\\a", "z")});
    auto database = catalogue.open();
    ASSERT_TRUE(database.Execute("update datos set largo = 9000000000000000000"));
    EXPECT_EQ(browse::clickedUnitTotals(database, "U :").value().kilobytes,
              std::numeric_limits<std::int64_t>::max());
}

}  // namespace
