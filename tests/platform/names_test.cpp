#include "platform/names.h"

#include <gtest/gtest.h>

#include <QString>
#include <random>
#include <string>

namespace {

using platform::toCatalogueName;
using platform::toDiskName;

bool isUtf8(const std::string& text) {
    return QString::fromStdString(text).toStdString() == text;
}

TEST(Names, EachOddByteBecomesOneCharacter) {
    EXPECT_EQ(toCatalogueName("a\\b"), "a\uF05Cb");
    EXPECT_EQ(toCatalogueName("caf\xE9"), "caf\uF0E9");                          // Latin-1
    EXPECT_EQ(toCatalogueName("\xC0\xAF"), "\uF0C0\uF0AF");                      // overlong
    EXPECT_EQ(toCatalogueName("\xED\xA0\x80"), "\uF0ED\uF0A0\uF080");            // surrogate
    EXPECT_EQ(toCatalogueName("\xF4\x90\x80\x80"), "\uF0F4\uF090\uF080\uF080");  // behind the last character
    EXPECT_EQ(toCatalogueName("x\xE2\x82"), "x\uF0E2\uF082");                    // cut short
    EXPECT_EQ(toCatalogueName("\uF041"), "\uF0EF\uF081\uF081");                  // looks like an escape
    EXPECT_EQ(toCatalogueName("\uEFFF\uF100"), "\uEFFF\uF100");                  // its neighbours do not
}

TEST(Names, NoEscapeYieldsASeparatorOrANavigation) {
    for (const std::string hostile : {"\uF02F", "\uF02E\uF02E", "\uF000", "\uF041"})
        EXPECT_EQ(toDiskName(hostile), hostile);
}

TEST(Names, AnyBytesComeBack) {
    std::mt19937 random(20030517);
    // Mostly bytes that begin, continue or break UTF-8 sequences and escapes.
    const std::string pool = "a\\\xEF\x80\x81\x83\x84\xBF\xC2\xE0\xED\xA0\xF0\xF4\x90\xFF";
    for (int round = 0; round < 20'000; ++round) {
        std::string name;
        for (auto length = random() % 12; length > 0; --length)
            name += random() % 4 ? pool[random() % pool.size()] : char(random() % 255 + 1);
        const std::string stored = toCatalogueName(name);
        ASSERT_EQ(toDiskName(stored), name);
        ASSERT_TRUE(isUtf8(stored));
        ASSERT_EQ(stored.find('\\'), std::string::npos);
    }
}

}  // namespace
