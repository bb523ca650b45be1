#include "kernel/operations/FourierResults.h"

#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetAuxiliaryItem.h"
#include "tests/kernel/support/FourierFixture.h"

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Where results of a transform go when there are earlier ones. The first run is always over the zones 1 and 2.
class FourierResultsTest : public FourierFixture
{
protected:
    FourierResultsTest()
    {
        addNoise(40, 0.25, 1);
        addNoise(40, 0.25, 2);
    }

    static Choice over(bool zones, bool variables)
    {
        Choice choice;
        choice.replaceZones = zones;
        choice.replaceVariables = variables;
        return choice;
    }

    /// Values of the source that differ from those before.
    void alter(int zone, int variable, unsigned seed) { setField(zone, variable, noise(40, seed)); }

    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (auto const& variable : dataSet->variables()) {
            all.push_back(variable->name);
        }
        return all;
    }

    /// All values of the results, and what they are called.
    std::string resultsDigest() const
    {
        std::string text;
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone) {
            for (int variable = 1; variable <= dataSet->variableCount(); ++variable) {
                Numbers const values = valuesOf(zone, variable);
                text.append(reinterpret_cast<char const*>(values.data()), values.size() * sizeof(double));
            }
        }
        return text + withoutHistory();
    }
};

} // namespace

TEST_F(FourierResultsTest, AppendsNewOnesWithNumberedNames)
{
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(transform({1}));
    EXPECT_THAT(resultZones, ElementsAre(5));
    EXPECT_THAT(resultVariables, ElementsAre(10, 11, 12));
    EXPECT_EQ(dataSet->zone(4)->name, "Fourier Transform of S1 (2)");
    EXPECT_EQ(dataSet->zone(5)->name, "Fourier Transform of S1 (3)");
    EXPECT_THAT(names(), ElementsAre("Time", "U", "V", "Frequency of U", "Amplitude of U", "Phase of U in degrees",
                                     "Frequency of U (2)", "Amplitude of U (2)", "Phase of U in degrees (2)",
                                     "Frequency of U (3)", "Amplitude of U (3)", "Phase of U in degrees (3)"));
}

TEST_F(FourierResultsTest, ReplacesValuesInPlaceInOneStep)
{
    ASSERT_TRUE(transform({1, 2}, {U, V}));
    UniqueId const zone = dataSet->zone(3)->id;
    alter(1, U, 70);
    alter(2, V, 80);
    std::string const before = withoutHistory();
    recorder.take();
    ASSERT_TRUE(transform({1, 2}, {U, V}, replacing()));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 3 4 variables 4 5 6 7 8 9", "43"));
    EXPECT_THAT(resultZones, ElementsAre(3, 4));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6, 7, 8, 9));
    EXPECT_EQ(dataSet->zone(3)->id, zone);
    expectSpectrum(3, 4, noise(40, 70), 0.25);
    expectSpectrum(4, 7, noise(40, 80), 0.25);
    expectUndoAndRedo(before, {"43", "0 zones 3 4 variables 4 5 6 7 8 9"}, {"0 zones 3 4 variables 4 5 6 7 8 9", "43"});
}

TEST_F(FourierResultsTest, ReplacesZonesOrVariablesAlone)
{
    ASSERT_TRUE(transform({1}));
    alter(1, U, 70);
    recorder.take();
    ASSERT_TRUE(transform({1}, {U}, over(true, false)));
    EXPECT_THAT(recorder.take(), ElementsAre("1 variables 7 8 9", "43"));
    EXPECT_THAT(resultZones, ElementsAre(3));
    EXPECT_THAT(resultVariables, ElementsAre(7, 8, 9));
    expectSpectrum(3, 4, noise(40, 1), 0.25);
    expectSpectrum(3, 7, noise(40, 70), 0.25);
    recorder.take();
    ASSERT_TRUE(transform({1}, {U}, over(false, true)));
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 4"));
    EXPECT_THAT(resultZones, ElementsAre(4));
    EXPECT_THAT(resultVariables, ElementsAre(7, 8, 9));
    expectSpectrum(3, 7, noise(40, 70), 0.25);
    expectSpectrum(4, 7, noise(40, 70), 0.25);
    EXPECT_TRUE(dataSet->field(4, 4)->isPassive());
}

TEST_F(FourierResultsTest, MakesWhatIsMissingBesideWhatItReplaces)
{
    ASSERT_TRUE(transform({1}, {V}));
    recorder.take();
    ASSERT_TRUE(transform({1, 2}, {U, V}, replacing()));
    EXPECT_THAT(recorder.take(), ElementsAre("1 variables 7 8 9", "4 zones 4", "0 zones 3 variables 4 5 6", "43"));
    EXPECT_THAT(resultZones, ElementsAre(3, 4));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6, 7, 8, 9));
    for (int const zone : {1, 2}) {
        expectSpectrum(zone + 2, 4, valuesOf(zone, V), 0.25);
        expectSpectrum(zone + 2, 7, valuesOf(zone, U), 0.25);
    }
}

TEST_F(FourierResultsTest, ReplacesTheLatestOnes)
{
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(4));
    EXPECT_THAT(resultVariables, ElementsAre(7, 8, 9));
}

TEST_F(FourierResultsTest, KeepsValuesOfOtherVariablesInAReplacedZone)
{
    ASSERT_TRUE(transform({1}, {U}));
    ASSERT_TRUE(transform({1}, {V}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3));
    expectSpectrum(3, 4, valuesOf(1, U), 0.25);
    expectSpectrum(3, 7, valuesOf(1, V), 0.25);
}

TEST_F(FourierResultsTest, ChangesTheNumberOfFrequenciesInPlace)
{
    ASSERT_TRUE(transform({1}));
    std::string const before = withoutHistory();
    recorder.take();
    Choice choice = replacing();
    choice.spectrum.includeConjugates = true;
    ASSERT_TRUE(transform({1}, {U}, choice));
    EXPECT_THAT(recorder.take(), ElementsAre("6 zones 3", "0 zones 3 variables 4 5 6", "43"));
    EXPECT_EQ(dataSet->zone(3)->i, 40);
    expectSpectrum(3, 4, valuesOf(1, U), 0.25, choice.spectrum);
    expectUndoAndRedo(before, {"43", "0 zones 3 variables 4 5 6", "6 zones 3"},
                      {"6 zones 3", "0 zones 3 variables 4 5 6", "43"});
}

TEST_F(FourierResultsTest, MakesANewZoneWhereOtherValuesWouldNotFitAnyMore)
{
    ASSERT_TRUE(transform({1}, {U, V}));
    Choice choice = replacing();
    choice.spectrum.includeConjugates = true;
    ASSERT_TRUE(transform({1}, {U}, choice));
    EXPECT_THAT(resultZones, ElementsAre(4));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6));
    EXPECT_EQ(dataSet->zone(3)->i, 21);
    expectSpectrum(3, 4, valuesOf(1, U), 0.25);
    expectSpectrum(4, 4, valuesOf(1, U), 0.25, choice.spectrum);
    ASSERT_TRUE(transform({1}, {U}, replacing())); // the latest one that it can replace
    EXPECT_THAT(resultZones, ElementsAre(4));
    ASSERT_TRUE(transform({1}, {V}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(4));
}

TEST_F(FourierResultsTest, LeavesCopiesDisabledAndForeignOnesAlone)
{
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {3})));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3));
    ASSERT_TRUE(session.perform(EnableZone(*dataSet, 3, false)));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(5));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6));
    ASSERT_TRUE(transform({2}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(6));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6));
}

TEST_F(FourierResultsTest, TakesNoVariablesThatDoNotFollowEachOther)
{
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {5})));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3));
    EXPECT_THAT(resultVariables, ElementsAre(6, 7, 8));
    ASSERT_TRUE(session.undo());
    ASSERT_TRUE(session.undo());
    dataSet->variable(6)->enabled = false;
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultVariables, ElementsAre(7, 8, 9));
}

TEST_F(FourierResultsTest, FindsResultsThatMovedOrWereRenamed)
{
    dataSet->addVariable(std::make_shared<Variable>("W"));
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(session.perform(RenameZone(*dataSet, 3, "mine")));
    ASSERT_TRUE(session.perform(RenameVariable(*dataSet, 5, "my frequencies")));
    ASSERT_TRUE(session.perform(DeleteVariables(*dataSet, {4})));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6));
    EXPECT_EQ(dataSet->zone(3)->name, "mine");
    EXPECT_EQ(dataSet->variable(4)->name, "my frequencies");
}

TEST_F(FourierResultsTest, ForgetsWhatWasTakenBackAndKnowsItAgainWhenItIsRedone)
{
    ASSERT_TRUE(transform({1}));
    ASSERT_TRUE(session.undo());
    EXPECT_THAT(dataSet->transformRecord().zones, IsEmpty());
    ASSERT_TRUE(session.redo());
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3));
}

TEST_F(FourierResultsTest, KeepsTheUsersNotesAndDropsThoseThatHoldNoMore)
{
    Numbers values = noise(40);
    values[7] = std::nan("");
    setField(1, U, values);
    ASSERT_TRUE(transform({1}));
    AuxiliaryData& data = dataSet->zone(3)->auxiliaryData;
    ASSERT_GT(data.indexOf("Fourier.Bridged"), 0);
    data.set("Mine", "text", true);
    setField(1, U, noise(40));
    ASSERT_TRUE(transform({1}, {U}, replacing()));
    EXPECT_EQ(data.indexOf("Fourier.Bridged"), 0);
    EXPECT_EQ(data.item(data.indexOf("Mine")).value, "text");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(data.item(data.indexOf("Fourier.Bridged")).value, "U: 1");
}

TEST_F(FourierResultsTest, TransformsAResult)
{
    ASSERT_TRUE(transform({1}, {U}));
    int const frequency = 4;
    ASSERT_TRUE(transform({3}, {5}, replacing(), frequency));
    EXPECT_THAT(resultZones, ElementsAre(4));
    expectSpectrum(4, 7, valuesOf(3, 5), 0.1);
    EXPECT_EQ(dataSet->zone(4)->name, "Fourier Transform of Fourier Transform of S1");
    EXPECT_EQ(dataSet->variable(8)->name, "Amplitude of Amplitude of U");
}

TEST_F(FourierResultsTest, ReadsAZoneThatItReplacesInTheSameRunAsItWas)
{
    ASSERT_TRUE(transform({1}, {U}));
    setField(3, time, evenTimes(21));
    Numbers const amplitudes = valuesOf(3, 5);
    alter(1, U, 70);
    ASSERT_TRUE(transform({1, 3}, {U, 5}, replacing()));
    EXPECT_THAT(resultZones, ElementsAre(3, 4));
    EXPECT_THAT(resultVariables, ElementsAre(4, 5, 6, 7, 8, 9));
    expectSpectrum(3, 4, noise(40, 70), 0.25);
    expectSpectrum(4, 7, amplitudes, 0.25);
}

TEST_F(FourierResultsTest, GoesBackAndForthThroughRunsOfAllKindsToTheLastBit)
{
    std::vector<std::string> states{resultsDigest()};
    std::vector<std::function<bool()>> const runs{
        [&] { return transform({1}, {U}); },
        [&] {
            return transform({1, 2}, {U, V}, replacing());
        },
        [&] { return transform({2}, {V}, with(WindowFunction_Hann, true)); },
        [&] { return session.perform(DeleteVariables(*dataSet, {4})); },
        [&] {
            return transform({1, 2}, {U, V}, over(true, false));
        },
        [&] {
            return session.perform(DuplicateZones(*dataSet, {3, 4}));
        },
        [&] {
            return transform({1, 2}, {U, V}, over(false, true));
        },
        [&] {
            return transform({1, 2}, {V}, replacing());
        },
    };
    for (auto const& run : runs) {
        ASSERT_TRUE(run()) << session.lastError();
        states.push_back(resultsDigest());
    }
    for (int round = 0; round < 2; ++round) {
        for (std::size_t at = states.size() - 1; at > 0; --at) {
            ASSERT_TRUE(session.undo());
            ASSERT_EQ(resultsDigest(), states[at - 1]) << "back to " << at - 1;
        }
        for (std::size_t at = 1; at < states.size(); ++at) {
            ASSERT_TRUE(session.redo());
            ASSERT_EQ(resultsDigest(), states[at]) << "forth to " << at;
        }
    }
}

TEST_F(FourierResultsTest, CountsTheMemoryOfResultsThatAreTakenBack)
{
    ASSERT_TRUE(transform({1, 2}, {U, V}));
    std::int64_t const results = (1 + 2 * 4) * 21 * std::int64_t{sizeof(double)};
    EXPECT_EQ(session.history().valueBytes(), 0);
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(session.history().valueBytes(), results);
    ASSERT_TRUE(session.redo());
    alter(1, U, 9);
    alter(2, U, 10);
    ASSERT_TRUE(transform({1, 2}, {U, V}, replacing()));
    EXPECT_EQ(session.history().valueBytes(), results);
}

TEST_F(FourierResultsTest, CountsFrequenciesOnceThatNewAndReplacedResultsShare)
{
    ASSERT_TRUE(transform({1}, {V}));
    ASSERT_TRUE(transform({1, 2}, {U, V}, replacing())); // U and the second zone are new, V of the first is replaced
    EXPECT_EQ(dataSet->field(3, 4)->group(), dataSet->field(3, 7)->group());
    EXPECT_EQ(dataSet->field(3, 4)->group(), dataSet->field(4, 4)->group());
    EXPECT_EQ(dataSet->field(3, 4)->shareCount(), 4);
    constexpr std::int64_t ofOne = 21 * std::int64_t{sizeof(double)};
    EXPECT_EQ(session.history().valueBytes(), 3 * ofOne) << "what was replaced";
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(session.history().valueBytes(), (1 + 4 * 2) * ofOne) << "what was taken back";
    EXPECT_EQ(dataSet->field(3, 4)->shareCount(), 1);
    ASSERT_TRUE(session.redo());
    EXPECT_EQ(session.history().valueBytes(), 3 * ofOne);
    EXPECT_EQ(dataSet->field(3, 4)->shareCount(), 4);
}

} // namespace veldraw::tests
