#include "platform/names.h"

#include <gtest/gtest.h>

#include <QString>
#include <random>
#include <string>

namespace {

using platform::toDiskName;
using platform::toStoredName;

bool isUtf8(const std::string& text) {
    return QString::fromStdString(text).toStdString() == text;
}

TEST(Names, EachOddByteBecomesOneCharacter) {
    EXPECT_EQ(toStoredName("a\\b"), "a\uF05Cb");
    EXPECT_EQ(toStoredName("caf\xE9"), "caf\uF0E9");                          // Latin-1
    EXPECT_EQ(toStoredName("\xC0\xAF"), "\uF0C0\uF0AF");                      // overlong
    EXPECT_EQ(toStoredName("\xED\xA0\x80"), "\uF0ED\uF0A0\uF080");            // surrogate
    EXPECT_EQ(toStoredName("\xF4\x90\x80\x80"), "\uF0F4\uF090\uF080\uF080");  // behind the last character
    EXPECT_EQ(toStoredName("x\xE2\x82"), "x\uF0E2\uF082");                    // cut short
    EXPECT_EQ(toStoredName("\uF041"), "\uF0EF\uF081\uF081");                  // looks like an escape
    EXPECT_EQ(toStoredName("\uEFFF\uF100"), "\uEFFF\uF100");                  // its neighbours do not
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
        const std::string stored = toStoredName(name);
        ASSERT_EQ(toDiskName(stored), name);
        ASSERT_TRUE(isUtf8(stored));
        ASSERT_EQ(stored.find('\\'), std::string::npos);
    }
}

}  // namespace
