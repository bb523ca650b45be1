#include "app/files/CommentValue.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using app::commentValue;
using app::textOfCommentValue;

TEST(CommentValue, IsTheTextItselfWhereThatStandsOnALine)
{
    for (char const* text : {"", "1.5", "two words", "a \"quoted\" word", "back\\slash", "ends with \"", "# = :"}) {
        EXPECT_EQ(commentValue(text), text);
        EXPECT_EQ(textOfCommentValue(text), text);
    }
}

TEST(CommentValue, HasQuotesWhereTheTextWouldNotComeBackOtherwise)
{
    EXPECT_EQ(commentValue(" a"), "\" a\"");
    EXPECT_EQ(commentValue("a\nb\\"), "\"a\\nb\\\\\"");
    EXPECT_EQ(commentValue("\"a\""), "\"\\\"a\\\"\"");
    EXPECT_EQ(textOfCommentValue("\"a\""), "\"a\"") << "somebody else's quotes";
    EXPECT_EQ(textOfCommentValue("\"C:\\own\""), "\"C:\\own\"") << "somebody else's backslash";
}

TEST(CommentValue, BringsBackAnyText)
{
    std::mt19937 random(7);
    std::string const letters = "ab \t\n\r\"\\nrt#=:\xC3\xA4";
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        for (auto length = random() % 6; length > 0; --length)
            text += letters[random() % letters.size()];
        std::string const value = commentValue(text);
        ASSERT_EQ(value.find_first_of("\n\r"), std::string::npos) << value;
        ASSERT_EQ(textOfCommentValue(value), text) << value;
    }
}

} // namespace veldraw::tests
