#include "app/files/PlainText.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

TEST(PlainText, IsUtf8AndAnythingElseTakenAsLatin1)
{
    EXPECT_EQ(app::asUtf8("Str\xC3\xB6mung \xE6\xB5\x81"), "Str\xC3\xB6mung \xE6\xB5\x81");
    EXPECT_EQ(app::asUtf8("Str\xF6mung"), "Str\xC3\xB6mung");
    EXPECT_EQ(app::asUtf8("\xE6\xB5"), "\xC3\xA6\xC2\xB5") << "a letter that is cut off";
    EXPECT_EQ(app::asUtf8(""), "");
}

TEST(PlainText, IsShortenedBetweenLetters)
{
    EXPECT_EQ(app::shortened("abc", 3), "abc");
    EXPECT_EQ(app::shortened("abcd", 3), "abc...");
    EXPECT_EQ(app::shortened("ab\xC3\xA4z", 3), "ab...");
    EXPECT_EQ(app::shortened("\xC3\xA4\xC3\xA4", 2), "\xC3\xA4...");
}

TEST(PlainText, LosesBlanksAtItsEndsAlone)
{
    EXPECT_EQ(app::trimmed(" \t a b\r\n"), "a b");
    EXPECT_EQ(app::trimmed(" \n"), "");
}

} // namespace veldraw::tests
