#include "kernel/operations/DuplicateZones.h"

#include "kernel/api/ArgumentList.h"
#include "kernel/data/TimeStrands.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetValue.h"
#include "platform/vdsdkbase/VelUtil.h"
#include "tests/kernel/support/SessionFixture.h"

#include <climits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

class DuplicateZonesTest : public SessionFixture
{
protected:
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (auto const& zone : dataSet->zones()) {
            result.push_back(zone->name);
        }
        return result;
    }

    /// How many fields share the storage of each variable that the zone has values of.
    std::vector<int> shareCounts(int zone) const
    {
        std::vector<int> counts;
        for (Field const& field : dataSet->zone(zone)->fields) {
            if (!field.isPassive()) {
                counts.push_back(field.shareCount());
            }
        }
        return counts;
    }
};

/// Two triangles over four points.
std::shared_ptr<Connectivity const> twoTriangles()
{
    static std::int64_t const offsets[] = {0, 3, 6};
    static std::int64_t const indices[] = {0, 1, 2, 1, 3, 2};
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = 2;
    cells->indexCount = 6;
    cells->offsets = offsets;
    cells->indices = indices;
    return cells;
}

} // namespace

TEST_F(DuplicateZonesTest, AppendsACopyOfEachInTheOrderOfTheSources)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {2, 1})));
    EXPECT_THAT(names(), ElementsAre("lower", "upper", "lower", "upper"));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {2})));
    EXPECT_THAT(names(), ElementsAre("lower", "upper", "lower", "upper", "upper"));
}

TEST_F(DuplicateZonesTest, OfAStrandWhoseLowestZoneIsDisabledStandInItsFieldMap)
{
    dataSet->zone(1)->strand = dataSet->zone(2)->strand = 7;
    dataSet->addZone(std::make_shared<Zone>("wall", ZoneType_Ordered, 1, 1, 1));
    ASSERT_TRUE(session.perform(EnableZone(*dataSet, 1, false)));
    ASSERT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{2}, {3}}));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {2})));
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{2, 4}, {3}}));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{2, 4, 5}, {3}})) << "a copy is enabled";
    ASSERT_TRUE(session.perform(EnableZone(*dataSet, 2, false)));
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{4, 5}, {3}}));
    ASSERT_TRUE(session.undo() && session.undo() && session.undo() && session.undo());
    EXPECT_EQ(fieldMaps(*dataSet), (std::vector<NumberSet>{{1, 2}, {3}}));
}

TEST_F(DuplicateZonesTest, CopiesAllThatDescribesAZone)
{
    auto const triangles = std::make_shared<Zone>("skin", ZoneType_FETriangle, 4, 2, 0);
    triangles->solutionTime = 0.25;
    triangles->strand = 7;
    triangles->connectivity = twoTriangles();
    triangles->auxiliaryData.set("Common.Part", "hull", false);
    dataSet->addZone(triangles);
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {3})));
    Zone const& copy = *dataSet->zone(4);
    EXPECT_EQ(copy.name, "skin");
    EXPECT_EQ(copy.type, ZoneType_FETriangle);
    EXPECT_EQ(copy.i, 4);
    EXPECT_EQ(copy.j, 2);
    EXPECT_EQ(copy.k, 0);
    EXPECT_EQ(copy.solutionTime, 0.25);
    EXPECT_EQ(copy.strand, 7);
    EXPECT_EQ(copy.connectivity, triangles->connectivity) << "shared, not copied";
    ASSERT_EQ(copy.auxiliaryData.size(), 1);
    EXPECT_EQ(copy.auxiliaryData.item(1).value, "hull");
    EXPECT_FALSE(copy.auxiliaryData.item(1).retain);
}

TEST_F(DuplicateZonesTest, KeepsACopyInTheTimeStrandOfItsSource)
{
    dataSet->zone(1)->strand = 3;
    dataSet->zone(1)->solutionTime = 1.5;
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 2})));
    EXPECT_EQ(dataSet->zone(3)->strand, 3);
    EXPECT_EQ(dataSet->zone(3)->solutionTime, 1.5);
    EXPECT_EQ(dataSet->zone(4)->strand, staticStrand);
    EXPECT_THAT(fieldMaps(*dataSet), ElementsAre(NumberSet{1, 3}, NumberSet{2}, NumberSet{4}));
}

TEST_F(DuplicateZonesTest, SharesEveryFieldWithItsSource)
{
    EXPECT_THAT(shareCounts(1), ElementsAre(1, 1, 2, 1));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    EXPECT_THAT(shareCounts(1), ElementsAre(2, 2, 3, 2));
    EXPECT_THAT(shareCounts(2), ElementsAre(1, 1, 3, 1));
    EXPECT_THAT(shareCounts(3), ElementsAre(2, 2, 3, 2));
    for (int variable = 1; variable <= 5; ++variable) {
        Field const& source = *dataSet->field(1, variable);
        Field const& copy = *dataSet->field(3, variable);
        EXPECT_EQ(copy.group(), source.group()) << variable;
        EXPECT_EQ(copy.location(), source.location()) << variable;
        EXPECT_EQ(copy.type(), source.type()) << variable;
    }
    EXPECT_TRUE(dataSet->field(3, 3)->isPassive());
}

TEST_F(DuplicateZonesTest, SharesAmongTheCopiesWhatTheSourcesShare)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 2})));
    EXPECT_THAT(shareCounts(3), ElementsAre(2, 2, 4, 2));
    EXPECT_EQ(dataSet->field(3, 4)->group(), dataSet->field(4, 4)->group());
}

TEST_F(DuplicateZonesTest, KeepsTheSourceWhenACopyIsBranchedOffAndWritten)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    ASSERT_TRUE(session.perform(SetValue(*dataSet, 3, 1, 1, -8, true)));
    EXPECT_EQ(dataSet->field(1, 1)->group()->buffer()->value(1), 1);
    EXPECT_EQ(dataSet->field(3, 1)->group()->buffer()->value(1), -8);
}

TEST_F(DuplicateZonesTest, GivesACopyAnIdentifierAndAuxiliaryDataOfItsOwn)
{
    dataSet->zone(1)->auxiliaryData.set("Part", "hull", true);
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    Zone& copy = *dataSet->zone(3);
    EXPECT_NE(copy.id, dataSet->zone(1)->id);
    EXPECT_EQ(dataSet->zoneNumber(copy.id), 3);
    copy.auxiliaryData.set("Part", "keel", true);
    EXPECT_EQ(dataSet->zone(1)->auxiliaryData.item(1).value, "hull");
}

TEST_F(DuplicateZonesTest, EnablesTheCopiesOfDisabledZonesToo)
{
    ASSERT_TRUE(session.perform(EnableZone(*dataSet, 2, false)));
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {2})));
    EXPECT_FALSE(dataSet->zone(2)->enabled);
    EXPECT_TRUE(dataSet->zone(3)->enabled);
}

TEST_F(DuplicateZonesTest, TellsTheNumbersOfTheCopies)
{
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 2})));
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 3 4"));
}

TEST_F(DuplicateZonesTest, IsConsistentWhenTheEventArrives)
{
    std::size_t fieldsOfCopy = 0;
    session.events().subscribe([&](StateChangeEvent const& event) {
        if (event.kind != StateChange_ZonesAdded) {
            return;
        }
        ASSERT_EQ(dataSet->zoneCount(), 3);
        fieldsOfCopy = dataSet->zone(*event.zones.begin())->fields.size();
        EXPECT_EQ(session.history().undoName(), "Create Duplicate Zone");
    });
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {2})));
    EXPECT_EQ(fieldsOfCopy, 5U);
}

TEST_F(DuplicateZonesTest, CanBeUndoneAndRedoneAnyNumberOfTimes)
{
    dataSet->zone(1)->auxiliaryData.set("Part", "hull", true);
    std::string const before = withoutHistory();
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1, 2})));
    UniqueId const copy = dataSet->zone(4)->id;
    for (int round = 0; round < 3; ++round) {
        expectUndoAndRedo(before, {"5 zones 3 4"}, {"4 zones 3 4"});
    }
    EXPECT_EQ(dataSet->zoneNumber(copy), 4);
}

TEST_F(DuplicateZonesTest, TakesTheCopiesOffTheSharedStorageWhileTheyAreOut)
{
    session.perform(DuplicateZones(*dataSet, {1, 2}));
    session.undo();
    EXPECT_THAT(shareCounts(1), ElementsAre(1, 1, 2, 1));
    session.redo();
    EXPECT_THAT(shareCounts(1), ElementsAre(2, 2, 4, 2));
}

TEST_F(DuplicateZonesTest, UndoesAndRedoesCopiesOfCopies)
{
    std::string const before = withoutHistory();
    session.perform(DuplicateZones(*dataSet, {1}));
    session.perform(DuplicateZones(*dataSet, {1, 3}));
    session.perform(RenameZone(*dataSet, 5, "copy of a copy"));
    std::string const after = withoutHistory();
    EXPECT_THAT(shareCounts(5), ElementsAre(4, 4, 5, 4));
    for (int step = 0; step < 3; ++step) {
        EXPECT_TRUE(session.undo());
    }
    EXPECT_EQ(withoutHistory(), before);
    for (int step = 0; step < 3; ++step) {
        EXPECT_TRUE(session.redo());
    }
    EXPECT_EQ(withoutHistory(), after);
}

TEST_F(DuplicateZonesTest, GoesTogetherWithTheDeletionOfVariables)
{
    std::string const before = withoutHistory();
    session.perform(DuplicateZones(*dataSet, {1, 2}));
    session.perform(DeleteVariables(*dataSet, {1, 4}));
    session.perform(DuplicateZones(*dataSet, {4}));
    std::string const after = withoutHistory();
    EXPECT_EQ(dataSet->zone(5)->fields.size(), 3U);
    EXPECT_THAT(shareCounts(5), ElementsAre(3, 3));
    for (int round = 0; round < 2; ++round) {
        while (session.undo()) {
        }
        EXPECT_EQ(withoutHistory(), before);
        while (session.redo()) {
        }
        EXPECT_EQ(withoutHistory(), after);
    }
}

TEST_F(DuplicateZonesTest, LeavesALineMapOfACopyWithoutAZoneUntilItIsBack)
{
    session.perform(DuplicateZones(*dataSet, {2}));
    UniqueId const copy = dataSet->zone(3)->id;
    ASSERT_TRUE(session.perform(SetLinePlot(frame->id, 3, 1, 4)));
    EXPECT_EQ(frame->lineMaps.front().zone, copy);
    session.undo();
    session.undo();
    EXPECT_EQ(dataSet->zoneNumber(copy), 0);
    session.redo();
    session.redo();
    EXPECT_EQ(dataSet->zoneNumber(frame->lineMaps.front().zone), 3);
}

TEST_F(DuplicateZonesTest, HoldsNoValuesInTheHistory)
{
    session.perform(DuplicateZones(*dataSet, {1, 2}));
    EXPECT_EQ(session.history().valueBytes(), 0);
    std::weak_ptr<Buffer const> const values = dataSet->field(1, 1)->group()->buffer();
    session.undo();
    for (auto const& zone : dataSet->zones()) {
        zone->fields.assign(5, Field());
    }
    EXPECT_TRUE(values.expired());
}

TEST_F(DuplicateZonesTest, WorksForZonesWithoutPointsOrVariables)
{
    auto const bare = std::make_shared<DataSet>("bare");
    bare->addZone(std::make_shared<Zone>("unknown", ZoneType_Ordered, -1, -1, -1));
    ASSERT_TRUE(session.setFrameDataSet(frame->id, bare));
    ASSERT_TRUE(session.perform(DuplicateZones(*bare, {1})));
    EXPECT_EQ(bare->zone(2)->i, -1);
    EXPECT_TRUE(bare->zone(2)->fields.empty());
}

TEST_F(DuplicateZonesTest, GivesACopyTheSizeThatItsSourceHasLearntWhileTheCopyWasOut)
{
    class NoLoader : public DimensionsLoader
    {
    public:
        ZoneDimensions load(Progress&) override { return {}; }
    };
    Zone& source = *dataSet->zone(1);
    ZoneDimensions const size{source.i, source.j, source.k, source.connectivity};
    source.dimensionsLoader = std::make_shared<NoLoader>();
    source.setDimensions({-1, -1, -1, nullptr});
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    EXPECT_TRUE(dataSet->zone(3)->isDeferred());
    ASSERT_TRUE(session.undo());
    source.setDimensions(size);
    ASSERT_TRUE(session.redo());
    EXPECT_FALSE(dataSet->zone(3)->isDeferred());
    EXPECT_EQ(dataSet->zone(3)->pointCount(), source.pointCount());
}

TEST_F(DuplicateZonesTest, RefusesWhatCannotBeDuplicated)
{
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {})); });
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {0})); });
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {-1, 1})); });
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {1, 3})); });
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {INT_MIN, 1})); });
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {INT_MAX})); });
}

TEST_F(DuplicateZonesTest, RefusesALockedDataSet)
{
    session.setLock(*dataSet, "somebody");
    recorder.take();
    expectRefused([&] { return session.perform(DuplicateZones(*dataSet, {1})); });
    session.setLock(*dataSet, "");
    EXPECT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
}

TEST_F(DuplicateZonesTest, RefusesADataSetThatNoFrameShows)
{
    auto const other = sample::twoPlanes();
    std::string const before = stateDigest(*other);
    expectRefused([&] { return session.perform(DuplicateZones(*other, {1})); });
    EXPECT_EQ(stateDigest(*other), before);
}

TEST_F(DuplicateZonesTest, TakesAnOldCancelBack)
{
    session.setInterrupted(true);
    EXPECT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    EXPECT_FALSE(session.isInterrupted());
}

TEST_F(DuplicateZonesTest, ForgetsWhatCouldHaveBeenRedone)
{
    session.perform(RenameZone(*dataSet, 1, "keel"));
    session.undo();
    ASSERT_TRUE(session.perform(DuplicateZones(*dataSet, {1})));
    EXPECT_FALSE(session.history().canRedo());
}

namespace {

/// The C function over the session of the process.
class ZoneCopyX : public testing::Test
{
protected:
    ZoneCopyX()
    {
        frame->dataSet = dataSet;
        session.openPage({frame});
        recorder.take();
    }

    ~ZoneCopyX() override
    {
        session.setPicks({});
        session.clear();
    }

    bool copyZones()
    {
        session.setLastError({});
        return VelUtilZoneCopyX(&list);
    }

    void expectRefused()
    {
        std::string const before = stateDigest(session);
        EXPECT_FALSE(copyZones());
        EXPECT_EQ(stateDigest(session), before);
        EXPECT_THAT(recorder.take(), testing::IsEmpty());
        EXPECT_NE(session.lastError(), "");
    }

    Session& session = Session::instance();
    std::shared_ptr<DataSet> dataSet = sample::twoPlanes();
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("Frame 1", Rectangle{});
    EventRecorder recorder{session.events()};
    ArgList_s list;
};

} // namespace

TEST_F(ZoneCopyX, CopiesTheSourceZonesOfTheActiveDataSet)
{
    list.arguments.setNumbers("SourceZones", {1, 2});
    EXPECT_TRUE(copyZones());
    EXPECT_EQ(dataSet->zoneCount(), 4);
    EXPECT_THAT(recorder.take(), ElementsAre("4 zones 3 4"));
    EXPECT_EQ(session.history().undoName(), "Create Duplicate Zone");
    EXPECT_EQ(list.arguments.size(), 1) << "the list stays the caller's";
    EXPECT_TRUE(copyZones()) << "and can be used again";
    EXPECT_EQ(dataSet->zoneCount(), 6);
}

TEST_F(ZoneCopyX, RefusesArgumentsThatDoNotFit)
{
    EXPECT_FALSE(VelUtilZoneCopyX(nullptr));
    expectRefused();
    list.arguments.setInt("SourceZones", 1);
    expectRefused();
    list.arguments.setNumbers("SourceZones", {});
    expectRefused();
    list.arguments.setNumbers("SourceZones", {2, 3});
    expectRefused();
    EXPECT_EQ(dataSet->zoneCount(), 2);
}

TEST_F(ZoneCopyX, RefusesWithoutADataSet)
{
    list.arguments.setNumbers("SourceZones", {1});
    frame->dataSet = nullptr;
    expectRefused();
    session.removeAllPages();
    recorder.take();
    expectRefused();
}

TEST_F(ZoneCopyX, LeavesAPickedCopyWithoutANumberUntilItIsBack)
{
    list.arguments.setNumbers("SourceZones", {2});
    ASSERT_TRUE(copyZones());
    session.setPicks({{Pick::zoneType, dataSet->zone(3)->id}});
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 3);
    session.undo();
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 0);
    session.redo();
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 3);
}

} // namespace veldraw::tests
