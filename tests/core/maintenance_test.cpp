#include "core/maintenance.h"

#include <gtest/gtest.h>

#include "core/units.h"
#include "support/catalogue_fixture.h"

namespace {

TEST(Maintenance, AUnitsNameIsNoPatternWhenItIsDeleted) {
    const test::CatalogueFixture catalogue;
    for (const char* disco :
         {"Fotos :", "a* :", "abc :", "Cds :"})  // only a label edit lets the star through
        catalogue.add(test::fileRow(disco, "C:\\x", "f"));
    auto database = catalogue.open();
    const auto names = [&database] { return core::unitNames(database).value(); };
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
