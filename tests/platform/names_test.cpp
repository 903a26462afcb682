#include "platform/names.h"

#include <gtest/gtest.h>

// Every name comes back as it was, which is tried with many at random.
namespace {

using platform::toStoredName;

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

}  // namespace
