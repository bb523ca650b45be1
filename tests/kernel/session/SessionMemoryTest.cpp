#include "kernel/base/ExactMemory.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/DeleteAuxiliaryItem.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/FourierTransform.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/Krige.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/ProbeLine.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/ReplaceValues.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetAuxiliaryItem.h"
#include "kernel/operations/SetContourColours.h"
#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "kernel/operations/SetValue.h"
#include "kernel/operations/SetValueBlanking.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/SpatialVariables.h"
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/MemorySweep.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/Threads.h"

#include <limits>

namespace veldraw::tests {

using namespace kernel;
using sample::slanting;

namespace {

using Stage = MemoryStage;

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

} // namespace

TEST(WithoutMemory, VariablesAreDeletedWhollyOrNotAtAll)
{
    NumberSet const variables{1, 4, 5};
    EXPECT_GE(
        sweepMemory([&](Stage& stage) { return stage.session.perform(DeleteVariables(*stage.dataSet, variables)); }),
        15);
}

TEST(WithoutMemory, VariablesOfASharedStorageAreDeletedWhollyOrNotAtAll)
{
    NumberSet const variables{5};
    auto const share = [](Stage& stage) { stage.dataSet->zone(1)->fields[4] = stage.dataSet->zone(1)->fields[3]; };
    EXPECT_GE(
        sweepMemory([&](Stage& stage) { return stage.session.perform(DeleteVariables(*stage.dataSet, variables)); },
                    share),
        15);
}

TEST(WithoutMemory, ZonesAreDuplicatedWhollyOrNotAtAll)
{
    NumberSet const zones{1, 2};
    auto const describe = [](Stage& stage) {
        stage.dataSet->zone(1)->auxiliaryData.set("Origin", longText, true);
        stage.dataSet->zone(2)->name = longText;
    };
    EXPECT_GE(sweepMemory([&](Stage& stage) { return stage.session.perform(DuplicateZones(*stage.dataSet, zones)); },
                          describe),
              15);
}

TEST(WithoutMemory, ZonesAreRotatedWhollyOrNotAtAll)
{
    auto const rotate = [](Stage& stage) {
        return stage.session.perform(RotateZones(*stage.dataSet, bothZones, planes, slanting, 30));
    };
    EXPECT_GE(sweepMemory(rotate), 30);
    auto const share = [](Stage& stage) { stage.session.perform(DuplicateZones(*stage.dataSet, bothZones)); };
    EXPECT_GE(sweepMemory(rotate, [&](Stage& stage) { share(stage), stage.recorder->events = 0; }), 30);
}

TEST(WithoutMemory, ZonesAreDuplicatedAroundAnAxisWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory(
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
    EXPECT_GE(
        sweepMemory([](Stage& stage) { return stage.session.perform(MirrorZones(stage.frame->id, bothZones, 'X')); }),
        20);
}

TEST(WithoutMemory, ValuesAreInterpolatedLinearlyWhollyOrNotAtAll)
{
    auto const interpolate = [](Stage& stage) {
        return stage.session.perform(
            InterpolateLinearly(stage.frame->id, {1}, 2, {4, 5}, 0, LinearInterpMode_SetToConstant));
    };
    EXPECT_GE(sweepMemory(interpolate, showPlane), 40);
}

TEST(WithoutMemory, ALineIsProbedWhollyOrNotAtAll)
{
    auto const probe = [](Stage& stage) {
        return stage.session.perform(ProbeLine(stage.frame->id, bothZones, {0, 0, 0}, {2, 1, 0}, 9));
    };
    EXPECT_GE(sweepMemory(probe, showPlane), 40);
}

// Values at the points and at the cells, whole numbers among them, of two zones at the same places.
TEST(WithoutMemory, ValuesAreInterpolatedByInverseDistanceWhollyOrNotAtAll)
{
    for (NeighborChoice const choice : everyChoice) {
        auto const interpolate = [&choice](Stage& stage) {
            return stage.session.perform(
                InterpolateByInverseDistance(stage.frame->id, {1, 2}, 2, {4, 5}, choice, {3.5, 0.1}));
        };
        EXPECT_GE(sweepMemory(interpolate, showPlaneOfWholeNumbers), 60) << choice.selection;
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
        EXPECT_GE(sweepMemory(krige, showPlaneOfWholeNumbers), 80) << choice.selection;
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
    EXPECT_GE(sweepMemory(smooth, [&](Stage& stage) { add(stage, std::make_shared<Zone>(*block)); }), 20);
    auto const cells = sample::fillOf(Connectivity::Shape::Tetrahedron, 2, 0.2, 1).zone(ZoneType_FETetra);
    EXPECT_GE(sweepMemory(smooth, [&](Stage& stage) { add(stage, std::make_shared<Zone>(*cells)); }), 30);
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
    EXPECT_GE(sweepMemory(transform, unrollPlanes), 60);
    auto const transformOne = [&](Stage& stage) {
        unrollPlanes(stage);
        stage.session.perform(FourierTransform(*stage.dataSet, 1, {2}, {1}, choice));
        stage.recorder->events = 0;
    };
    EXPECT_GE(sweepMemory(transform, transformOne), 60);
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
    runDividedOnOneThread([&] { EXPECT_GE(sweepMemory(transform, addLines), 80); });
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
    std::int64_t const before = ExactMemory::timesReserveWasUsed();
    EXPECT_GE(sweepMemory(triangulate, addBoundaries), 100);
    EXPECT_GT(ExactMemory::timesReserveWasUsed(), before)
        << "some of it is asked for by exact numbers, where the lines cross";
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
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(RenameZone(*stage.dataSet, 2, longText)); }),
              3);
    EXPECT_GE(
        sweepMemory([](Stage& stage) { return stage.session.perform(RenameVariable(*stage.dataSet, 2, longText)); }),
        3);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(RenameFrame(stage.frame->id, longText)); }),
              3);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(SetTitle(*stage.dataSet, longText)); }), 3);
}

TEST(WithoutMemory, ZonesAndVariablesAreEnabledWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(EnableZone(*stage.dataSet, 2, false)); }), 4);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(EnableVariable(*stage.dataSet, 2, false)); }),
              4);
}

TEST(WithoutMemory, FramesComeAndGoWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  return stage.session.createFrame(longText, {0, 0, 1, 1}) != nullptr;
              }),
              5);
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  std::vector<std::shared_ptr<Frame>> frames;
                  for (int frame = 0; frame < 2; ++frame) {
                      frames.push_back(std::make_shared<Frame>(longText, Rectangle{0, 0, 1, 1}));
                      frames.back()->dataSet = stage.dataSet;
                  }
                  return stage.session.perform(AddFrame(std::move(frames)));
              }),
              10);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(DeleteFrame(stage.frame->id)); }), 2);
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  auto const place = stage.frame->rectangle.x + 1.0;
                  return stage.session.perform(MoveFrame(stage.frame->id, {place, 1, 1, 1}));
              }),
              3);
}

TEST(WithoutMemory, ADataSetIsGivenToAFrameWhollyOrNotAtAll)
{
    auto const other = sample::ordered({longText + "x", longText + "y", longText + "z"}, 3, 3);
    EXPECT_GE(sweepMemory([&](Stage& stage) { return stage.session.setFrameDataSet(stage.frame->id, other); }), 5);
}

TEST(WithoutMemory, LineMapsAndStyleAreChangedWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(CreateLineMap(stage.frame->id)); }), 4);
    NumberSet const first{1};
    EXPECT_GE(sweepMemory([&](Stage& stage) { return stage.session.perform(DeleteLineMaps(stage.frame->id, first)); }),
              3);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(SetLinePlot(stage.frame->id, 2, 4, 5)); }),
              4);
    EXPECT_GE(
        sweepMemory([](Stage& stage) { return stage.session.perform(SetPlotType(stage.frame->id, PlotType_XYLine)); }),
        4);
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(AssignVariable(stage.frame->id, 'X', 4)); }),
              4);
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  return stage.session.perform(SetPlotOption(stage.frame->id, &Frame::showMesh, true));
              }),
              4);
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  ContourColours colours;
                  colours.levels = 7;
                  return stage.session.perform(SetContourColours(stage.frame->id, colours));
              }),
              3);
    EXPECT_GE(sweepMemory([](Stage& stage) {
                  UniqueId const variable = stage.dataSet->variable(4)->id;
                  ValueBlanking const blanking{true, {{variable, false, 2.0, true}, {variable, true, 7.0, true}}};
                  return stage.session.perform(SetValueBlanking(stage.frame->id, blanking));
              }),
              4);
}

TEST(WithoutMemory, SlicesAreChangedWhollyOrNotAtAll)
{
    EXPECT_GE(sweepMemory([](Stage& stage) { return stage.session.perform(AddCut(stage.frame->id, {})); }), 4);
    Cut const first;
    auto const add = [&](Stage& stage) {
        stage.session.perform(AddCut(stage.frame->id, first));
        stage.recorder->events = 0;
    };
    auto const move = [&](Stage& stage) {
        return stage.session.perform(ChangeCut(stage.frame->id, first.id, [](Cut& cut) { cut.position = 2.0; }));
    };
    EXPECT_GE(sweepMemory(move, add), 4);
    EXPECT_GE(
        sweepMemory([&](Stage& stage) { return stage.session.perform(DeleteCut(stage.frame->id, first.id)); }, add), 4);
}

TEST(WithoutMemory, AnotherMomentIsShownOrThePresentOne)
{
    auto const go = [](Stage& stage) { return stage.session.perform(SetSolutionTime(stage.frame->id, 2.5)); };
    EXPECT_GE(sweepMemory(go, [](Stage& stage) { stage.dataSet->zone(1)->strand = 7; }), 4);
}

TEST(WithoutMemory, LineMapsAreAlteredWhollyOrNotAtAll)
{
    NumberSet const first{1};
    auto const rename = [&](Stage& stage) {
        return stage.session.perform(ChangeLineMaps(stage.frame->id, first, [](LineMap& map) { map.name = longText; }));
    };
    EXPECT_GE(sweepMemory(rename), 4);
    auto const set = [&](Stage& stage) {
        LineMapSettings settings;
        settings.name = longText;
        return stage.session.perform(SetLineMaps(stage.frame->id, first, settings));
    };
    EXPECT_GE(sweepMemory(set), 4);
    auto const duplicate = [&](Stage& stage) {
        return stage.session.perform(DuplicateLineMaps(stage.frame->id, first));
    };
    EXPECT_GE(sweepMemory(duplicate), 4);
    auto const setAxis = [](Stage& stage) {
        LineAxis axis;
        axis.title = longText;
        return stage.session.perform(SetLineAxis(stage.frame->id, LineAxisKind::Y2, axis));
    };
    EXPECT_GE(sweepMemory(setAxis), 3);
    auto const setTitle = [](Stage& stage) { return stage.session.perform(SetPlotTitle(stage.frame->id, longText)); };
    EXPECT_GE(sweepMemory(setTitle), 3);
}

TEST(WithoutMemory, AValueIsSetWhollyOrNotAtAll)
{
    for (bool const branches : {false, true}) {
        auto const set = [branches](Stage& stage) {
            return stage.session.perform(SetValue(*stage.dataSet, 1, 4, 2, 42.0, branches));
        };
        EXPECT_GE(sweepMemory(set), 4);
    }
}

TEST(WithoutMemory, ValuesAreReplacedWhollyOrNotAtAll)
{
    for (bool const branches : {false, true}) {
        auto const replace = [branches](Stage& stage) {
            Field const& field = *stage.dataSet->field(1, 4);
            auto const values = Buffer::allocate(field.type(), field.group()->size());
            return stage.session.perform(ReplaceValues(*stage.dataSet, 1, 4, values, branches));
        };
        EXPECT_GE(sweepMemory(replace), 4);
    }
}

TEST(WithoutMemory, AuxiliaryItemsComeAndGoWhollyOrNotAtAll)
{
    auto const set = [](Stage& stage) {
        return stage.session.perform(SetAuxiliaryItem(AuxDataLocation_Zone, 1, longText, longText, true));
    };
    EXPECT_GE(sweepMemory(set), 4);
    auto const remove = [](Stage& stage) {
        return stage.session.perform(DeleteAuxiliaryItem(AuxDataLocation_Zone, 1, longText));
    };
    auto const describe = [](Stage& stage) { stage.dataSet->zone(1)->auxiliaryData.set(longText, longText, true); };
    EXPECT_GE(sweepMemory(remove, describe), 3);
}

TEST(WithoutMemory, ValuesAndDimensionsAreLoadedWhollyOrNotAtAll)
{
    auto const defer = [](Stage& stage) {
        auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
        stage.dataSet->zone(1)->fields[0] = sample::Loader::field(loader);
        stage.dataSet->zone(2)->fields[0] = sample::Loader::field(loader);
    };
    auto const load = [](Stage& stage) { return stage.session.perform(LoadVariables(*stage.dataSet, {1, 2}, {1, 4})); };
    EXPECT_GE(sweepMemory(load, defer), 5);
    auto const makeAvailable = [](Stage& stage) {
        return stage.session.perform(MakeVariablesAvailable(*stage.dataSet, {1, 2}, {1, 4}));
    };
    EXPECT_GE(sweepMemory(makeAvailable, defer), 5);
    auto const hideSize = [](Stage& stage) {
        Zone& zone = *stage.dataSet->zone(1);
        zone.dimensionsLoader = std::make_shared<sample::SizeLoader>(ZoneDimensions{3, 2, 1, {}});
        zone.i = zone.j = zone.k = -1;
    };
    auto const loadSize = [](Stage& stage) { return stage.session.perform(LoadDimensions(*stage.dataSet, 1)); };
    EXPECT_GE(sweepMemory(loadSize, hideSize), 2);
}

TEST(WithoutMemory, UndoAndRedoNeedNone)
{
    EXPECT_EQ(sweepMemory([](Stage& stage) { return stage.session.undo(); }), 0);
    EXPECT_EQ(sweepMemory([](Stage& stage) { return stage.session.redo(); }), 0);
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
