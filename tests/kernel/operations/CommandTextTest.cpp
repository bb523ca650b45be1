#include "kernel/operations/CommandText.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

TEST(CommandText, IsANameAndItsValues)
{
    EXPECT_TRUE(CommandText().isEmpty());
    CommandText const text = CommandText("work")
                                 .numbers("zones", {1, 2, 3, 7})
                                 .number("count", -3)
                                 .real("angle", 0.1)
                                 .reals("origin", {1, 2.5, -1e300})
                                 .flag("a", true)
                                 .flag("b", false)
                                 .word("plane", "X")
                                 .quoted("name", "left wing");
    EXPECT_FALSE(text.isEmpty());
    EXPECT_EQ("work zones=1:3,7 count=-3 angle=0.1 origin=1,2.5,-1e+300 a=yes b=no plane=X name=\"left wing\"",
              text.text());
}

TEST(CommandText, GathersNumbersThatFollowEachOther)
{
    EXPECT_EQ("", listText({}));
    EXPECT_EQ("5", listText({5}));
    EXPECT_EQ("4,5,9", listText({4, 5, 9}));
    EXPECT_EQ("1:3,7:9", listText({1, 2, 3, 7, 8, 9}));
}

TEST(CommandText, QuotesATextThatIsNotOneWord)
{
    EXPECT_EQ("plain", quotedWhereNeeded("plain"));
    EXPECT_EQ("a=b>c", quotedWhereNeeded("a=b>c"));
    EXPECT_EQ("\"\"", quotedWhereNeeded(""));
    EXPECT_EQ("\"a b\"", quotedWhereNeeded("a b"));
    EXPECT_EQ("\"a,b\"", quotedWhereNeeded("a,b"));
    EXPECT_EQ("\"#\"", quotedWhereNeeded("#"));
    EXPECT_EQ(R"("\"\\\n\t\r")", quotedWhereNeeded("\"\\\n\t\r"));
}

} // namespace veldraw::tests
