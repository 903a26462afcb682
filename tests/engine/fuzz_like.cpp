#include <gtest/gtest.h>

#include "engine/text/like_pattern.h"
#include "like_reference.h"
#include "support/rounds.h"

// Patterns against a plain reading of their meaning; and any bytes at all, which must only end well.
TEST(Fuzz, PatternsMatchAsTheyRead) {
    const auto textPieces = test::parts("a|B|b|c|1|.|-|]|!|*|jpg");
    const auto patternPieces = test::parts("a|b|C|*|*|?|#|[a-c]|[!b]|[a-]|[*]|[!]|[|]|[]|-|jpg|1");
    const auto bytes = test::parts("\xff|\xc3|\xb1|ñ|Ñ|ſ|K|a|*|[|😀|\xed\xa0\x80|?");
    std::mt19937 random = test::seeded();
    for (int i = test::rounds(100'000); i > 0; --i) {
        const std::string text = test::randomText(random, textPieces, 9);
        const std::string pattern = test::randomText(random, patternPieces, 7);
        ASSERT_EQ(engine::LikePattern(pattern).matches(text), likeReference(text, pattern))
            << text << pattern;
        (void)engine::LikePattern(test::randomText(random, bytes, 9))
            .matches(test::randomText(random, bytes, 9));
    }
}
