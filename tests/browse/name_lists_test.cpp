#include "browse/name_lists.h"

#include <gtest/gtest.h>

namespace browse {
namespace {

using Ancestors = std::vector<std::string>;

NameLists listsOfTwoUnits() {
    NameLists lists;
    lists.addUnit("Fotos :");
    lists.addUnit("Musica :");
    lists.addFolder(2, "Fotos :", "2003");
    lists.addFolder(3, "Fotos :", "playa");
    lists.addFolder(2, "Musica :", "Fotos :");
    lists.addFolder(3, "Musica :", "2003");
    return lists;
}

TEST(NameLists, UnitsAreTheirWholeNames) {
    const NameLists lists = listsOfTwoUnits();
    EXPECT_TRUE(lists.isUnit("Fotos :"));
    EXPECT_FALSE(lists.isUnit("Fotos"));
    EXPECT_FALSE(lists.isUnit("fotos :"));
    EXPECT_EQ(lists.listanivel(1), R"( \\ Fotos : \\  \\ Musica : \\ )");
}

TEST(NameLists, LevelsComeFromTheNamesOfNodeAndAncestors) {
    const NameLists lists = listsOfTwoUnits();
    EXPECT_EQ(lists.levelOf("Fotos :", "2003", Ancestors{"Fotos :"}), 2);
    EXPECT_EQ(lists.levelOf("Fotos :", "playa", Ancestors{"2003", "Fotos :"}), 3);
    EXPECT_EQ(lists.levelOf("Fotos :", "Fotos :", Ancestors{"Fotos :"}), 0) << "which another unit holds";
    // The name is right but its ancestor is no unit.
    EXPECT_EQ(lists.levelOf("Fotos :", "2003", Ancestors{"elsewhere"}), 0);
}

TEST(NameLists, ARepeatedNameGivesTheLowestDepthThatHolds) {
    NameLists lists;
    lists.addUnit("U :");
    lists.addFolder(2, "U :", "a");
    lists.addFolder(3, "U :", "a");
    lists.addFolder(4, "U :", "b");
    // A node "a" under "a": its parent's name is no unit's, so depth 2 does not hold.
    EXPECT_EQ(lists.levelOf("U :", "a", Ancestors{"a", "U :"}), 3);
    // At depth 3 and below, the name may end another folder's.
    lists.addFolder(3, "U :", "old b");
    EXPECT_EQ(lists.levelOf("U :", "b", Ancestors{"a", "U :"}), 3);
    EXPECT_EQ(lists.levelOf("U :", "b", Ancestors{"a", "a", "U :"}), 4);
}

}  // namespace
}  // namespace browse
