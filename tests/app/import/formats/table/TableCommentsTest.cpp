#include "tests/app/support/AuxiliaryTexts.h"
#include "tests/app/support/FileHelpers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

app::ImportResult opened(std::string const& text)
{
    TemporaryFolder const folder;
    return import(folder.write("table.csv", text));
}

std::string notesOf(std::string const& comments)
{
    return textOf(opened(comments + "x,y\n1,2\n3,4\n").dataSet->auxiliaryData());
}

} // namespace

TEST(TableComments, AreAuxiliaryDataOfTheDataSet)
{
    auto const data =
        opened("# Author: somebody\n#Mach number = 0.80\n\n# measured by hand\n#\n# twice\nx,y\n1,2\n3,4\n").dataSet;
    EXPECT_EQ(allTextsOf(*data),
              "data set: Author=somebody|Comment1=measured by hand|Comment2=twice|Mach_number=0.80\n");
    EXPECT_EQ(variableNames(*data), "x,y");
    EXPECT_EQ(valuesOf(*data, 1, "y"), "2 4");
}

TEST(TableComments, TellNamesFromSentencesAddressesAndTimes)
{
    EXPECT_EQ(notesOf("# http://example.org/a=b\n"), "Comment1=http://example.org/a=b");
    EXPECT_EQ(notesOf("# 12:30\n"), "Comment1=12:30");
    EXPECT_EQ(notesOf("# well, this is it: a table\n"), "Comment1=well, this is it: a table");
    EXPECT_EQ(notesOf("# Empty:\n"), "Empty=");
    EXPECT_EQ(notesOf("# Path = C:\\x: y\n"), "Path=C:\\x: y");
    EXPECT_EQ(notesOf("## Title: \"a\"\n"), "Title=\"a\"");
    EXPECT_EQ(notesOf("# Text: \" a\\nb\"\n"), "Text= a\nb");
}

TEST(TableComments, MayEndTheirLinesInAnyWayAndFollowAByteOrderMark)
{
    for (std::string const start : {"", "\xEF\xBB\xBF"}) {
        for (std::string const end : {"\n", "\r\n", "\r"}) {
            auto const data = opened(start + "# a: 1" + end + "# b: 2" + end + "x,y" + end + "1,2" + end).dataSet;
            EXPECT_EQ(textOf(data->auxiliaryData()), "a=1|b=2");
            EXPECT_EQ(variableNames(*data), "x,y");
            EXPECT_EQ(valuesOf(*data, 1, "x"), "1");
        }
    }
}

TEST(TableComments, EndWithTheHeaderLineWhereThatIsOneOfThem)
{
    auto const data = opened("# a: 1\n# time, p\n0,5\n1,6\n").dataSet;
    EXPECT_EQ(variableNames(*data), "time,p");
    EXPECT_EQ(valuesOf(*data, 1, "p"), "5 6");
    EXPECT_EQ(textOf(data->auxiliaryData()), "a=1");
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("none.csv", "# by somebody\n0,5\n1,6\n")), HasSubstr("no header line"));
}

TEST(TableComments, EndWithAHeaderLineOfAnyLength)
{
    constexpr int columns = 9000;
    for (int const width : {3, 5, 4000}) {
        int const count = width == 4000 ? 20 : columns;
        std::string header = "# a: 1\n# ";
        std::string row;
        for (int n = 1; n <= count; ++n) {
            header += (n == 1 ? "" : ",") + std::string(static_cast<std::size_t>(width), 'v') + std::to_string(n);
            row += (n == 1 ? "" : ",") + std::to_string(n) + ".5";
        }
        auto const data = opened(header + "\n" + row + "\n" + row + "\n").dataSet;
        EXPECT_EQ(data->variableCount(), count);
        EXPECT_EQ(data->variable(count)->name,
                  std::string(static_cast<std::size_t>(width), 'v') + std::to_string(count));
        EXPECT_EQ(data->field(1, count)->group()->buffer()->value(1), count + 0.5);
        EXPECT_EQ(textOf(data->auxiliaryData()), "a=1");
    }
}

TEST(TableComments, EndWithTheHeaderLineWhereBlankLinesFollowIt)
{
    for (std::string const start : {"", "# a: 1\n"}) {
        auto const data = opened(start + "# x,y\n\n\n1,2\n3,4\n").dataSet;
        EXPECT_EQ(variableNames(*data), "x,y");
        EXPECT_EQ(valuesOf(*data, 1, "y"), "2 4");
        EXPECT_EQ(textOf(data->auxiliaryData()), start.empty() ? "" : "a=1");
    }
    EXPECT_EQ(valuesOf(*opened("x,y\n\n1,2\n").dataSet, 1, "y"), "2");
}

TEST(TableComments, EndWithTheHeaderLineAlsoWhereTheFirstRowHasAMistake)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("empty.csv", "# x,y\n1,\n3,4\n")), HasSubstr("line 2: column 2 (y) is empty"));
    EXPECT_THAT(problemWith(folder.write("text.csv", "# x,y,z\n1,two,3\n4,5,6\n")),
                HasSubstr("line 2: column 2 (y) is no number"));
}

TEST(TableComments, LeaveAMarkThatIsTheNameOfAColumn)
{
    auto const data = opened("# a: 1\n#,x\n1,2\n3,4\n").dataSet;
    EXPECT_EQ(variableNames(*data), "#,x");
    EXPECT_EQ(valuesOf(*data, 1, "#"), "1 3");
}

TEST(TableComments, LeaveTheLineNumbersOfProblemsAlone)
{
    TemporaryFolder const folder;
    EXPECT_THAT(problemWith(folder.write("bad.csv", "# a: 1\n\n# b\nx,y\n1,2\n3,oops\n")), HasSubstr("line 6"));
    EXPECT_THAT(problemWith(folder.write("commented.csv", "# a: 1\n# x,y\n1,2\n3,oops\n")), HasSubstr("line 4"));
}

TEST(TableComments, AreNoneInQuotesOrBehindTheHeader)
{
    auto const data = opened("\"# x\",y\n1,2\n").dataSet;
    EXPECT_EQ(variableNames(*data), "# x,y");
    EXPECT_EQ(data->auxiliaryData().size(), 0);
    TemporaryFolder const folder;
    EXPECT_NE(problemWith(folder.write("behind.csv", "x,y\n1,2\n# a: 1\n")), "");
}

TEST(TableComments, MayBeOfAnySizeAndNumber)
{
    std::string many;
    for (int n = 0; n < 100000; ++n)
        many += "# note" + std::to_string(n) + ": x\n";
    auto const result = opened("# long: " + std::string(5000000, 'x') + "\n" + many + "# bytes: \xFC\xFF\nx,y\n1,2\n");
    EXPECT_EQ(result.dataSet->auxiliaryData().size(), 1000);
    EXPECT_EQ(variableNames(*result.dataSet), "x,y");
    EXPECT_THAT(result.remarks,
                ElementsAre("Data set: auxiliary data \"long\" was left out: it has more than 32768 bytes",
                            "Data set: 99001 items of auxiliary data were left out: at most 1000 are kept"));
    EXPECT_THAT(opened("# bytes: \xFC\nx,y\n1,2\n").remarks, IsEmpty());
    EXPECT_EQ(notesOf("# bytes: \xFC\n"), "bytes=\xC3\xBC");
}

} // namespace veldraw::tests
