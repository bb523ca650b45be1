#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/FourierTransform.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/Krige.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/kernel/support/Threads.h"
#include "tests/support/AllocationFailure.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using sample::slanting;

namespace {

/// Everything that a sweep starts from, fresh for each request that fails.
struct Stage
{
    Stage()
    {
        frame->dataSet = dataSet;
        session.openPage({frame});
        session.perform(RenameZone(*dataSet, 1, "named before")); // so that undo and redo have work
        session.perform(RenameVariable(*dataSet, 1, "named before"));
        session.undo();
        recorder = std::make_unique<EventCounter>(session.events());
    }

    struct EventCounter
    {
        explicit EventCounter(EventHub& hub)
        {
            hub.subscribe([this](StateChangeEvent const&) { ++events; });
        }
        int events = 0;
    };

    std::shared_ptr<DataSet> dataSet = sample::twoPlanes();
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("Frame 1", Rectangle{});
    Session session;
    std::unique_ptr<EventCounter> recorder;
};

std::string const longText(200, 'n');

/// The planes of the stage as things in space, their Z passive.
NumberSet const bothZones{1, 2};
SpatialVariables const planes{{1, 2, 3}, {}, true, false};

NeighborChoice const everyChoice[] = {{PtSelection_NearestN, 4}, {PtSelection_Octant, 5}, {PtSelection_All, 1}};

void showPlane(Stage& stage)
{
    stage.session.perform(SetPlotType(stage.frame->id, PlotType_Cartesian2D));
    stage.recorder->events = 0;
}

/// With P of the second zone as bits, and one source value that does not count.
void showPlaneOfWholeNumbers(Stage& stage)
{
    stage.dataSet->zone(1)->fields[3] = sample::field({1, 0, std::numeric_limits<double>::quiet_NaN(), 0, 1, 0});
    stage.dataSet->zone(2)->fields[3] = sample::field({0, 1, 1, 0, 0, 1}, FieldDataType_Bit);
    showPlane(stage);
}

/// Lets each request for memory of @p operation fail once: it succeeds, or nothing has changed and nothing was told.
/// @return the number of requests that failed
int sweep(
    std::function<bool(Stage&)> const& operation, std::function<void(Stage&)> const& prepare = [](Stage&) {})
{
    for (int request = 1; request < 10000; ++request) {
        Stage stage;
        prepare(stage);
        std::string const before = stateDigest(stage.session);
        bool succeeded = false;
        bool failedOnce = false;
        {
            AllocationFailure const failure(request);
            succeeded = refusedWithoutMemory(stage.session, [&] { return operation(stage); });
            failedOnce = failure.hasHappened();
        }
        if (!failedOnce) {
            EXPECT_TRUE(succeeded) << "with all memory";
            return request - 1;
        }
        if (!succeeded) {
            EXPECT_EQ(stateDigest(stage.session), before) << "request " << request;
            EXPECT_EQ(stage.recorder->events, 0) << "request " << request;
            EXPECT_EQ(stage.session.lastError(), "Out of memory.") << "request " << request;
            EXPECT_TRUE(operation(stage)) << "afterwards, request " << request;
        } else {
            EXPECT_NE(stateDigest(stage.session), before) << "request " << request;
            EXPECT_GT(stage.recorder->events, 0) << "request " << request;
        }
    }
    ADD_FAILURE() << "the operation never came to an end";
    return 0;
}

} // namespace

TEST(WithoutMemory, VariablesAreDeletedWhollyOrNotAtAll)
{
    NumberSet const variables{1, 4, 5};
    EXPECT_GE(sweep([&](Stage& stage) { return stage.session.perform(DeleteVariables(*stage.dataSet, variables)); }),
              15);
}

TEST(WithoutMemory, VariablesOfASharedStorageAreDeletedWhollyOrNotAtAll)
{
    NumberSet const variables{5};
    auto const share = [](Stage& stage) { stage.dataSet->zone(1)->fields[4] = stage.dataSet->zone(1)->fields[3]; };
    EXPECT_GE(
        sweep([&](Stage& stage) { return stage.session.perform(DeleteVariables(*stage.dataSet, variables)); }, share),
        15);
}

TEST(WithoutMemory, ZonesAreDuplicatedWhollyOrNotAtAll)
{
    NumberSet const zones{1, 2};
    auto const describe = [](Stage& stage) {
        stage.dataSet->zone(1)->auxiliaryData.set("Origin", longText, true);
        stage.dataSet->zone(2)->name = longText;
    };
    EXPECT_GE(
        sweep([&](Stage& stage) { return stage.session.perform(DuplicateZones(*stage.dataSet, zones)); }, describe),
        15);
}

TEST(WithoutMemory, ZonesAreTurnedWhollyOrNotAtAll)
{
    auto const turn = [](Stage& stage) {
        return stage.session.perform(RotateZones(*stage.dataSet, bothZones, planes, slanting, 30));
    };
    EXPECT_GE(sweep(turn), 30);
    auto const share = [](Stage& stage) { stage.session.perform(DuplicateZones(*stage.dataSet, bothZones)); };
    EXPECT_GE(sweep(turn, [&](Stage& stage) { share(stage), stage.recorder->events = 0; }), 30);
}

TEST(WithoutMemory, ZonesAreDuplicatedAroundAnAxisWhollyOrNotAtAll)
{
    EXPECT_GE(sweep(
                  [](Stage& stage) {
                      AxialCopies const copies{30, 0, 2, false};
                      return stage.session.perform(
                          DuplicateZonesAxially(*stage.dataSet, bothZones, planes, slanting, copies));
                  },
                  [](Stage& stage) { stage.dataSet->zone(1)->strand = 7; }),
              60);
}

TEST(WithoutMemory, ZonesAreMirroredWhollyOrNotAtAll)
{
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(MirrorZones(stage.frame->id, bothZones, 'X')); }),
              20);
}

TEST(WithoutMemory, ValuesAreInterpolatedLinearlyWhollyOrNotAtAll)
{
    auto const interpolate = [](Stage& stage) {
        return stage.session.perform(
            InterpolateLinearly(stage.frame->id, {1}, 2, {4, 5}, 0, LinearInterpMode_SetToConstant));
    };
    EXPECT_GE(sweep(interpolate, showPlane), 40);
}

// Values at the points and at the cells, whole numbers among them, of two zones at the same places.
TEST(WithoutMemory, ValuesAreInterpolatedByInverseDistanceWhollyOrNotAtAll)
{
    for (NeighborChoice const choice : everyChoice) {
        auto const interpolate = [&choice](Stage& stage) {
            return stage.session.perform(
                InterpolateByInverseDistance(stage.frame->id, {1, 2}, 2, {4, 5}, choice, {3.5, 0.1}));
        };
        EXPECT_GE(sweep(interpolate, showPlaneOfWholeNumbers), 60) << choice.selection;
    }
}

// The quadratic drift falls back to a lower one.
TEST(WithoutMemory, ValuesAreKrigedWhollyOrNotAtAll)
{
    for (NeighborChoice const choice : everyChoice) {
        Drift_e const drift = choice.selection == PtSelection_NearestN ? Drift_None : Drift_Quadratic;
        auto const krige = [&choice, drift](Stage& stage) {
            return stage.session.perform(Krige(stage.frame->id, {1}, 2, {4, 5}, choice, Krige::Model{0.5, 0.1, drift}));
        };
        EXPECT_GE(sweep(krige, showPlaneOfWholeNumbers), 80) << choice.selection;
    }
}

TEST(WithoutMemory, ValuesAreSmoothedWhollyOrNotAtAll)
{
    auto const smooth = [](Stage& stage) {
        int const zone = stage.dataSet->zoneCount();
        return stage.session.perform(SmoothVariable(stage.frame->id, zone, 4, 9, 0.5, BoundaryCondition_FirstOrder));
    };
    auto const add = [](Stage& stage, std::shared_ptr<Zone> const& zone) {
        std::vector<double> values(static_cast<std::size_t>(zone->pointCount()));
        std::iota(values.begin(), values.end(), 0.0);
        std::rotate(values.begin(), values.begin() + 7, values.end());
        zone->fields.resize(3);
        zone->fields.push_back(sample::field(values));
        zone->fields.emplace_back();
        stage.dataSet->addZone(zone);
        stage.session.perform(SetPlotType(stage.frame->id, PlotType_Cartesian2D));
        stage.recorder->events = 0;
    };
    auto const block = std::make_shared<Zone>("block", ZoneType_Ordered, 5, 4, 3);
    EXPECT_GE(sweep(smooth, [&](Stage& stage) { add(stage, std::make_shared<Zone>(*block)); }), 20);
    auto const cells = sample::fillOf(Connectivity::Shape::Tetrahedron, 2, 0.2, 1).zone(ZoneType_FETetra);
    EXPECT_GE(sweep(smooth, [&](Stage& stage) { add(stage, std::make_shared<Zone>(*cells)); }), 30);
}

// T is at the cells; the boundary is a loop that a line crosses, with P alone.
TEST(WithoutMemory, VariablesAreTransformedWhollyOrNotAtAll)
{
    FourierTransform::Choice const choice{{WindowFunction_Hann, true}, false, true, true};
    auto const unrollPlanes = [](Stage& stage) {
        for (auto const& zone : stage.dataSet->zones()) {
            zone->i = 6;
            zone->j = 1;
            zone->fields[0] = sample::field({0, 1, 2, 3, 4, 5});
        }
    };
    auto const transform = [&](Stage& stage) {
        return stage.session.perform(FourierTransform(*stage.dataSet, 1, {2, 4}, bothZones, choice));
    };
    EXPECT_GE(sweep(transform, unrollPlanes), 60);
    auto const transformOne = [&](Stage& stage) {
        unrollPlanes(stage);
        stage.session.perform(FourierTransform(*stage.dataSet, 1, {2}, {1}, choice));
        stage.recorder->events = 0;
    };
    EXPECT_GE(sweep(transform, transformOne), 60);
}

TEST(WithoutMemory, LinesOfSeveralLengthsAreTransformedWhollyOrNotAtAll)
{
    auto const addLines = [](Stage& stage) {
        for (std::int64_t const length : {11, 53, 12}) {
            std::vector<double> rising(static_cast<std::size_t>(length));
            std::iota(rising.begin(), rising.end(), 0.0);
            auto const zone = std::make_shared<Zone>("line", ZoneType_Ordered, length, 1, 1);
            for (int variable = 0; variable < 5; ++variable) {
                zone->fields.push_back(sample::field(rising));
            }
            stage.dataSet->addZone(zone);
        }
    };
    auto const transform = [](Stage& stage) {
        FourierTransform::Choice const choice{{WindowFunction_Hann, false}, false, false, false};
        return stage.session.perform(FourierTransform(*stage.dataSet, 1, {2}, {3, 4, 5}, choice));
    };
    runDividedOnOneThread([&] { EXPECT_GE(sweep(transform, addLines), 80); });
}

TEST(WithoutMemory, ZonesAreTriangulatedWhollyOrNotAtAll)
{
    auto const addBoundaries = [](Stage& stage) {
        for (std::vector<double> const& x : {std::vector<double>{0.2, 1.8, 1, 0.2}, {1, 1}}) {
            std::vector<double> const y =
                x.size() == 4 ? std::vector<double>{0.1, 0.1, 0.9, 0.1} : std::vector<double>{0, 1};
            auto zone = std::make_shared<Zone>(longText, ZoneType_Ordered, static_cast<std::int64_t>(x.size()), 1, 1);
            zone->fields = {sample::field(x, FieldDataType_Double), sample::field(y, FieldDataType_Double), Field(),
                            sample::field(y), Field()};
            stage.dataSet->addZone(zone);
        }
        showPlane(stage);
    };
    auto const triangulate = [](Stage& stage) {
        return stage.session.perform(Triangulate(stage.frame->id, bothZones, {3, 4}, true, 0.25));
    };
    EXPECT_GE(sweep(triangulate, addBoundaries), 100);
}

TEST(WithoutMemory, ZoneOperationsAreUndoneAndRedone)
{
    Stage stage;
    ASSERT_TRUE(
        stage.session.perform(DuplicateZonesAxially(*stage.dataSet, {1, 2}, planes, slanting, {30, 0, 2, false})));
    ASSERT_TRUE(stage.session.perform(RotateZones(*stage.dataSet, {1, 3}, planes, slanting, 30)));
    ASSERT_TRUE(stage.session.perform(MirrorZones(stage.frame->id, {1, 2}, 'X')));
    AllocationFailure const failure(1);
    for (int round = 0; round < 2; ++round) {
        for (int step = 0; step < 3; ++step) {
            EXPECT_TRUE(stage.session.undo());
        }
        for (int step = 0; step < 3; ++step) {
            EXPECT_TRUE(stage.session.redo());
        }
    }
    EXPECT_FALSE(failure.hasHappened());
}

TEST(WithoutMemory, NamesAreChangedWhollyOrNotAtAll)
{
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(RenameZone(*stage.dataSet, 2, longText)); }), 3);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(RenameVariable(*stage.dataSet, 2, longText)); }),
              3);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(RenameFrame(stage.frame->id, longText)); }), 3);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(SetTitle(*stage.dataSet, longText)); }), 3);
}

TEST(WithoutMemory, ZonesAndVariablesAreEnabledWhollyOrNotAtAll)
{
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(EnableZone(*stage.dataSet, 2, false)); }), 4);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(EnableVariable(*stage.dataSet, 2, false)); }), 4);
}

TEST(WithoutMemory, FramesComeAndGoWhollyOrNotAtAll)
{
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.createFrame(longText, {0, 0, 1, 1}) != nullptr; }), 5);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(DeleteFrame(stage.frame->id)); }), 2);
    EXPECT_GE(sweep([](Stage& stage) {
                  auto const place = stage.frame->rectangle.x + 1.0;
                  return stage.session.perform(MoveFrame(stage.frame->id, {place, 1, 1, 1}));
              }),
              3);
}

TEST(WithoutMemory, ADataSetIsGivenToAFrameWhollyOrNotAtAll)
{
    auto const other = sample::ordered({longText + "x", longText + "y", longText + "z"}, 3, 3);
    EXPECT_GE(sweep([&](Stage& stage) { return stage.session.setFrameDataSet(stage.frame->id, other); }), 5);
}

TEST(WithoutMemory, LineMapsAndStyleAreChangedWhollyOrNotAtAll)
{
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(CreateLineMap(stage.frame->id)); }), 4);
    NumberSet const first{1};
    EXPECT_GE(sweep([&](Stage& stage) { return stage.session.perform(DeleteLineMaps(stage.frame->id, first)); }), 3);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(SetLinePlot(stage.frame->id, 2, 4, 5)); }), 4);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(SetPlotType(stage.frame->id, PlotType_XYLine)); }),
              4);
    EXPECT_GE(sweep([](Stage& stage) { return stage.session.perform(AssignVariable(stage.frame->id, 'X', 4)); }), 4);
    EXPECT_GE(sweep([](Stage& stage) {
                  return stage.session.perform(SetPlotOption(stage.frame->id, &Frame::showMesh, true));
              }),
              4);
}

TEST(WithoutMemory, UndoAndRedoNeedNone)
{
    EXPECT_EQ(sweep([](Stage& stage) { return stage.session.undo(); }), 0);
    EXPECT_EQ(sweep([](Stage& stage) { return stage.session.redo(); }), 0);
}

TEST(WithoutMemory, ADeletionIsUndoneAndRedone)
{
    Stage stage;
    ASSERT_TRUE(stage.session.perform(DeleteVariables(*stage.dataSet, {1, 4, 5})));
    AllocationFailure const failure(1);
    EXPECT_TRUE(stage.session.undo());
    EXPECT_TRUE(stage.session.redo());
    EXPECT_TRUE(stage.session.undo());
    EXPECT_FALSE(failure.hasHappened());
}

TEST(WithoutMemory, ADuplicationIsUndoneAndRedone)
{
    Stage stage;
    ASSERT_TRUE(stage.session.perform(DuplicateZones(*stage.dataSet, {1, 2})));
    ASSERT_TRUE(stage.session.perform(DeleteVariables(*stage.dataSet, {4})));
    AllocationFailure const failure(1);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(stage.session.undo());
        EXPECT_TRUE(stage.session.undo());
        EXPECT_TRUE(stage.session.redo());
        EXPECT_TRUE(stage.session.redo());
    }
    EXPECT_FALSE(failure.hasHappened());
}

} // namespace veldraw::tests
