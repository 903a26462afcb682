#include "engine/text/like_pattern.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/rounds.h"

namespace {

bool like(std::string_view text, std::string_view pattern) {
    return engine::LikePattern(pattern).matches(text);
}

TEST(Like, FoldsCaseOverAllOfUnicodeAndKeepsAccents) {
    EXPECT_TRUE(like("AÑO NUEVO", "año*"));
    EXPECT_FALSE(like("ANO NUEVO", "año*"));
    EXPECT_TRUE(like("Ελλάδα", "*ΛΛ*"));
    EXPECT_TRUE(like("\u212A", "k"));             // the Kelvin sign is a k
    EXPECT_TRUE(like("ñ\u212Añ\u017F", "*k*S"));  // and the long s an s
    EXPECT_TRUE(like("Ñandú.JPG", "*nd*.jpg"));
    EXPECT_TRUE(like("xÉx", "x?x"));
    EXPECT_TRUE(like("😀a", "?A"));
    EXPECT_TRUE(like("Ñ", "[m-ñ]"));
}

TEST(Like, TakesAnyBytes) {
    EXPECT_TRUE(like("a\xff\xfe", "a??"));
    EXPECT_TRUE(like("\xc3", "\xc3"));
    EXPECT_FALSE(like("\xc3", "\xc4"));
    EXPECT_TRUE(like(std::string(5000, 'a') + "Z", "*z"));
    EXPECT_FALSE(like(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a?b*"));  // and in no time
}

// The meaning of a pattern, written out plainly for ASCII: slow, and obviously right.
bool likeReference(std::string_view text, std::string_view pattern) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (pattern.empty()) return text.empty();
    const char wanted = pattern.front();
    const std::string_view rest = pattern.substr(1);
    if (wanted == '*') {
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (likeReference(text.substr(i), rest)) return true;
        }
        return false;
    }
    if (wanted == '[' && rest.find(']') != rest.npos) {
        const std::size_t end = rest.find(']');
        std::string_view set = rest.substr(0, end);
        const std::string_view behind = rest.substr(end + 1);
        if (set.empty()) return likeReference(text, behind);
        const bool negated = set.size() > 1 && set.front() == '!';
        if (negated) set.remove_prefix(1);
        if (text.empty()) return false;
        bool inside = false;
        for (std::size_t i = 0; i < set.size();) {
            const bool range = i + 2 < set.size() && set[i + 1] == '-';
            inside |= lower(text[0]) >= lower(set[i]) && lower(text[0]) <= lower(set[range ? i + 2 : i]);
            i += range ? 3 : 1;
        }
        return inside != negated && likeReference(text.substr(1), behind);
    }
    if (text.empty()) return false;
    const bool one =
        wanted == '?' || (wanted == '#' ? text[0] >= '0' && text[0] <= '9' : lower(wanted) == lower(text[0]));
    return one && likeReference(text.substr(1), rest);
}

// Patterns against a plain reading of their meaning; and any bytes at all, which must only end well.
TEST(Like, MatchesAtRandomAsItReads) {
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

}  // namespace
