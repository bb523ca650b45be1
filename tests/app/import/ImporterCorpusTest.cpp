#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FileMutation.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

std::string inCorpus(std::string const& name)
{
    return VELDRAW_CORPUS + name;
}

double value(kernel::DataSet const& data, std::string const& variable, std::int64_t point)
{
    return fieldOf(data, 1, variable).group()->buffer()->value(point);
}

void expectNotFiniteNumbers(std::string const& name)
{
    SCOPED_TRACE(name);
    auto const result = import(inCorpus(name));
    EXPECT_EQ(variableNames(*result.dataSet), "X,Y,Z,p,q");
    for (int n = 0; n < 100; ++n) {
        if (n == 3)
            EXPECT_TRUE(std::isnan(value(*result.dataSet, "p", n)));
        else
            EXPECT_EQ(value(*result.dataSet, "p", n), n);
        EXPECT_EQ(value(*result.dataSet, "q", n), n == 50 ? HUGE_VAL : n);
    }
}

} // namespace

TEST(Corpus, EndsNeitherTheProgramNorTheReadingOfWhatIsLeftInAFile)
{
    int files = 0;
    for (auto const& entry : std::filesystem::directory_iterator(VELDRAW_CORPUS)) {
        std::string const path = entry.path().string();
        SCOPED_TRACE(path);
        if (entry.path().extension() == ".md")
            continue;
        ++files;
        EXPECT_EQ(openedAndLookedAt(path).problem, "");
    }
    EXPECT_GE(files, 18);
}

TEST(Corpus, HasBlocksOfALegacyFile)
{
    auto const result = import(inCorpus("blocks.vtk"));
    ASSERT_EQ(result.dataSet->zoneCount(), 2);
    EXPECT_EQ(result.dataSet->zone(1)->name, "blocks 1");
    EXPECT_EQ(result.dataSet->zone(1)->pointCount(), 50);
    EXPECT_EQ(value(*result.dataSet, "Z", 0), 0.5);
    EXPECT_EQ(value(*result.dataSet, "X", 2), static_cast<double>(0.216942F));
}

TEST(Corpus, HasNumbersThatAreNotFinite)
{
    expectNotFiniteNumbers("not-finite.vti");
    expectNotFiniteNumbers("not-finite.vtk");
}

} // namespace veldraw::tests
