#include "scan/listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::vector<std::string> sorted(std::vector<std::string> names) {
    scan::Listing listing;
    for (const std::string& name : names) listing.addFile(name, false);
    listing.sort();
    std::vector<std::string> inOrder;
    for (const auto& entry : listing.files()) inOrder.emplace_back(listing.name(entry));
    return inOrder;
}

TEST(Listing, OrdersByNameWithoutRegardToCase) {
    const std::vector<std::string> expected{".x",        "10", "9",    "a",  "A b", "abcdefgh", "ABCDEFGHa",
                                            "abcdefghB", "Ba", "zeta", "áb", "Ác",  "Ñu"};
    std::vector<std::string> shuffled = expected;
    for (int i = 0; i < 50; ++i) {
        std::ranges::rotate(shuffled, shuffled.begin() + 5);
        std::swap(shuffled.front(), shuffled[i % shuffled.size()]);
        EXPECT_EQ(sorted(shuffled), expected);
    }
}

TEST(Listing, OrdersSpellingsThatDifferInCaseByTheirBytes) {
    EXPECT_EQ(sorted({"readme", "README", "Readme"}),
              (std::vector<std::string>{"README", "Readme", "readme"}));
}

}  // namespace
