#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace {

using Words = std::vector<const char*>;

std::expected<cli::Arguments, cli::UsageError> parsed(const Words& words) {
    return cli::parse(words);
}

TEST(Arguments, OperandsAreBytesAndMayLookLikeOptions) {
    const auto arguments = parsed({"add", "-c", "\xff\xfe", "--", "--json"});
    ASSERT_TRUE(arguments);
    EXPECT_EQ(arguments->operands, (std::vector<std::string>{"-c", "\xff\xfe", "--json"}));
    EXPECT_FALSE(arguments->json);
}

TEST(Arguments, OneLetterOptionsAreTheCommandsOwn) {
    const auto arguments = parsed({"list", "a", "b", "-0"});
    ASSERT_TRUE(arguments);
    EXPECT_TRUE(arguments->has("-0"));
    EXPECT_EQ(parsed({"list", "a", "b", "--", "-0"})->operands.back(), "-0");
    EXPECT_EQ(parsed({"rename", "a", "b", "-0"})->operands.back(), "-0");
}

TEST(Arguments, RefusesWhatItDoesNotKnow) {
    for (const Words& words : {Words{}, Words{"nothing"}, Words{"units"}, Words{"units", "a", "b"},
                               Words{"units", "a", "--kind", "b"}, Words{"--kind", "b", "units", "a"},
                               Words{"units", "a", "--json=yes"}, Words{"units", "a", "--lang"},
                               Words{"units", "a", "--lang", "fr"}, Words{"add", "a", "b", "c", "--kind"}})
        EXPECT_FALSE(parsed(words)) << (words.empty() ? "" : words.back());
    EXPECT_TRUE(parsed({"units", "--help"}));  // no operands needed
    EXPECT_TRUE(parsed({"-h"}));
    EXPECT_EQ(parsed({"--lang", "es", "units", "a"})->language, core::Language::Spanish);
    EXPECT_EQ(parsed({"nothing", "--lang", "es"}).error().language, core::Language::Spanish);
}

}  // namespace
