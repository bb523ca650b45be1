#include "operations/Script.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace operations;

TEST(Script, IsACommandALine)
{
    auto const commands = readScript("# clean up\n\nsmooth zone=1 variable=p\n  delete-variables variables=q  # old\n");
    ASSERT_EQ(2u, commands.size());
    EXPECT_EQ("smooth", commands[0].name);
    EXPECT_EQ(3, commands[0].place.line);
    EXPECT_EQ("delete-variables", commands[1].name);
    EXPECT_EQ(4, commands[1].place.line);
    EXPECT_EQ(3, commands[1].place.column);
}

TEST(Script, MayEndWithoutTheEndOfItsLine)
{
    EXPECT_EQ(1u, readScript("smooth zone=1").size());
    EXPECT_EQ(0u, readScript("").size());
    EXPECT_EQ(0u, readScript("\n\n").size());
}

TEST(Script, MayComeFromWindows)
{
    auto const commands = readScript("\xEF\xBB\xBFset-title title=a\r\nset-title title=\"b c\"\r\n\r\n");
    ASSERT_EQ(2u, commands.size());
    EXPECT_EQ("set-title", commands[0].name);
    EXPECT_EQ("a", commands[0].arguments[0].text());
    EXPECT_EQ("b c", commands[1].arguments[0].text());
    EXPECT_EQ(1, commands[0].place.column);
}

TEST(Script, IsRefusedWithTheLineThatIsWrong)
{
    auto const placeOfProblem = [](std::string const& text) {
        try {
            readScript(text);
        } catch (CommandError const& error) {
            return error.place().line;
        }
        return 0;
    };
    EXPECT_EQ(2, placeOfProblem("smooth zone=1\nsmooth zone\n"));
    EXPECT_EQ(3, placeOfProblem(std::string("\n\nset-title title=a\0b\n", 21)));
    EXPECT_EQ(1, placeOfProblem("set-title title=\"a\nb\"\n")) << "a text ends with its line";
}

} // namespace veldraw::tests
