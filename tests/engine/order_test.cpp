#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/text/collation.h"

namespace {

std::string keyOf(const std::string& text) {
    std::string key;
    engine::appendSortKey(key, text).value();
    return key;
}

TEST(Order, IsSpanish) {
    const std::vector<std::string> sorted{"",      "_x", "(b)",   "1",    "10",   "2",  "a",   "á",   "ab",
                                          "ábaco", "b",  "Canto", "caña", "caño", "mz", "na",  "nz",  "ñ",
                                          "Ñandú", "o",  "ö",     "z",    "αβγ",  "άδ", "бык", "漢字"};
    const auto before = [](const std::string& a, const std::string& b) { return keyOf(a) < keyOf(b); };
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        EXPECT_TRUE(before(sorted[i], sorted[i + 1])) << sorted[i] << " " << sorted[i + 1];
    }
    EXPECT_TRUE(before("canz", "caña"));
    EXPECT_TRUE(before("(b)", "1"));
    EXPECT_EQ(keyOf("ÁRBOL"), keyOf("árbol"));
    EXPECT_EQ(keyOf("n\u0303"), keyOf("Ñ"));  // taken apart or in one piece
    EXPECT_TRUE(before("resume", "résumé"));
    EXPECT_TRUE(before("résumé", "resumen"));  // accents decide last
    EXPECT_EQ(keyOf(std::string("a\0\xff", 3)).find('\0'), keyOf(std::string("a\0\xff", 3)).size() - 1);
}

}  // namespace
