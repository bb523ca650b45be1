// The plain C functions over the one session of the process.
#include "platform/vdsdkbase/VelUtil.h"

#include "kernel/api/ArgumentList.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetValue.h"
#include "tests/kernel/support/EventRecorder.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SampleLoader.h"
#include "tests/kernel/support/StateDigest.h"

#include <climits>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

class CFunctions : public testing::Test
{
protected:
    CFunctions()
    {
        frame->dataSet = dataSet;
        session.openPage({frame});
    }

    ~CFunctions() override { session.clear(); }

    static std::string taken(char* text)
    {
        std::string const copy = text == nullptr ? "(null)" : text;
        VelUtilStringDealloc(&text);
        EXPECT_EQ(text, nullptr);
        return copy;
    }

    Session& session = Session::instance();
    std::shared_ptr<DataSet> dataSet = sample::twoPlanes();
    std::shared_ptr<Frame> frame = std::make_shared<Frame>("Frame 1", Rectangle{});
};

int const badNumbers[] = {INT_MIN, -1, 0, 6, 1000, INT_MAX};

} // namespace

TEST_F(CFunctions, DescribeTheDataSet)
{
    EXPECT_TRUE(VelUtilDataSetIsAvailable());
    EXPECT_EQ(VelUtilDataSetGetUniqueID(), dataSet->id());
    EXPECT_EQ(VelUtilDataSetGetNumZones(), 2);
    EXPECT_EQ(VelUtilDataSetGetNumVars(), 5);
    EXPECT_EQ(VelUtilDataSetGetNumZonesByUniqueID(dataSet->id()), 2);
    EXPECT_EQ(VelUtilDataSetGetNumZonesByUniqueID(frame->id), 0);
    char* title = nullptr;
    int zones = 0;
    int variables = 0;
    EXPECT_TRUE(VelUtilDataSetGetInfo(&title, &zones, &variables));
    EXPECT_EQ(taken(title), "Two planes");
    EXPECT_EQ(zones, 2);
    EXPECT_EQ(variables, 5);
    EXPECT_TRUE(VelUtilDataSetGetInfo(nullptr, nullptr, nullptr));
}

TEST_F(CFunctions, RenameAndLockTheDataSet)
{
    EXPECT_TRUE(VelUtilDataSetSetTitle("new"));
    EXPECT_EQ(dataSet->title(), "new");
    EXPECT_FALSE(VelUtilDataSetSetTitle(nullptr));
    EXPECT_FALSE(VelUtilDataSetIsLocked(nullptr));
    char* holder = nullptr;
    EXPECT_FALSE(VelUtilDataSetIsLocked(&holder));
    EXPECT_EQ(holder, nullptr);
    session.setLock(*dataSet, "a program");
    EXPECT_TRUE(VelUtilDataSetIsLocked(nullptr));
    EXPECT_TRUE(VelUtilDataSetIsLocked(&holder));
    EXPECT_EQ(taken(holder), "a program");
}

TEST_F(CFunctions, DeleteVariables)
{
    Set_s some{{1, 5}};
    EXPECT_TRUE(VelUtilDataSetDeleteVar(&some));
    EXPECT_EQ(VelUtilDataSetGetNumVars(), 3);
    EXPECT_EQ(session.history().undoName(), "Delete Variable");
    Set_s all{{1, 2, 3}};
    Set_s none;
    EXPECT_FALSE(VelUtilDataSetDeleteVar(&all));
    EXPECT_FALSE(VelUtilDataSetDeleteVar(&none));
    EXPECT_FALSE(VelUtilDataSetDeleteVar(nullptr));
}

TEST_F(CFunctions, DescribeFields)
{
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 4, 3), 12.0);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 3, 3), 0.0);
    EXPECT_EQ(VelUtilDataValueGetLocation(1, 5), ValueLocation_CellCentered);
    EXPECT_EQ(VelUtilDataValueGetLocation(1, 1), ValueLocation_Nodal);
    EXPECT_EQ(VelUtilDataValueGetShareCount(2, 4), 2);
    EXPECT_EQ(VelUtilDataValueGetShareCount(2, 1), 1);
    EXPECT_EQ(VelUtilDataValueGetType(1, 5), FieldDataType_Double);
    EXPECT_EQ(VelUtilDataValueGetType(1, 3), FieldDataType_Float);
    EXPECT_TRUE(VelUtilDataValueIsLoaded(1, 1));
    EXPECT_TRUE(VelUtilDataValueIsPassive(1, 3));
    EXPECT_FALSE(VelUtilDataValueIsPassive(1, 1));
    EXPECT_TRUE(VelUtilDataValueIsMinMaxValidByZoneVar(1, 1));
    EXPECT_FALSE(VelUtilDataValueIsMinMaxValidByZoneVar(1, 3));
    EXPECT_EQ(VelUtilVarGetStatus(1, 1), VarStatus_Loaded);
    EXPECT_EQ(VelUtilVarGetStatus(1, 3), VarStatus_Passive);
    EXPECT_FALSE(VelUtilVarIsSZLData(1, 1));
    EXPECT_FALSE(VelUtilVarRangeIsEstimated(1, 1));
}

TEST_F(CFunctions, TellWhatIsNotLoadedWithoutLoadingIt)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6}, FieldDataType_Byte);
    dataSet->zone(1)->fields[3] = sample::Loader::field(loader);
    EXPECT_FALSE(VelUtilDataValueIsLoaded(1, 4));
    EXPECT_TRUE(VelUtilDataValueIsLoaded(1, 3)) << "passive: there is nothing to load";
    EXPECT_FALSE(VelUtilDataValueIsPassive(1, 4));
    EXPECT_EQ(VelUtilVarGetStatus(1, 4), VarStatus_NotLoaded);
    EXPECT_EQ(VelUtilDataValueGetType(1, 4), FieldDataType_Byte);
    EXPECT_EQ(VelUtilDataValueGetLocation(1, 4), ValueLocation_Nodal);
    EXPECT_EQ(VelUtilDataValueGetShareCount(1, 4), 1);
    EXPECT_FALSE(VelUtilDataValueIsMinMaxValidByZoneVar(1, 4));
    EXPECT_FALSE(VelUtilVarRangeIsEstimated(1, 4));
    auto const estimating = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
    estimating->knownRange = {ValueRange::State::Estimated, 0, 9};
    dataSet->zone(1)->fields[2] = sample::Loader::field(estimating);
    EXPECT_TRUE(VelUtilVarRangeIsEstimated(1, 3));
    EXPECT_EQ(loader->loads + estimating->loads, 0);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 4, 6), 6.0) << "asked for in earnest";
    EXPECT_TRUE(VelUtilDataValueIsLoaded(1, 4));
    EXPECT_EQ(loader->loads, 1);
}

TEST_F(CFunctions, TellMappedValuesFromLoadedOnes)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
    loader->mapped = true;
    dataSet->zone(1)->fields[3] = sample::Loader::field(loader);
    EXPECT_EQ(VelUtilVarGetStatus(1, 4), VarStatus_NotLoaded);
    EXPECT_TRUE(session.perform(MakeVariablesAvailable(*dataSet, {1}, {4})));
    EXPECT_EQ(VelUtilVarGetStatus(1, 4), VarStatus_Map);
    EXPECT_TRUE(session.perform(SetValue(*dataSet, 1, 4, 2, 8.0, false)));
    EXPECT_EQ(VelUtilVarGetStatus(1, 4), VarStatus_Loaded) << "in memory, since they are not those of the file";
}

TEST_F(CFunctions, UseTheValuesThatTheyRead)
{
    frame->axes2D = {};
    frame->axes3D = {};
    frame->contourVariable = 0;
    frame->lineMaps.clear();
    for (int zone : {1, 2}) {
        auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
        dataSet->zone(zone)->fields[0] = sample::Loader::field(loader);
        ASSERT_TRUE(session.perform(LoadVariables(*dataSet, {zone}, {1})));
    }
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, 2), 2.0);
    std::int64_t const limit = session.loadedValues().limit();
    session.loadedValues().setLimit(6 * 4);
    EXPECT_TRUE(VelUtilDataValueIsLoaded(1, 1)) << "was read last";
    EXPECT_FALSE(VelUtilDataValueIsLoaded(2, 1));
    session.loadedValues().setLimit(limit);
}

TEST_F(CFunctions, MakeVariablesAvailable)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>{1, 2, 3, 4, 5, 6});
    dataSet->zone(1)->fields[3] = sample::Loader::field(loader);
    Set_s zones{{1}};
    Set_s variables{{4}};
    EXPECT_FALSE(VelUtilDataSetMakeVarsAvailableByUniqueID(0, &zones, &variables));
    EXPECT_FALSE(VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), nullptr, &variables));
    EXPECT_FALSE(VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), &zones, nullptr));
    EXPECT_FALSE(VelUtilDataValueIsLoaded(1, 4));
    EXPECT_TRUE(VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), &zones, &variables));
    EXPECT_TRUE(VelUtilDataValueIsLoaded(1, 4));
    variables.members.insert(17);
    EXPECT_FALSE(VelUtilDataSetMakeVarsAvailableByUniqueID(VelUtilDataSetGetUniqueID(), &zones, &variables));
}

TEST_F(CFunctions, LoadDimensionsWhenTheyAreAskedForInEarnest)
{
    auto const size = std::make_shared<sample::SizeLoader>(ZoneDimensions{3, 2, 1, {}});
    std::shared_ptr<Zone> const zone = dataSet->zone(2);
    zone->i = zone->j = zone->k = -1;
    zone->dimensionsLoader = size;
    long long i = 0;
    long long j = 0;
    long long k = 0;
    VelUtilZoneGetMetrics(2, &i, &j, &k, nullptr, nullptr, nullptr);
    EXPECT_EQ(i, -1);
    EXPECT_EQ(size->loads, 0);
    size->before = [](Progress&) { throw std::runtime_error("The file has gone."); };
    VelUtilZoneGetIJK(2, &i, &j, &k);
    EXPECT_EQ(k, -1);
    EXPECT_FALSE(VelUtilInterruptIsSet());
    size->before = [this](Progress& progress) {
        session.setInterrupted(true);
        progress.check();
    };
    VelUtilZoneGetIJK(2, &i, &j, &k);
    EXPECT_EQ(i, -1);
    EXPECT_TRUE(VelUtilInterruptIsSet());
    size->before = nullptr;
    VelUtilZoneGetIJK(2, &i, &j, &k);
    EXPECT_EQ(i, 3);
    EXPECT_EQ(j, 2);
    EXPECT_EQ(k, 1);
    EXPECT_EQ(size->loads, 1);
}

TEST_F(CFunctions, SetOneValueByNamedArguments)
{
    auto const set = [](std::vector<std::pair<char const*, long long>> const& numbers, double const* value) {
        ArgList_s* list = VelUtilArgListAlloc();
        for (auto const& [name, number] : numbers) {
            VelUtilArgListAppendInt(list, name, number);
        }
        if (value != nullptr) {
            VelUtilArgListAppendDouble(list, "FieldValue", *value);
        }
        bool const isSet = VelUtilDataValueSetByZoneVarX(list);
        VelUtilArgListDealloc(&list);
        return isSet;
    };
    double const value = -4.5;
    EXPECT_TRUE(set({{"Zone", 1}, {"Var", 4}, {"Index", 6}, {"AutoBranch", 1}}, &value));
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 4, 6), -4.5);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(2, 4, 6), 15.0);
    EXPECT_EQ(VelUtilDataValueGetShareCount(1, 4), 1);
    EXPECT_TRUE(set({{"Zone", 2}, {"Var", 1}, {"Index", 1}, {"AutoBranch", 0}}, &value));
    EXPECT_FALSE(set({{"Zone", 1}, {"Var", 4}, {"Index", 0}, {"AutoBranch", 1}}, &value));
    EXPECT_FALSE(set({{"Zone", 1}, {"Var", 4}, {"Index", 7}, {"AutoBranch", 1}}, &value));
    EXPECT_FALSE(set({{"Zone", 1}, {"Var", 4}, {"Index", LLONG_MIN}, {"AutoBranch", 1}}, &value));
    EXPECT_FALSE(set({{"Zone", (1LL << 32) + 1}, {"Var", 4}, {"Index", 1}, {"AutoBranch", 1}}, &value));
    EXPECT_FALSE(set({{"Zone", 1}, {"Var", 4}, {"Index", 1}, {"AutoBranch", 1}}, nullptr));
    EXPECT_FALSE(set({{"Zone", 1}, {"Var", 4}, {"Index", 1}}, &value));
    EXPECT_FALSE(VelUtilDataValueSetByZoneVarX(nullptr));
}

TEST_F(CFunctions, DescribeVariables)
{
    EXPECT_TRUE(VelUtilVarIsEnabled(1));
    session.perform(EnableVariable(*dataSet, 1, false));
    EXPECT_FALSE(VelUtilVarIsEnabled(1));
    long long const id = VelUtilVarGetUniqueIDForFrame(frame->id, 4);
    EXPECT_EQ(id, dataSet->variable(4)->id);
    EXPECT_EQ(VelUtilVarGetNumByUniqueID(id), 4);
    EXPECT_EQ(VelUtilVarGetNumByUniqueID(0), 0);
    EXPECT_EQ(VelUtilVarGetUniqueIDForFrame(0, 4), 0);
    EXPECT_EQ(VelUtilVarGetNumByAssignment('Y'), 2);
    EXPECT_EQ(VelUtilVarGetNumByAssignment('U'), 0);
    EXPECT_EQ(VelUtilVarGetNumByAssignment('?'), 0);
    int x = -1;
    int y = -1;
    int z = -1;
    VelUtilAxisGetVarAssignments(&x, &y, &z);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 0);
    VelUtilAxisGetVarAssignments(nullptr, nullptr, nullptr);
}

TEST_F(CFunctions, DescribeZones)
{
    dataSet->zone(2)->strand = 4;
    dataSet->zone(2)->solutionTime = 1.5;
    auto line = std::make_shared<Zone>("line", ZoneType_FELineSeg, 3, 2, 0);
    dataSet->addZone(line);
    long long i = 0;
    long long j = 0;
    long long k = 0;
    VelUtilZoneGetIJK(1, &i, &j, &k);
    EXPECT_THAT((std::vector{i, j, k}), ElementsAre(3, 2, 1));
    VelUtilZoneGetMetrics(3, &i, &j, &k, nullptr, nullptr, nullptr);
    EXPECT_THAT((std::vector{i, j, k}), ElementsAre(3, 2, 0));
    VelUtilZoneGetMetrics(3, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    char* name = nullptr;
    EXPECT_TRUE(VelUtilZoneGetName(2, &name));
    EXPECT_EQ(taken(name), "upper");
    EXPECT_FALSE(VelUtilZoneGetName(2, nullptr));
    EXPECT_EQ(VelUtilZoneGetSolutionTime(2), 1.5);
    EXPECT_EQ(VelUtilZoneGetStrandID(2), 4);
    EXPECT_EQ(VelUtilZoneGetStrandID(1), 2147483646);
    EXPECT_EQ(VelUtilZoneGetType(3), ZoneType_FELineSeg);
    EXPECT_TRUE(VelUtilZoneIsEnabled(3));
    EXPECT_TRUE(VelUtilZoneIsFiniteElement(3));
    EXPECT_FALSE(VelUtilZoneIsFiniteElement(1));
    EXPECT_TRUE(VelUtilZoneIsLinear(3));
    EXPECT_FALSE(VelUtilZoneIsLinear(1));
    EXPECT_TRUE(VelUtilZoneIsOrdered(1));
    EXPECT_FALSE(VelUtilZoneIsOrdered(3));
}

TEST_F(CFunctions, NeverCrashOnBadNumbers)
{
    for (int const bad : badNumbers) {
        for (auto const& [zone, variable] : {std::pair(bad, 1), std::pair(1, bad), std::pair(bad, bad)}) {
            EXPECT_EQ(VelUtilDataValueGetByZoneVar(zone, variable, 1), 0.0);
            EXPECT_EQ(VelUtilDataValueGetLocation(zone, variable), -1);
            EXPECT_EQ(VelUtilDataValueGetShareCount(zone, variable), 0);
            EXPECT_EQ(VelUtilDataValueGetType(zone, variable), 0);
            EXPECT_FALSE(VelUtilDataValueIsLoaded(zone, variable));
            EXPECT_FALSE(VelUtilDataValueIsPassive(zone, variable));
            EXPECT_FALSE(VelUtilDataValueIsMinMaxValidByZoneVar(zone, variable));
            EXPECT_EQ(VelUtilVarGetStatus(zone, variable), VarStatus_NotLoaded);
            EXPECT_FALSE(VelUtilVarRangeIsEstimated(zone, variable));
            EXPECT_FALSE(VelUtilVarIsSZLData(zone, variable));
        }
        EXPECT_EQ(VelUtilVarGetUniqueIDForFrame(frame->id, bad), 0);
        EXPECT_FALSE(VelUtilVarIsEnabled(bad));
        long long i = 0;
        long long j = 0;
        long long k = 0;
        VelUtilZoneGetIJK(bad, &i, &j, &k);
        EXPECT_THAT((std::vector{i, j, k}), ElementsAre(-1, -1, -1));
        char anyLetter = 'a';
        char* name = &anyLetter;
        EXPECT_FALSE(VelUtilZoneGetName(bad, &name));
        EXPECT_EQ(name, nullptr) << "nothing to be freed";
        EXPECT_EQ(VelUtilZoneGetSolutionTime(bad), 0.0);
        EXPECT_EQ(VelUtilZoneGetStrandID(bad), 2147483646);
        EXPECT_EQ(VelUtilZoneGetType(bad), -1);
        EXPECT_FALSE(VelUtilZoneIsEnabled(bad));
        EXPECT_FALSE(VelUtilZoneIsFiniteElement(bad));
        EXPECT_FALSE(VelUtilZoneIsLinear(bad));
        EXPECT_FALSE(VelUtilZoneIsOrdered(bad));
        EXPECT_FALSE(VelUtilFourierTransformIsValidZone(bad));
        EXPECT_FALSE(VelUtilFourierTransformIsValidZoneByDataSetID(dataSet->id(), bad));
        Set_s* zones = nullptr;
        EXPECT_FALSE(VelUtilFieldMapGetZones(bad, &zones));
        EXPECT_FALSE(VelUtilImportGetLoaderInstrByNum(bad, nullptr, nullptr));
        EXPECT_FALSE(VelUtilFrameActivateByNumber(bad));
        EXPECT_FALSE(VelUtilFrameActivateByUniqueID(bad));
        EXPECT_EQ(VelUtilPickListGetType(bad), 0);
        EXPECT_EQ(VelUtilPickListGetZoneNumber(bad), 0);
        EXPECT_FALSE(VelUtilMouseSetMode(bad));
        EXPECT_EQ(VelUtilFrameSetPlotType(bad), SetValueReturnCode_Refused);
        Set_s maps{{bad}};
        EXPECT_FALSE(VelUtilLineMapDelete(&maps));
        EXPECT_FALSE(VelUtilDataSetDeleteVar(&maps));
    }
    for (long long const bad : {LLONG_MIN, -1LL, 0LL, 7LL, LLONG_MAX}) {
        EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, bad), 0.0);
    }
}

TEST_F(CFunctions, AnswerWithoutAnyPage)
{
    session.removeAllPages();
    EXPECT_EQ(VelUtilPageGetCount(), 0);
    EXPECT_EQ(VelUtilFrameGetCount(), 0);
    EXPECT_EQ(VelUtilFrameGetUniqueID(), 0);
    EXPECT_EQ(VelUtilFrameGetPlotType(), 0);
    EXPECT_FALSE(VelUtilFrameCreateNew(true, 0, 0, 1, 1));
    EXPECT_FALSE(VelUtilFrameSetName("x"));
    EXPECT_FALSE(VelUtilFrameSetPosAndSize(0, 0, 1, 1));
    EXPECT_FALSE(VelUtilFrameLightweightLoopStart());
    EXPECT_FALSE(VelUtilFrameLightweightLoopNext());
    VelUtilFrameLightweightLoopEnd();
    char leftOver[] = "left over";
    char* name = leftOver;
    EXPECT_FALSE(VelUtilFrameGetName(&name));
    EXPECT_EQ(name, nullptr);
    EXPECT_FALSE(VelUtilDataSetIsAvailable());
    EXPECT_EQ(VelUtilDataSetGetUniqueID(), 0);
    EXPECT_EQ(VelUtilDataSetGetNumZones(), 0);
    int zones = 3;
    int variables = 3;
    name = leftOver;
    EXPECT_FALSE(VelUtilDataSetGetInfo(&name, &zones, &variables));
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(zones + variables, 0);
    EXPECT_FALSE(VelUtilDataSetSetTitle("x"));
    EXPECT_FALSE(VelUtilDataSetIsLocked(nullptr));
    Set_s first{{1}};
    EXPECT_FALSE(VelUtilDataSetDeleteVar(&first));
    EXPECT_FALSE(VelUtilQueryOkToSmooth());
    EXPECT_EQ(VelUtilVarGetNumByAssignment('X'), 0);
    EXPECT_EQ(VelUtilVarGetNumByUniqueID(1), 0);
    EXPECT_FALSE(VelUtilDataValueIsLoaded(1, 1));
    EXPECT_EQ(VelUtilZoneGetType(1), -1);
    EXPECT_EQ(VelUtilImportGetLoaderInstrCount(), 0);
    EXPECT_FALSE(VelUtilViewDataFit());
    EXPECT_FALSE(VelUtilWorkViewFitAllFrames());
    EXPECT_FALSE(VelUtilLineMapCreate());
    EXPECT_FALSE(VelUtilLineMapDelete(nullptr));
    EXPECT_EQ(VelUtilLineMapGetCount(), 0);
    EXPECT_EQ(VelUtilLineMapSetActive(&first, true), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive("ShowLines", true), SetValueReturnCode_Refused);
    double width = 1;
    double height = 1;
    VelUtilPaperGetDimensions(&width, &height);
    EXPECT_EQ(width + height, 0.0);
    VelUtilDrawGraphics(false);
    VelUtilDrawGraphics(true);
}

TEST_F(CFunctions, HandOutFieldMaps)
{
    Set_s* zones = nullptr;
    EXPECT_TRUE(VelUtilFieldMapGetZones(2, &zones));
    std::unique_ptr<Set_s> const owned(zones);
    EXPECT_THAT(owned->members, ElementsAre(2));
    EXPECT_FALSE(VelUtilFieldMapGetZones(1, nullptr));
    session.perform(EnableZone(*dataSet, 2, false));
    EXPECT_TRUE(VelUtilFieldMapGetZones(2, &zones)) << "is there, without an enabled zone";
    std::unique_ptr<Set_s> const empty(zones);
    EXPECT_THAT(empty->members, testing::IsEmpty());
}

TEST_F(CFunctions, HandOutLoaderInstructions)
{
    dataSet->loaderInstructions().push_back({"VTK", {"FILENAME_", "/a b/\xC3\xA4.vtu"}});
    EXPECT_EQ(VelUtilImportGetLoaderInstrCount(), 1);
    char* loader = nullptr;
    StringList_s* words = nullptr;
    ASSERT_TRUE(VelUtilImportGetLoaderInstrByNum(1, &loader, &words));
    EXPECT_EQ(taken(loader), "VTK");
    EXPECT_EQ(VelUtilStringListGetCount(words), 2);
    EXPECT_STREQ(VelUtilStringListGetRawStringPtr(words, 2), "/a b/\xC3\xA4.vtu");
    for (int const bad : {INT_MIN, 0, 3, INT_MAX}) {
        EXPECT_EQ(VelUtilStringListGetRawStringPtr(words, bad), nullptr);
    }
    VelUtilStringListDealloc(&words);
    EXPECT_EQ(words, nullptr);
    VelUtilStringListDealloc(&words);
    VelUtilStringListDealloc(nullptr);
    VelUtilStringDealloc(nullptr);
    EXPECT_EQ(VelUtilStringListGetCount(nullptr), 0);
    EXPECT_EQ(VelUtilStringListGetRawStringPtr(nullptr, 1), nullptr);
}

TEST_F(CFunctions, KeepNamedArguments)
{
    ArgList_s* list = VelUtilArgListAlloc();
    Set_s zones{{1, 2}};
    EXPECT_TRUE(VelUtilArgListAppendInt(list, "Index", 1LL << 40));
    EXPECT_TRUE(VelUtilArgListAppendDouble(list, "FieldValue", 2.5));
    EXPECT_TRUE(VelUtilArgListAppendSet(list, "SourceZones", &zones));
    zones.members.clear();
    list->arguments.setText("Name", "text");
    EXPECT_EQ(list->arguments.intValue("Index"), 1LL << 40);
    EXPECT_EQ(list->arguments.doubleValue("FieldValue"), 2.5);
    EXPECT_EQ(list->arguments.numbers("SourceZones"), (NumberSet{1, 2}));
    EXPECT_EQ(list->arguments.text("Name"), "text");
    EXPECT_EQ(list->arguments.intValue("FieldValue"), std::nullopt);
    EXPECT_EQ(list->arguments.doubleValue("nothing"), std::nullopt);
    EXPECT_TRUE(VelUtilArgListAppendInt(list, "FieldValue", 3));
    EXPECT_EQ(list->arguments.intValue("FieldValue"), 3);
    EXPECT_EQ(list->arguments.size(), 4);
    EXPECT_FALSE(VelUtilArgListAppendInt(nullptr, "Index", 1));
    EXPECT_FALSE(VelUtilArgListAppendInt(list, nullptr, 1));
    EXPECT_FALSE(VelUtilArgListAppendDouble(list, nullptr, 1));
    EXPECT_FALSE(VelUtilArgListAppendSet(list, "Set", nullptr));
    VelUtilArgListDealloc(&list);
    EXPECT_EQ(list, nullptr);
    VelUtilArgListDealloc(&list);
    VelUtilArgListDealloc(nullptr);
}

TEST_F(CFunctions, MakeAndSetFrames)
{
    EXPECT_TRUE(VelUtilFrameCreateNew(true, 1, 2, 0, 0));
    EXPECT_EQ(VelUtilFrameGetCount(), 2);
    EXPECT_EQ(VelUtilFrameGetPlotType(), PlotType_Sketch);
    EXPECT_FALSE(VelUtilDataSetIsAvailable());
    EXPECT_FALSE(VelUtilViewDataFit());
    long long const created = VelUtilFrameGetUniqueID();
    EXPECT_EQ(VelUtilFrameGetDataSetUniqueIDByFrameID(created), 0);
    EXPECT_TRUE(VelUtilFrameSetDataSet(dataSet->id(), created));
    EXPECT_FALSE(VelUtilFrameSetDataSet(0, created));
    EXPECT_FALSE(VelUtilFrameSetDataSet(dataSet->id(), 0));
    EXPECT_EQ(VelUtilFrameGetDataSetUniqueIDByFrameID(created), dataSet->id());
    EXPECT_TRUE(VelUtilViewDataFit());
    EXPECT_EQ(VelUtilFrameSetPlotType(3), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilFrameSetPlotType(3), SetValueReturnCode_Duplicate);
    EXPECT_EQ(VelUtilFrameGetPlotTypeForFrame(created), 3);
    EXPECT_EQ(VelUtilFrameGetPlotTypeForFrame(0), 0);
    EXPECT_TRUE(VelUtilFrameSetName("results"));
    EXPECT_FALSE(VelUtilFrameSetName(nullptr));
    char* name = nullptr;
    EXPECT_TRUE(VelUtilFrameGetName(&name));
    EXPECT_EQ(taken(name), "results");
    EXPECT_TRUE(VelUtilFrameSetPosAndSize(3, 4, 5, 6));
    EXPECT_FALSE(VelUtilFrameSetPosAndSize(3, 4, -5, 6));
    EXPECT_FALSE(VelUtilFrameSetPosAndSize(NAN, 4, 5, 6));
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    VelUtilFrameGetPosAndSize(&x, &y, &width, &height);
    EXPECT_THAT((std::vector{x, y, width, height}), ElementsAre(3, 4, 5, 6));
    VelUtilFrameGetPosAndSize(nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(VelUtilFrameActivateByNumber(1));
    EXPECT_EQ(VelUtilFrameGetUniqueID(), frame->id);
    EXPECT_TRUE(VelUtilFrameActivateByUniqueID(created));
    EXPECT_TRUE(VelUtilFrameCreateNew(false, 0, 0, 0, 0));
    VelUtilFrameGetPosAndSize(&x, &y, &width, &height);
    EXPECT_GT(width, 1);
    EXPECT_GT(height, 1);
}

TEST_F(CFunctions, WalkOverFrames)
{
    VelUtilFrameCreateNew(true, 0, 0, 0, 0);
    EventRecorder recorder(session.events());
    ASSERT_TRUE(VelUtilFrameLightweightLoopStart());
    std::vector<bool> withData;
    do {
        withData.push_back(VelUtilDataSetIsAvailable());
    } while (VelUtilFrameLightweightLoopNext());
    VelUtilFrameLightweightLoopEnd();
    EXPECT_THAT(withData, ElementsAre(true, false));
    EXPECT_FALSE(VelUtilDataSetIsAvailable());
    EXPECT_TRUE(recorder.take().empty());
}

TEST_F(CFunctions, SetUpLineMaps)
{
    EXPECT_EQ(VelUtilLineMapGetCount(), 1);
    EXPECT_TRUE(VelUtilLineMapCreate());
    Set_s second{{2}};
    EXPECT_EQ(VelUtilLineMapSetName(&second, "result"), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetAssignment("XAxisVar", &second, 0.0, 4), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetAssignment("YAxisVar", &second, 0.0, 5), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetAssignment("Zone", &second, 0.0, 2), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetActive(&second, false), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetIndices("IRange", "Min", &second, 2), SetValueReturnCode_Ok);
    EXPECT_EQ(VelUtilLineMapSetIndices("KRange", "Skip", &second, 3), SetValueReturnCode_Ok);
    LineMap const& map = frame->lineMaps.at(1);
    EXPECT_EQ(map.name, "result");
    EXPECT_EQ(map.xVariable, dataSet->variable(4)->id);
    EXPECT_EQ(map.yVariable, dataSet->variable(5)->id);
    EXPECT_EQ(map.zone, dataSet->zone(2)->id);
    EXPECT_FALSE(map.active);
    EXPECT_EQ(map.indices[0].min, 2);
    EXPECT_EQ(map.indices[2].skip, 3);
    EXPECT_TRUE(VelUtilLineMapDelete(&second));
    EXPECT_EQ(VelUtilLineMapGetCount(), 1);
    EXPECT_TRUE(VelUtilLineMapDelete(nullptr));
    EXPECT_EQ(VelUtilLineMapGetCount(), 0);
    EXPECT_TRUE(VelUtilLineMapDelete(nullptr));
}

TEST_F(CFunctions, RefuseLineMapsThatMakeNoSense)
{
    Set_s first{{1}};
    Set_s missing{{2}};
    std::string const before = stateDigest(session);
    EXPECT_EQ(VelUtilLineMapSetName(&missing, "x"), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetName(&first, nullptr), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetName(nullptr, "x"), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetActive(nullptr, true), SetValueReturnCode_Refused);
    for (long long const bad : {LLONG_MIN, -1LL, 0LL, 6LL, LLONG_MAX}) {
        EXPECT_EQ(VelUtilLineMapSetAssignment("XAxisVar", &first, 0.0, bad), SetValueReturnCode_Refused);
        EXPECT_EQ(VelUtilLineMapSetAssignment("Zone", &first, 0.0, bad), SetValueReturnCode_Refused);
    }
    EXPECT_EQ(VelUtilLineMapSetAssignment("Nothing", &first, 0.0, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetAssignment(nullptr, &first, 0.0, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetIndices("LRange", "Min", &first, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetIndices("IRange", "Mid", &first, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetIndices("IRange", "Min", &first, 0), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetIndices("IRange", "Max", &first, -1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLineMapSetIndices(nullptr, nullptr, &first, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive("ShowNothing", true), SetValueReturnCode_Refused);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive(nullptr, true), SetValueReturnCode_Refused);
    EXPECT_EQ(stateDigest(session), before);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive("ShowLines", true), SetValueReturnCode_Duplicate);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive("ShowLines", false), SetValueReturnCode_Ok);
    EXPECT_FALSE(frame->showLines);
    EXPECT_EQ(VelUtilLinePlotLayerSetIsActive("ShowSymbols", true), SetValueReturnCode_Ok);
    EXPECT_TRUE(frame->showSymbols);
}

TEST_F(CFunctions, AskWhetherSmoothingCanRun)
{
    EXPECT_TRUE(VelUtilQueryOkToSmooth());
    VelUtilFrameSetPlotType(4);
    EXPECT_FALSE(VelUtilQueryOkToSmooth());
    VelUtilFrameSetPlotType(5);
    EXPECT_TRUE(VelUtilQueryOkToSmooth());
    session.perform(EnableZone(*dataSet, 1, false));
    EXPECT_TRUE(VelUtilQueryOkToSmooth());
    session.perform(EnableZone(*dataSet, 2, false));
    EXPECT_FALSE(VelUtilQueryOkToSmooth());
}

TEST_F(CFunctions, SmoothAVariableOfAZone)
{
    auto const zone = std::make_shared<Zone>("row", ZoneType_Ordered, 5, 1, 1);
    zone->fields.resize(dataSet->zone(1)->fields.size());
    zone->fields[3] = sample::field({0, 4, 0, 8, 0});
    int const number = dataSet->addZone(zone);
    for (int const condition : {-1, 3}) {
        EXPECT_FALSE(VelUtilSmooth(number, 4, 1, 0.5, condition));
        EXPECT_EQ(session.lastError(), "There is no such boundary condition.");
    }
    EXPECT_FALSE(VelUtilSmooth(number, 4, 0, 0.5, BoundaryCondition_Fixed));
    EXPECT_EQ(session.lastError(), "The number of passes must be at least 1.");
    ASSERT_TRUE(VelUtilSmooth(number, 4, 1, 0.5, BoundaryCondition_FirstOrder)) << session.lastError();
    Buffer const& values = *dataSet->field(number, 4)->group()->buffer();
    EXPECT_EQ(values.value(0), 2.0);
    EXPECT_EQ(values.value(2), 3.0);
    EXPECT_EQ(values.value(4), 4.0);
}

TEST_F(CFunctions, SmoothAndTriangulateNothingWithoutAFrame)
{
    session.clear();
    EXPECT_FALSE(VelUtilQueryOkToSmooth());
    EXPECT_FALSE(VelUtilSmooth(1, 4, 1, 0.5, BoundaryCondition_Fixed));
    EXPECT_EQ(session.lastError(), "There is no frame.");
    session.setLastError({});
    Set_s zones{{1}};
    long long count = 77;
    EXPECT_FALSE(VelUtilTriangulate(&zones, false, nullptr, false, &count, 0.25));
    EXPECT_EQ(session.lastError(), "There is no frame.");
    EXPECT_EQ(count, 77);
}

TEST_F(CFunctions, AskWhichZonesCanBeTransformed)
{
    EXPECT_FALSE(VelUtilFourierTransformIsValidZone(1));
    dataSet->addZone(std::make_shared<Zone>("series", ZoneType_Ordered, 4, 1, 1));
    dataSet->addZone(std::make_shared<Zone>("short", ZoneType_Ordered, 3, 1, 1));
    dataSet->addZone(std::make_shared<Zone>("bars", ZoneType_FELineSeg, 8, 7, 0));
    EXPECT_TRUE(VelUtilFourierTransformIsValidZone(3));
    EXPECT_FALSE(VelUtilFourierTransformIsValidZone(4));
    EXPECT_FALSE(VelUtilFourierTransformIsValidZone(5));
    EXPECT_TRUE(VelUtilFourierTransformIsValidZoneByDataSetID(dataSet->id(), 3));
    EXPECT_FALSE(VelUtilFourierTransformIsValidZoneByDataSetID(0, 3));
    session.perform(EnableZone(*dataSet, 3, false));
    EXPECT_FALSE(VelUtilFourierTransformIsValidZone(3));
}

TEST_F(CFunctions, KnowPicksMouseInterruptAndPaper)
{
    EXPECT_EQ(VelUtilPickListGetCount(), 0);
    session.setPicks({{Pick::zoneType, dataSet->zone(2)->id}, {3, 0}});
    EXPECT_EQ(VelUtilPickListGetCount(), 2);
    EXPECT_EQ(VelUtilPickListGetType(1), 15);
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 2);
    EXPECT_EQ(VelUtilPickListGetType(2), 3);
    EXPECT_EQ(VelUtilPickListGetZoneNumber(2), 0);
    session.perform(EnableZone(*dataSet, 2, false));
    EXPECT_EQ(VelUtilPickListGetType(1), 0) << "is not shown";
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 0);
    session.perform(EnableZone(*dataSet, 2, true));
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 2);
    session.setPicks({{Pick::zoneType, dataSet->id()}});
    EXPECT_EQ(VelUtilPickListGetType(1), 0) << "no zone of the active data set";
    EXPECT_EQ(VelUtilPickListGetZoneNumber(1), 0);
    session.setPicks({});
    int const mode = VelUtilMouseGetCurrentMode();
    EXPECT_TRUE(VelUtilMouseIsValidMode(mode));
    EXPECT_TRUE(VelUtilMouseSetMode(2));
    EXPECT_EQ(VelUtilMouseGetCurrentMode(), 2);
    EXPECT_TRUE(VelUtilMouseSetMode(mode));
    EXPECT_FALSE(VelUtilInterruptIsSet());
    session.setInterrupted(true);
    EXPECT_TRUE(VelUtilInterruptIsSet());
    session.setInterrupted(false);
    EXPECT_EQ(VelUtilPageGetCount(), 1);
    double width = 0;
    double height = 0;
    VelUtilPaperGetDimensions(&width, &height);
    EXPECT_EQ(width, 11.0);
    EXPECT_EQ(height, 8.5);
    VelUtilDrawGraphics(false);
    EXPECT_FALSE(session.isDrawing());
    VelUtilDrawGraphics(true);
    EXPECT_TRUE(session.isDrawing());
    EXPECT_TRUE(VelUtilWorkViewFitAllFrames());
}

TEST_F(CFunctions, InterpolateLinearlyInTheActiveFrame)
{
    VelUtilFrameSetPlotType(PlotType_Cartesian2D);
    session.history().clear();
    dataSet->zone(2)->fields[0] = sample::field({0.5, 1.5, 2.5, 0.5, 1.5, 2.5});
    Set_s zones{{1}};
    Set_s variables{{4}};
    EXPECT_FALSE(VelUtilLinearInterpolate(nullptr, 2, &variables, 0, LinearInterpMode_DontChange));
    EXPECT_FALSE(VelUtilLinearInterpolate(&zones, 2, nullptr, 0, LinearInterpMode_DontChange));
    EXPECT_FALSE(VelUtilLinearInterpolate(&zones, 2, &variables, 0, 2));
    EXPECT_FALSE(VelUtilLinearInterpolate(&zones, 2, &variables, 0, -1));
    EXPECT_FALSE(VelUtilLinearInterpolate(&zones, 3, &variables, 0, LinearInterpMode_DontChange));
    EXPECT_FALSE(session.history().canUndo());
    ASSERT_TRUE(VelUtilLinearInterpolate(&zones, 2, &variables, -4, LinearInterpMode_SetToConstant));
    auto const value = [](long long point) { return VelUtilDataValueGetByZoneVar(2, 4, point); };
    EXPECT_NEAR(value(1), 10.5, 1e-6);
    EXPECT_NEAR(value(2), 11.5, 1e-6);
    EXPECT_EQ(value(3), -4);
}

TEST_F(CFunctions, InterpolateFromPointsOfEachSelectionThatThereIs)
{
    VelUtilFrameSetPlotType(PlotType_Cartesian2D);
    dataSet->zone(2)->fields[0] = sample::field({0.5, 1.5, 2.5, 0.5, 1.5, 2.5});
    Set_s zones{{1}};
    Set_s variables{{4}};
    session.history().clear();
    for (int const selection : {INT_MIN, -1, 3, INT_MAX}) {
        EXPECT_FALSE(VelUtilInverseDistInterpolation(&zones, 2, &variables, 2, 0, selection, 4)) << selection;
        EXPECT_EQ(session.lastError(), "There is no such selection of points.") << selection;
        EXPECT_FALSE(VelUtilKrig(&zones, 2, &variables, 0.3, 0, Drift_None, selection, 4)) << selection;
        EXPECT_EQ(session.lastError(), "There is no such selection of points.") << selection;
    }
    EXPECT_FALSE(session.history().canUndo());
    for (int const selection : {PtSelection_All, PtSelection_NearestN, PtSelection_Octant}) {
        EXPECT_TRUE(VelUtilInverseDistInterpolation(&zones, 2, &variables, 2, 0, selection, 4)) << session.lastError();
        EXPECT_TRUE(VelUtilKrig(&zones, 2, &variables, 0.3, 0, Drift_None, selection, 4)) << session.lastError();
    }
}

TEST_F(CFunctions, ReadNothingBeforeAndBehindTheValues)
{
    auto const numbers = std::make_shared<std::vector<double>>(8, 7.5);
    auto const six = Buffer::adopt(FieldDataType_Double, 6, numbers->data() + 1, 1, numbers);
    dataSet->zone(1)->fields[0] = Field(std::make_shared<ShareGroup>(six), ValueLocation_Nodal);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, 0), 0.0);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, 1), 7.5);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, 6), 7.5);
    EXPECT_EQ(VelUtilDataValueGetByZoneVar(1, 1, 7), 0.0);
}

TEST_F(CFunctions, TriangulateInTheActiveFrame)
{
    VelUtilFrameSetPlotType(PlotType_Cartesian2D);
    session.history().clear();
    Set_s planes{{1, 2}};
    Set_s none;
    long long count = -7;
    EXPECT_FALSE(VelUtilTriangulate(nullptr, false, nullptr, false, &count, 0.25));
    EXPECT_FALSE(VelUtilTriangulate(&planes, true, nullptr, false, &count, 0.25));
    EXPECT_FALSE(VelUtilTriangulate(&planes, true, &none, false, &count, 0.25));
    EXPECT_FALSE(VelUtilTriangulate(&planes, true, &planes, false, &count, 0.25)) << "no lines";
    EXPECT_FALSE(VelUtilTriangulate(&planes, false, nullptr, false, &count, 0.6));
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ(count, -7);
    ASSERT_TRUE(VelUtilTriangulate(&planes, false, nullptr, false, &count, 0.25));
    EXPECT_EQ(count, 6) << "the planes have the same points";
    EXPECT_EQ(dataSet->zone(3)->cellCount(), 4);
    EXPECT_TRUE(VelUtilTriangulate(&planes, false, nullptr, false, nullptr, 0.25));
}

} // namespace veldraw::tests
