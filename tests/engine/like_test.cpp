#include "engine/text/like_pattern.h"

#include <gtest/gtest.h>

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

}  // namespace
