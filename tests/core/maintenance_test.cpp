#include "core/maintenance.h"

#include <gtest/gtest.h>

#include "core/units.h"
#include "support/catalogue_fixture.h"

namespace {

struct Maintenance : testing::Test {
    Maintenance() {
        const auto file = [](const char* disco, int largo) {
            return test::fileRow(disco, "C:\\x", "f", largo);
        };
        catalogue.add({test::folderRow("Fotos :", "C:\\x"), test::folderRow("Fotos :", "C:\\y"),
                       file("Fotos :", 100), file("Fotos :", 101), file("Fotos :", 102),
                       file("a* :", 100),  // only a label edit lets such a name through
                       test::folderRow("abc :", "C:\\x"), file("abc :", 100),
                       test::unitRow("Cds :", "Pelis", "Unidad de video")});
    }

    test::CatalogueFixture catalogue;
    engine::Database database = catalogue.open();

    std::vector<std::string> names() { return core::unitNames(database).value(); }
};

TEST_F(Maintenance, UnitsAreTheRowsThatShareADisco) {
    const auto units = core::units(database);
    ASSERT_TRUE(units) << units.error().text;
    ASSERT_EQ(units->size(), 4U);
    const core::Unit &cds = (*units)[2], &fotos = (*units)[3];
    EXPECT_EQ(cds.disco + cds.tipo, "Cds :Unidad de video");
    EXPECT_EQ(cds.picture, 9);
    EXPECT_EQ(cds.folders + cds.files + cds.kilobytes, 0);
    EXPECT_EQ(fotos.disco, "Fotos :");
    EXPECT_EQ(fotos.picture, 16);
    EXPECT_EQ(fotos.folders, 2);
    EXPECT_EQ(fotos.files, 3);
    EXPECT_EQ(fotos.kilobytes, 303);

    const auto counters = core::countAll(database);
    ASSERT_TRUE(counters) << counters.error().text;
    EXPECT_EQ(statusText(*counters, core::Language::English), "  Units: 4  Folders: 3  Files: 5");
}

TEST_F(Maintenance, AUnitsNameIsNoPatternWhenItIsDeleted) {
    ASSERT_TRUE(core::deleteUnit(database, "a* :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :", "Fotos :"}));
    ASSERT_TRUE(core::deleteUnit(database, "FOTOS :"));
    EXPECT_EQ(names(), (std::vector<std::string>{"abc :", "Cds :"}));
    EXPECT_FALSE(core::deleteUnit(database, "x') or ('a'='a"));
    EXPECT_EQ(names().size(), 2U);
    ASSERT_TRUE(core::deleteAll(database));
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(core::countAll(database)->contadorunidades, 0);
}

}  // namespace
