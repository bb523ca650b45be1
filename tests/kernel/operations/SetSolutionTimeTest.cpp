#include "kernel/operations/SetSolutionTime.h"

#include "kernel/frames/FrameDefaults.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SessionFixture.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using sample::Loader;
using testing::ElementsAre;

namespace {

/// A strand of many moments, whose values come when they are wanted.
class TransientFrame : public SessionFixture
{
protected:
    static constexpr int steps = 1000;
    static constexpr std::int64_t bytesOfField = 6 * 4;

    TransientFrame()
    {
        auto transient = std::make_shared<DataSet>("transient");
        for (char const* const name : {"X", "Y", "P", "Q"}) {
            transient->addVariable(std::make_shared<Variable>(name));
        }
        for (int step = 0; step < steps; ++step) {
            auto zone = std::make_shared<Zone>("step", ZoneType_Ordered, 3, 2, 1);
            zone->strand = 1;
            zone->solutionTime = 0.5 * step;
            for (int variable = 0; variable < 4; ++variable) {
                loaders.push_back(std::make_shared<Loader>(std::vector<double>{0, 1, 2, 0, 1, 2.0 + step}));
                zone->fields.push_back(Loader::field(loaders.back()));
            }
            transient->addZone(zone);
        }
        EXPECT_TRUE(session.setFrameDataSet(frame->id, transient));
        EXPECT_TRUE(session.perform(SetPlotType(frame->id, PlotType_Cartesian2D)));
        dataSet = transient;
        recorder.take();
    }

    bool go(double time) { return session.perform(SetSolutionTime(frame->id, time)); }

    Loader& loader(int zone, int variable) { return *loaders[static_cast<std::size_t>(4 * (zone - 1) + variable - 1)]; }

    int loadedFields() const
    {
        int loaded = 0;
        for (auto const& zone : dataSet->zones()) {
            for (Field const& field : zone->fields) {
                loaded += field.isLoaded() ? 1 : 0;
            }
        }
        return loaded;
    }

    std::vector<std::shared_ptr<Loader>> loaders;
};

} // namespace

TEST_F(TransientFrame, BeginsAtTheFirstMoment)
{
    dataSet->zone(1)->solutionTime = 7.0;
    layOut(*frame);
    EXPECT_EQ(frame->solutionTime, 0.5);
    EXPECT_EQ(frame->zonesInSight(), (NumberSet{2}));
    frame->dataSet = sample::twoPlanes();
    layOut(*frame);
    EXPECT_EQ(frame->solutionTime, 0.0) << "without strands";
    EXPECT_EQ(frame->zonesInSight(), (NumberSet{1, 2}));
}

TEST_F(TransientFrame, LoadsWhatItDrawsOfTheZonesThatComeInSight)
{
    EXPECT_TRUE(go(3.2));
    EXPECT_EQ(frame->solutionTime, 3.2);
    for (int const variable : {1, 2, 3}) {
        EXPECT_TRUE(dataSet->field(7, variable)->isLoaded()) << variable;
    }
    EXPECT_FALSE(dataSet->field(7, 4)->isLoaded()) << "is not drawn";
    EXPECT_EQ(loadedFields(), 3);
    EXPECT_THAT(recorder.take(), ElementsAre("7 SolutionTime frame", "21 zones 7 variables 1 2 3"));
}

TEST_F(TransientFrame, DrawsTheContourAndSurfacesOnlyWhereTheyAreShown)
{
    EXPECT_EQ(frame->drawnVariables(), (NumberSet{1, 2, 3}));
    frame->showContour = false;
    EXPECT_EQ(frame->drawnVariables(), (NumberSet{1, 2}));
    Cut cut;
    cut.kind = CutKind::IsoSurface;
    cut.variable = dataSet->variable(4)->id;
    frame->cuts = {cut};
    EXPECT_EQ(frame->drawnVariables(), (NumberSet{1, 2, 4}));
    frame->cuts[0].isShown = false;
    EXPECT_EQ(frame->drawnVariables(), (NumberSet{1, 2}));
    frame->plotType = PlotType_XYLine;
    EXPECT_TRUE(frame->drawnVariables().empty());
}

TEST_F(TransientFrame, IsMovedAsAStep)
{
    ASSERT_TRUE(go(0.5));
    ASSERT_TRUE(go(1.0));
    std::string const before = withoutHistory();
    ASSERT_TRUE(go(0.5));
    ASSERT_TRUE(go(1.0));
    recorder.take();
    EXPECT_EQ(withoutHistory(), before) << "values that were loaded stay";
    EXPECT_TRUE(go(0.5));
    EXPECT_THAT(recorder.take(), ElementsAre("7 SolutionTime frame"));
    EXPECT_EQ(session.history().undoName(), "Solution Time");
    expectUndoAndRedo(before, {"7 SolutionTime frame"}, {"7 SolutionTime frame"});
    EXPECT_TRUE(session.history().isClean()) << "a file holds none of it";
    EXPECT_TRUE(go(0.5));
    EXPECT_THAT(recorder.take(), ElementsAre()) << "it is there already";
}

TEST_F(TransientFrame, IsMovedThroughARunInOneStep)
{
    ASSERT_TRUE(go(1.0));
    UniqueId const run = nextUniqueId();
    for (double const time : {1.5, 2.0, 2.5}) {
        EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, time, run)));
    }
    EXPECT_THAT(recorder.take().back(), "21 zones 6 variables 1 2 3");
    session.undo();
    EXPECT_EQ(frame->solutionTime, 1.0);
    session.redo();
    EXPECT_EQ(frame->solutionTime, 2.5);
    ASSERT_TRUE(session.perform(SetPlotOption(frame->id, &Frame::showMesh, true)));
    EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, 3.0, run)));
    session.undo();
    EXPECT_EQ(frame->solutionTime, 2.5) << "what was done in between begins another step";
    EXPECT_EQ(session.history().undoName(), "Mesh");
    session.undo();
    ASSERT_TRUE(session.history().canRedo());
    EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, 3.5, run)));
    EXPECT_FALSE(session.history().canRedo()) << "another way was gone";
    session.undo();
    EXPECT_EQ(frame->solutionTime, 1.0);
    session.undo();
    EXPECT_EQ(frame->solutionTime, 0.0);
}

TEST_F(TransientFrame, IsMovedThroughARunWithinAGroup)
{
    UniqueId const run = nextUniqueId();
    session.history().beginGroup("Several");
    EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, 1.0, run)));
    EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, 2.0, run)));
    session.history().endGroup();
    EXPECT_EQ(session.history().undoName(), "Several");
    EXPECT_TRUE(session.perform(SetSolutionTime(frame->id, 3.0, run)));
    session.undo();
    EXPECT_EQ(frame->solutionTime, 2.0);
    session.undo();
    EXPECT_EQ(frame->solutionTime, 0.0);
}

TEST_F(TransientFrame, IsNotMovedToNowhere)
{
    for (double const time : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        expectRefused([&] { return go(time); });
        EXPECT_EQ(session.lastError(), "A solution time is a finite number.");
    }
    loader(3, 2).before = [](Progress&) { throw std::runtime_error("the file is gone"); };
    expectRefused([&] { return go(1.0); });
    EXPECT_NE(session.lastError().find("the file is gone"), std::string::npos);
    EXPECT_EQ(loadedFields(), 0);
    expectRefused([&] { return session.perform(SetSolutionTime(noFrame, 1.0)); });
    EXPECT_TRUE(go(1.5));
}

TEST_F(TransientFrame, IsMovedInALockedDataSetAndWithoutOne)
{
    session.setLock(*dataSet, "somebody");
    EXPECT_TRUE(go(1.0));
    frame->dataSet.reset();
    EXPECT_TRUE(go(2.0));
    EXPECT_TRUE(frame->zonesInSight().empty());
}

TEST_F(TransientFrame, KeepsNoMoreThanTheLimitOverAThousandMoments)
{
    session.loadedValues().setLimit(40 * bytesOfField);
    frame->lineMaps.clear(); // a line plot would show the first zone whatever the moment
    ASSERT_TRUE(go(0.5 * steps));
    int most = 0;
    for (int step = 0; step < steps; ++step) {
        ASSERT_TRUE(go(0.5 * step));
        for (int const variable : {1, 2, 3}) {
            ASSERT_TRUE(dataSet->field(step + 1, variable)->isLoaded()) << step;
        }
        most = std::max(most, loadedFields());
    }
    EXPECT_EQ(most, 40);
    EXPECT_FALSE(dataSet->field(1, 1)->isLoaded());
    EXPECT_TRUE(session.undo());
    EXPECT_EQ(frame->zonesInSight(), (NumberSet{steps - 1}));
    EXPECT_EQ(loader(1, 1).loads, 1);
    ASSERT_TRUE(go(0.0));
    EXPECT_EQ(loader(1, 1).loads, 2) << "what was let go comes back";
}

TEST_F(TransientFrame, KeepsTheCurvesOfItsLineMaps)
{
    frame->lineMaps[0].zone = dataSet->zone(2)->id;
    ASSERT_TRUE(go(0.5));
    ASSERT_TRUE(go(1.0));
    session.loadedValues().setLimit(0);
    EXPECT_TRUE(dataSet->field(2, 1)->isLoaded());
    EXPECT_TRUE(dataSet->field(2, 2)->isLoaded());
    EXPECT_FALSE(dataSet->field(2, 3)->isLoaded()) << "is of another moment, and in no curve";
    EXPECT_TRUE(dataSet->field(3, 3)->isLoaded());
}

} // namespace veldraw::tests
