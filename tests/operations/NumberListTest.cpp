#include "operations/NumberList.h"

#include "kernel/operations/CommandText.h"
#include "tests/host/SampleSession.h"

#include <random>

namespace veldraw::tests {

using namespace operations;

namespace {

class NumberListTest : public SampleSession
{
protected:
    NumberListTest()
    {
        for (char const* name : {"wing", "tail", "wing 2", "7", "tail", "a,b", "wingtip", "1:3", "*"})
            addZone(*dataSet, name, 2);
    }

    std::vector<int> zones(std::string const& value) const
    {
        auto const numbers = std::get<kernel::NumberSet>(*numbersOf(several, argument(value), dataSet.get()));
        return toVector(numbers);
    }

    long long zone(std::string const& value) const
    {
        return std::get<long long>(*numbersOf(one, argument(value), dataSet.get()));
    }

    std::string problemWith(std::string const& value, Parameter const& parameter) const
    {
        try {
            numbersOf(parameter, argument(value), dataSet.get());
        } catch (CommandError const& error) {
            return std::to_string(error.place().column) + ' ' + error.what();
        }
        return "none";
    }

    static CommandArgument argument(std::string const& value) { return readCommand("c z=" + value)->arguments[0]; }

    std::shared_ptr<kernel::DataSet> const dataSet = makeDataSet({"x", "p"});
    Parameter const several = parameter("zones", ParameterKind::Zones, "");
    Parameter const one = parameter("zone", ParameterKind::Zone, "");
    using Numbers = std::vector<int>;
};

} // namespace

TEST_F(NumberListTest, TakesNumbersRangesAndSteps)
{
    EXPECT_EQ((Numbers{3}), zones("3"));
    EXPECT_EQ((Numbers{2, 3, 4, 9}), zones("9,2:4,3"));
    EXPECT_EQ((Numbers{1, 4, 7}), zones("1:9:3"));
    EXPECT_EQ((Numbers{1, 5, 9}), zones("1:9:4")) << "the last one too";
    EXPECT_EQ((Numbers{4}), zones("4:4"));
}

TEST_F(NumberListTest, TakesNamesAndPatterns)
{
    EXPECT_EQ((Numbers{1}), zones("wing"));
    EXPECT_EQ((Numbers{2, 5}), zones("tail")) << "all of this name";
    EXPECT_EQ((Numbers{1, 3, 7}), zones("wing*"));
    EXPECT_EQ((Numbers{1, 3, 7}), zones("*wi*n*g*"));
    EXPECT_EQ((Numbers{7}), zones("*tip"));
    EXPECT_EQ(9u, zones("*").size());
    EXPECT_EQ((Numbers{1, 2, 3, 5, 7}), zones("wing*,tail,2"));
}

TEST_F(NumberListTest, TakesWhatStandsInQuotesForAName)
{
    EXPECT_EQ((Numbers{4}), zones("\"7\""));
    EXPECT_EQ((Numbers{7}), zones("7"));
    EXPECT_EQ((Numbers{6}), zones("\"a,b\""));
    EXPECT_EQ((Numbers{8}), zones("\"1:3\""));
    EXPECT_EQ((Numbers{9}), zones("\"*\""));
    EXPECT_EQ((Numbers{3}), zones("\"wing 2\""));
}

TEST_F(NumberListTest, TakesOneWhereOneIsWanted)
{
    EXPECT_EQ(3, zone("3"));
    EXPECT_EQ(7, zone("*tip"));
    EXPECT_EQ("5 \"zone\" takes a zone, but 2 are meant by \"tail\"; give its number.", problemWith("tail", one));
    EXPECT_EQ("5 \"zone\" takes a zone, but 2 are meant by \"1,2\"; give its number.", problemWith("1,2", one));
}

TEST_F(NumberListTest, RefusesWhatIsNotThere)
{
    EXPECT_EQ("7 There is no zone 10; the last one is 9.", problemWith("3,10", several));
    EXPECT_EQ("5 There is no zone 99; the last one is 9.", problemWith("2:99", several));
    EXPECT_EQ("5 A range goes upwards.", problemWith("4:2", several));
    EXPECT_EQ("5 There is no zone called \"wiing\". Did you mean \"wing\"?", problemWith("wiing", several));
    EXPECT_EQ("5 There is no zone called \"0\".", problemWith("0", several));
    EXPECT_EQ("5 There is no zone called \"-1\".", problemWith("-1", several));
    EXPECT_EQ("5 There is no zone called \"99999999999\".", problemWith("99999999999", several));
    EXPECT_EQ("7 \"zones\" takes zones: a number or a name is missing.", problemWith("1,", several));
    EXPECT_EQ("5 There is no variable called \"w\".",
              problemWith("w", parameter("variables", ParameterKind::Variables, "")));
}

TEST_F(NumberListTest, LooksAtTheFormAloneWithoutADataSet)
{
    EXPECT_FALSE(numbersOf(several, argument("nobody,99"), nullptr));
    EXPECT_THROW(numbersOf(several, argument("1,,2"), nullptr), CommandError);
}

TEST_F(NumberListTest, ReadsWhatTheKernelWrites)
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        kernel::NumberSet numbers{1};
        for (int number = 2; number <= 9; ++number)
            if (random() % 2 == 0)
                numbers.insert(number);
        EXPECT_EQ(toVector(numbers), zones(kernel::listText(numbers)));
    }
}

TEST_F(NumberListTest, GoesToTheEndOfARangeUpToTheLargestNumber)
{
    EXPECT_EQ((Numbers{9}), zones("9:9:2147483647"));
}

} // namespace veldraw::tests
