#include "kernel/base/Progress.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/WatchedProgress.h"

#include <clocale>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

app::ImportResult importText(std::string const& text, std::string const& name = "table.csv")
{
    TemporaryFolder const folder;
    return import(folder.write(name, text));
}

std::string problemWithText(std::string const& text)
{
    TemporaryFolder const folder;
    return problemWith(folder.write("table.csv", text));
}

} // namespace

TEST(CsvImport, MakesEachColumnAVariableOfOneOrderedZone)
{
    TemporaryFolder const folder;
    std::string const path = folder.write("two words.csv", "time,p\n0,1.5\n1,-2e3\n2,+.5\n");
    auto const data = import(path).dataSet;
    ASSERT_EQ(data->zoneCount(), 1);
    EXPECT_EQ(data->zone(1)->name, "two words");
    EXPECT_EQ(data->zone(1)->i, 3);
    EXPECT_EQ(data->zone(1)->j, 1);
    EXPECT_EQ(variableNames(*data), "time,p");
    EXPECT_EQ(valuesOf(*data, 1, "p"), "1.5 -2000 0.5");
    EXPECT_EQ(fieldOf(*data, 1, "p").type(), FieldDataType_Double);
    EXPECT_THAT(data->loaderInstructions().at(0).words, ElementsAre("FILENAME_", path));
    EXPECT_EQ(data->loaderInstructions().at(0).loaderName, "CSV");
}

TEST(CsvImport, TellsPointsInAPlaneOrInSpaceFromCurves)
{
    auto const isScattered = [](std::string const& text) { return importText(text).dataSet->zone(1)->isScattered; };
    EXPECT_TRUE(isScattered("X,Y,p\n0,0,1\n3,1,2\n1,2,3\n2,-1,4\n")) << "strewn over the plane";
    EXPECT_TRUE(isScattered("p,z,y,x\n1,0,2,0\n1,5,1,3\n1,2,3,1\n1,3,0,2\n")) << "strewn in space";
    EXPECT_TRUE(isScattered("x,y,p\n0,0,1\n1,0,1\n2,0,1\n0,1,1\n1,1,1\n2,1,1\n")) << "the points of a grid";
    EXPECT_TRUE(isScattered("x,y\n0,0\n1,0\n0,1\n1,1\n0,2\n1,2\n")) << "also of one with two columns";
    EXPECT_TRUE(isScattered("x,y\n1,0\n0,1\n-1,0\n0,-1\n1,0\n")) << "the outline of a body";
    EXPECT_TRUE(isScattered("id,x,y\n1,5,0\n2,1,1\n3,2,-1\n")) << "a running number is no time";
    EXPECT_TRUE(isScattered("x,y\nnan,0\n1,2\n0,1\ninf,0\n3,0\n")) << "what is no number counts for nothing";

    EXPECT_FALSE(isScattered("x,y\n0,5\n1,-5\n2,5\n3,1\n")) << "a curve over X";
    EXPECT_TRUE(isScattered("x,y,z\n0,5,1\n1,-5,9\n2,5,1\n3,1,9\n")) << "strewn in space, sorted by X";
    EXPECT_FALSE(isScattered("x,y,z\n5,0,1\n-5,-1,1\n5,-2,1\n1,-3,1\n")) << "a curve over Y, backwards";
    EXPECT_FALSE(isScattered("time,x,y,z\n0,0,5,1\n1,1,-5,9\n2,2,5,1\n")) << "a way in space and time";
    EXPECT_FALSE(isScattered("x,y\n0,5\n1,-5\n1,5\n2,1\n3,0\n")) << "a step does not end a curve";
    EXPECT_FALSE(isScattered("x,y,p\n1,0,1\n3,0,2\n2,0,3\n")) << "along one axis";
    EXPECT_FALSE(isScattered("time [s],x,y\n0,5,0\n1,1,1\n2,2,-1\n")) << "a way in time";
    EXPECT_FALSE(isScattered("t (s),x,y\n0,5,0\n1,1,1\n2,2,-1\n")) << "a way in time";
    EXPECT_TRUE(isScattered("T,x,y\n300,5,0\n301,1,1\n302,2,-1\n")) << "a temperature is no time";
    EXPECT_TRUE(isScattered("X,Y,Z,T\n0,0,0,300\n1,2,1,310\n2,1,3,320\n3,5,2,330\n")) << "nor is it in space";
    EXPECT_TRUE(isScattered("x,y,z,t\n0,0,0,300\n1,2,1,310\n2,1,3,320\n3,5,2,330\n")) << "however it is written";
    EXPECT_TRUE(isScattered("time,x,y\n7,5,0\n7,1,1\n7,2,-1\n")) << "one moment is no series";
    EXPECT_FALSE(isScattered("a,b\n1,0\n3,1\n2,0\n")) << "without an X and a Y nobody says that it is places";
    EXPECT_FALSE(isScattered("x,y\n1,2\n")) << "a single row";
}

TEST(CsvImport, FindsTheSeparatorInTheHeaderLine)
{
    EXPECT_EQ(valuesOf(*importText("a;b\n1;2\n").dataSet, 1, "b"), "2");
    EXPECT_EQ(valuesOf(*importText("a\tb\n1\t2\n", "table.tsv").dataSet, 1, "b"), "2");
    EXPECT_EQ(valuesOf(*importText("\"x;y;z\",b\n1,2\n").dataSet, 1, "b"), "2");
    EXPECT_EQ(valuesOf(*importText("p (a;b)\tq\n1\t2\n").dataSet, 1, "q"), "2");
    EXPECT_EQ(valuesOf(*importText("single\n7\n8\n").dataSet, 1, "single"), "7 8");
}

TEST(CsvImport, SkipsAByteOrderMarkAndAcceptsWindowsLineEnds)
{
    auto const data = importText("\xef\xbb\xbf"
                                 "a,b\r\n1,2\r\n3,4\r\n\r\n\r\n")
                          .dataSet;
    EXPECT_EQ(variableNames(*data), "a,b");
    EXPECT_EQ(valuesOf(*data, 1, "a"), "1 3");
}

TEST(CsvImport, TrimsAndUnquotesNames)
{
    auto const data = importText(" p [Pa] , \"v, \"\"fast\"\"\" ,p [Pa]\n1,2,3\n").dataSet;
    EXPECT_EQ(variableNames(*data), "p [Pa],v, \"fast\",p [Pa] (2)");
}

TEST(CsvImport, ReadsNamesThatAreNotUtf8AsLatin1)
{
    EXPECT_EQ(variableNames(*importText("Gr\xf6\xdf"
                                        "e,b\n1,2\n")
                                 .dataSet),
              "Größe,b");
    EXPECT_EQ(variableNames(*importText("Größe,b\n1,2\n").dataSet), "Größe,b");
}

TEST(CsvImport, NamesColumnsThatHaveNone)
{
    auto const result = importText("a,\n1,2\n");
    EXPECT_EQ(variableNames(*result.dataSet), "a,Column 2");
    EXPECT_EQ(result.remarks.size(), 1U);
}

TEST(CsvImport, AcceptsNotANumberAndInfinity)
{
    auto const data = importText("a\nnan\n-inf\nInfinity\nNaN\n").dataSet;
    auto const values = fieldOf(*data, 1, "a").group()->buffer();
    EXPECT_TRUE(std::isnan(values->value(0)));
    EXPECT_EQ(values->value(1), -INFINITY);
    EXPECT_EQ(values->value(2), INFINITY);
    EXPECT_TRUE(std::isnan(values->value(3)));
}

TEST(CsvImport, ReadsEveryDigit)
{
    auto const data = importText("a\n0.1\n5e-324\n1.7976931348623157e308\n123456789.12345679\n").dataSet;
    auto const values = fieldOf(*data, 1, "a").group()->buffer();
    EXPECT_EQ(values->value(0), 0.1);
    EXPECT_EQ(values->value(1), 5e-324);
    EXPECT_EQ(values->value(2), 1.7976931348623157e308);
    EXPECT_EQ(values->value(3), 123456789.12345679);
}

TEST(CsvImport, ReadsTheSameUnderEveryLocale)
{
    std::string const before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // has no effect where the locale is not installed
    EXPECT_EQ(valuesOf(*importText("a\n1.5\n").dataSet, 1, "a"), "1.5");
    EXPECT_THAT(problemWithText("a;b\n1,5;2\n"), HasSubstr("line 2: column 1 (a) is no number: \"1,5\""));
    std::setlocale(LC_ALL, before.c_str());
}

TEST(CsvImport, TellsEmptyCellsTextsAndRaggedRowsWithLineAndColumn)
{
    std::string const problem = problemWithText("a,b\n1,2\n,4\n5,six\n7\n8,9,10\n1e999,1\n\n1,2\n");
    EXPECT_THAT(problem,
                AllOf(HasSubstr("table.csv\""), HasSubstr("nothing was imported"),
                      HasSubstr("line 3: column 1 (a) is empty"),
                      HasSubstr("line 4: column 2 (b) is no number: \"six\""),
                      HasSubstr("line 5: there are 1 cells, not 2"), HasSubstr("line 6: there are 3 cells, not 2"),
                      HasSubstr("line 7: column 1 (a) is beyond the range of numbers: \"1e999\""),
                      HasSubstr("line 8: the line is blank"), Not(HasSubstr("line 9")), Not(HasSubstr("more"))));
}

TEST(CsvImport, TellsTheFirstTenErrorsAndHowManyMoreThereAre)
{
    std::string text = "a,b\n";
    for (int n = 0; n < 25; ++n)
        text += "1,x\n";
    std::string const problem = problemWithText(text);
    EXPECT_THAT(problem, AllOf(HasSubstr("line 2:"), HasSubstr("line 11:"), Not(HasSubstr("line 12:")),
                               HasSubstr("and 15 more")));
}

TEST(CsvImport, CountsLinesInsideQuotes)
{
    EXPECT_THAT(problemWithText("\"a\nb\",c\n1,2\n3,x\n"), HasSubstr("line 4: column 2 (c)"));
}

TEST(CsvImport, RefusesFilesWithoutHeaderOrValues)
{
    EXPECT_THAT(problemWithText("1,2\n3,4\n"), HasSubstr("no header line"));
    EXPECT_THAT(problemWithText("a,b\n"), HasSubstr("no values"));
    EXPECT_THAT(problemWithText("a,b"), HasSubstr("no values"));
    EXPECT_THAT(problemWithText("\n\n"), HasSubstr("no values"));
    EXPECT_THAT(problemWithText(""), HasSubstr("it is empty"));
    EXPECT_THAT(problemWithText("a,\"b\n1,2\n"), HasSubstr("a quote is left open"));
}

TEST(CsvImport, RefusesFilesThatAreNoText)
{
    EXPECT_THAT(problemWithText(std::string("\xff\xfe"
                                            "a\0,\0",
                                            6)),
                HasSubstr("UTF-16"));
    EXPECT_THAT(problemWithText(std::string("a,b\n\0\1", 6)), HasSubstr("no text file"));
}

TEST(CsvImport, ReadsAcrossTheBlocksOfALargeFile)
{
    std::string text = "n,square\n";
    constexpr int rows = 200000;
    for (int n = 0; n < rows; ++n)
        text += std::to_string(n) + "," + std::to_string(static_cast<std::int64_t>(n) * n) + "\n";
    ASSERT_GT(text.size(), std::size_t(2) << 20);
    auto const data = importText(text).dataSet;
    auto const values = fieldOf(*data, 1, "square").group()->buffer();
    ASSERT_EQ(values->size(), rows);
    for (int n = 0; n < rows; n += 997)
        ASSERT_EQ(values->value(n), static_cast<double>(n) * n);
}

TEST(CsvImport, StopsWhenTheUserCancels)
{
    TemporaryFolder const folder;
    QString const path = QString::fromStdString(folder.write("table.csv", "a\n1\n"));
    InterruptedProgress progress;
    EXPECT_THROW(app::importFile(path, app::Deferral::Auto, progress), kernel::Interrupted);
}

} // namespace veldraw::tests
