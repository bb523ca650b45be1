#include "operations/Command.h"

#include "kernel/operations/CommandText.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace operations;

namespace {

/// What is said of a line that is no command, and where.
std::string problemWith(std::string const& line)
{
    try {
        readCommand(line, 7);
    } catch (CommandError const& error) {
        return std::to_string(error.place().line) + ':' + std::to_string(error.place().column) + ' ' + error.what();
    }
    return "none";
}

std::vector<std::string> partsOf(CommandArgument const& argument)
{
    std::vector<std::string> texts;
    for (ValuePart const& part : argument.parts)
        texts.push_back((part.isQuoted ? "quoted " : "") + part.text);
    return texts;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(Command, IsANameAndArgumentsBetweenBlanks)
{
    auto const command = readCommand("  mirror-zones\tzones=1:3,7   plane=X  ");
    ASSERT_TRUE(command);
    EXPECT_EQ("mirror-zones", command->name);
    ASSERT_EQ(2u, command->arguments.size());
    EXPECT_EQ("zones", command->arguments[0].name);
    EXPECT_EQ((Texts{"1:3", "7"}), partsOf(command->arguments[0]));
    EXPECT_EQ("1:3,7", command->arguments[0].text());
    EXPECT_EQ((Texts{"X"}), partsOf(*command->find("plane")));
    EXPECT_EQ(nullptr, command->find("plan"));
}

TEST(Command, KeepsWhatStandsInQuotes)
{
    auto const command = readCommand(R"(rename-zone name="A, #1=\"b\" \\ c\nd\te" zone="3")");
    EXPECT_EQ((Texts{"quoted A, #1=\"b\" \\ c\nd\te"}), partsOf(command->arguments[0]));
    EXPECT_EQ((Texts{"quoted 3"}), partsOf(command->arguments[1]));
}

TEST(Command, HasEmptyValuesAndParts)
{
    auto const command = readCommand(R"(set-title title= other="" third=a,,b)");
    EXPECT_EQ((Texts{""}), partsOf(command->arguments[0]));
    EXPECT_EQ((Texts{"quoted "}), partsOf(command->arguments[1]));
    EXPECT_EQ((Texts{"a", "", "b"}), partsOf(command->arguments[2]));
}

TEST(Command, EndsAtARemark)
{
    EXPECT_FALSE(readCommand("# only a remark"));
    EXPECT_FALSE(readCommand("   "));
    EXPECT_FALSE(readCommand(""));
    EXPECT_EQ(1u, readCommand("smooth zone=1 # passes=2")->arguments.size());
    EXPECT_EQ("a#b", readCommand("set-title title=a#b")->arguments[0].text()) << "within a word it is a letter";
}

TEST(Command, KnowsTheColumnsOfItsWordsInCharacters)
{
    auto const command = readCommand("rename-zone name=\"Flügel\" zone=2,Ö", 3);
    EXPECT_EQ(3, command->place.line);
    EXPECT_EQ(1, command->place.column);
    EXPECT_EQ(13, command->arguments[0].place.column);
    EXPECT_EQ(18, command->arguments[0].parts[0].place.column);
    EXPECT_EQ(27, command->arguments[1].place.column);
    EXPECT_EQ(34, command->arguments[1].parts[1].place.column);
}

TEST(Command, IsRefusedWithThePlaceOfWhatIsWrong)
{
    EXPECT_EQ("7:8 A parameter and its value are written as name=value.", problemWith("smooth zone"));
    EXPECT_EQ("7:8 A parameter and its value are written as name=value.", problemWith("smooth =3"));
    EXPECT_EQ("7:13 The quotation mark that ends this text is missing.", problemWith("smooth zone=\"a b"));
    EXPECT_EQ("7:15 In quotes a backslash stands before n, r, t, \" or another backslash.",
              problemWith("smooth zone=\"\\x\""));
    EXPECT_EQ("7:15 A quotation mark is missing at the end.", problemWith("smooth zone=\"\\"));
    EXPECT_EQ("7:15 \"zone\" is given twice.", problemWith("smooth zone=1 zone=2"));
}

TEST(Command, IsReadBackFromWhatTheKernelWrites)
{
    for (std::string const& text :
         {std::string("plain"), std::string(), std::string("a b"), std::string("a,b"), std::string("#a"),
          std::string("\"\\\n\t\r"), std::string("grad>0"), std::string("x=1"), std::string("Größe ü")}) {
        auto const command = readCommand("set-title title=" + kernel::quotedWhereNeeded(text));
        EXPECT_EQ(text, command->arguments[0].text());
        EXPECT_EQ(1u, command->arguments[0].parts.size());
    }
}

} // namespace veldraw::tests
