#include "operations/Arguments.h"

#include "kernel/data/DataSet.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace operations;

namespace {

std::vector<Parameter> const parameters{
    parameter("count", ParameterKind::Whole, "A count.").within(1, 9),
    parameter("weight", ParameterKind::Real, "A weight.").startingWith("0.5").above(0, 0.95),
    parameter("origin", ParameterKind::Place, "A place.").startingWith("0,0,0"),
    parameter("axis", ParameterKind::Direction, "An axis.").startingWith("Z"),
    choice("window", {"hann", "hamming"}, "A window.").startingWith("hann"),
    parameter("shared", ParameterKind::Flag, "A flag.").startingWith("no"),
    parameter("title", ParameterKind::Text, "A text.").startingWith(""),
    parameter("file", ParameterKind::File, "A file.").startingWith("")};

Arguments read(std::string const& text)
{
    return readArguments(parameters, *readCommand("work " + text), nullptr);
}

std::string refusalOf(std::string const& text)
{
    try {
        read(text);
    } catch (CommandError const& error) {
        return std::to_string(error.place().column) + ' ' + error.what();
    }
    return "none";
}

using Triple = Arguments::Triple;

} // namespace

TEST(Arguments, StartWithTheValuesOfTheirParameters)
{
    Arguments const arguments = read("count=3");
    EXPECT_EQ(3, arguments.number("count"));
    EXPECT_EQ(0.5, arguments.real("weight"));
    EXPECT_EQ((Triple{0, 0, 0}), arguments.triple("origin"));
    EXPECT_EQ((Triple{0, 0, 1}), arguments.triple("axis"));
    EXPECT_EQ(0, arguments.choice("window"));
    EXPECT_FALSE(arguments.flag("shared"));
    EXPECT_FALSE(arguments.has("title"));
}

TEST(Arguments, AreReadByTheKindOfTheirParameters)
{
    Arguments const arguments = read("count=9 weight=.25 origin=1,-2.5,+3e2 axis=Y window=hamming shared=yes "
                                     "title=a,b file=\"my file.csv\"");
    EXPECT_EQ(9, arguments.number("count"));
    EXPECT_EQ(0.25, arguments.real("weight"));
    EXPECT_EQ((Triple{1, -2.5, 300}), arguments.triple("origin"));
    EXPECT_EQ((Triple{0, 1, 0}), arguments.triple("axis"));
    EXPECT_EQ((Triple{0.5, 0, 2}), read("count=1 axis=0.5,0,2").triple("axis"));
    EXPECT_EQ(1, arguments.choice("window"));
    EXPECT_TRUE(arguments.flag("shared"));
    EXPECT_EQ("a,b", arguments.text("title"));
    EXPECT_EQ("my file.csv", arguments.text("file"));
}

TEST(Arguments, AreRefusedBeyondTheirLimits)
{
    EXPECT_EQ("12 \"count\" takes a number at least 1, at most 9, not 0.", refusalOf("count=0"));
    EXPECT_EQ("12 \"count\" takes a number at least 1, at most 9, not 10.", refusalOf("count=10"));
    EXPECT_EQ("21 \"weight\" takes a number above 0, at most 0.95, not 0.", refusalOf("count=1 weight=0"));
    EXPECT_EQ("none", refusalOf("count=1 weight=0.95"));
    EXPECT_EQ("21 \"weight\" takes a number above 0, at most 0.95, not 0.9500000000000001.",
              refusalOf("count=1 weight=0.9500000000000001"));
}

TEST(Arguments, AreRefusedWhereTheyAreOfAnotherKind)
{
    EXPECT_EQ("12 \"count\" takes a whole number, not \"2.5\".", refusalOf("count=2.5"));
    EXPECT_EQ("12 \"count\" takes a whole number, not \"\".", refusalOf("count="));
    EXPECT_EQ("12 \"count\" takes a whole number, not \"99999999999999999999\".",
              refusalOf("count=99999999999999999999"));
    EXPECT_EQ("21 \"weight\" takes a number, not \"0,5\".", refusalOf("count=1 weight=0,5"));
    EXPECT_EQ("21 \"weight\" takes a number, not \"nan\".", refusalOf("count=1 weight=nan"));
    EXPECT_EQ("21 \"weight\" takes a number, not \"inf\".", refusalOf("count=1 weight=inf"));
    EXPECT_EQ("21 \"weight\" takes a number, not \"0.5x\".", refusalOf("count=1 weight=0.5x"));
    EXPECT_EQ("21 \"origin\" takes three numbers, not \"1,2\".", refusalOf("count=1 origin=1,2"));
    EXPECT_EQ("21 \"origin\" takes three numbers, not \"X\".", refusalOf("count=1 origin=X"));
    EXPECT_EQ("19 \"axis\" takes three numbers, or X, Y or Z, not \"W\".", refusalOf("count=1 axis=W"));
    EXPECT_EQ("21 \"window\" takes hann or hamming, not \"haming\". Did you mean \"hamming\"?",
              refusalOf("count=1 window=haming"));
    EXPECT_EQ("21 \"shared\" takes yes or no, not \"1\".", refusalOf("count=1 shared=1"));
    EXPECT_EQ("19 \"file\" takes the name of a file.", refusalOf("count=1 file="));
}

TEST(Arguments, AreRefusedWhereTheyAreUnknownOrMissing)
{
    EXPECT_EQ("14 \"work\" has no parameter \"wieght\". Did you mean \"weight\"?", refusalOf("count=1 wieght=1"));
    EXPECT_EQ("1 \"work\" needs count=...: A count.", refusalOf(""));
}

} // namespace veldraw::tests
