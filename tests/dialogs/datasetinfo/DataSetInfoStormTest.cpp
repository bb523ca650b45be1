#include "kernel/frames/AuxiliaryOwner.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"
#include "tests/dialogs/support/ToolTipOf.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLineEdit>

#include <gmock/gmock.h>
#include <map>
#include <random>

namespace veldraw::tests {
namespace {

/// What the pages must show, from the kernel's own objects.
struct KernelFacts
{
    explicit KernelFacts(kernel::Session const& session)
    {
        auto const dataSet = session.activeDataSet();
        if (!dataSet)
            return;
        title = dataSet->title();
        for (kernel::LoaderInstructions const& load : dataSet->loaderInstructions())
            files += load.words.at(1) + "\n"; // each load of the storm is of one file
        long long points = 0;
        long long elements = 0;
        for (auto const& zone : dataSet->zones()) {
            isKnown = isKnown && !(zone->enabled && zone->isDeferred());
            points += zone->enabled ? zone->pointCount() : 0;
            elements += zone->enabled ? zone->cellCount() : 0;
        }
        texts = {std::to_string(dataSet->zoneCount()), std::to_string(dataSet->variableCount()),
                 isKnown ? std::to_string(points) : "Not Loaded", isKnown ? std::to_string(elements) : "Not Loaded",
                 dataSet->lockHolder().empty() ? "none" : dataSet->lockHolder()};
    }

    bool isKnown = true; // how large it is
    std::string title;   // empty without a data set: the last one stays shown
    std::string files;
    std::vector<std::string> texts{"0", "0", "0", "0", "none"};
};

/// Random changes by the user and by others, with the window open: what it shows of the data set and of auxiliary data is what the
/// kernel has.
class DataSetInfoStormTest : public DataSetInfoFixture, public testing::WithParamInterface<unsigned>
{
protected:
    DataSetInfoStormTest()
    {
        sample.dataSet().loaderInstructions() = {{"VTK", {"FILENAME_", "/data/wing.vtu"}}};
        deferred.append(sample.dataSet(), "Late", 5, 4, 3);
        sample.dataSet().addZone(std::make_shared<kernel::Zone>("Tetra", ZoneType_FETetra, 70, 50, 0));
        makeAnotherFrame();
        launchedAt(dataSetPage);
        session().history().clear();
        tester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    void makeAnotherFrame()
    {
        auto const other = SampleSession::makeDataSet({"A", "B"}, {"X", "Y"});
        other->setTitle("Other");
        other->loaderInstructions() = {{"Tables", {"FILENAME_", "/data/other.csv"}}, {"VTK", {"DIRNAME_", "/data"}}};
        auto const frame = session().createFrame("Other", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
        session().setFrameDataSet(frame->id, other);
        session().perform(kernel::SetPlotType(frame->id, PlotType_XYLine));
        session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
        session().activateFrame(sample.frame()->id);
    }

    kernel::Session& session() { return sample.session(); }
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    std::string someName() { return "name" + std::to_string(below(20)); }
    int oneOf(int count) { return 1 + below(std::max(count, 1)); }
    kernel::DataSet& dataSet() { return *session().activeDataSet(); }

    void perform(std::string const& kind, kernel::Operation&& operation)
    {
        m_done[kind] += session().perform(operation) ? 1 : 0;
    }
    void setAuxiliaryData()
    {
        auto const location = static_cast<AuxDataLocation_e>(below(7));
        bool const isSet = toolbox::AuxData(location, oneOf(4)).setText(someName(), std::to_string(below(50)), true);
        m_done["auxiliary data"] += isSet ? 1 : 0;
    }
    void changeZonesOrVariables()
    {
        int const zone = oneOf(dataSet().zoneCount());
        int const variable = oneOf(dataSet().variableCount());
        switch (below(6)) {
        case 0:
            return perform("zone named", kernel::RenameZone(dataSet(), zone, someName()));
        case 1:
            return perform("variable named", kernel::RenameVariable(dataSet(), variable, someName()));
        case 2:
            if (dataSet().zoneCount() < 9)
                perform("zone added", kernel::DuplicateZones(dataSet(), {zone}));
            return;
        case 3:
            if (dataSet().variableCount() > 2)
                perform("variable gone", kernel::DeleteVariables(dataSet(), {variable}));
            return;
        case 4:
            return perform("zone enabled", kernel::EnableZone(dataSet(), zone, below(3) != 0));
        default:
            return perform("variable enabled", kernel::EnableVariable(dataSet(), variable, below(3) != 0));
        }
    }
    void changeFrameOrMaps()
    {
        auto const frames = session().activePage()->frames;
        auto const frame = session().activeFrame();
        switch (below(5)) {
        case 0:
        case 1:
            session().activateFrame(frames[static_cast<std::size_t>(below(static_cast<int>(frames.size())))]->id);
            ++m_done["frame"];
            return;
        case 2:
            return perform("map added", kernel::CreateLineMap(frame->id));
        case 3:
            return perform("map gone", kernel::DeleteLineMaps(frame->id, {1}));
        default:
            return perform("plot type",
                           kernel::SetPlotType(frame->id, below(2) ? PlotType_Cartesian2D : PlotType_XYLine));
        }
    }
    void takeBack()
    {
        int steps = below(15) == 0 ? 1000 : 1 + below(3);
        while (steps-- > 0 && (below(3) == 0 ? session().redo() : session().undo()))
            ++m_done["taken back"];
    }
    void changeTheKernel()
    {
        if (below(12) == 0 || !session().activeDataSet())
            return changeFrameOrMaps();
        switch (below(8)) {
        case 0:
        case 1:
            return setAuxiliaryData();
        case 2:
        case 3:
            return changeZonesOrVariables();
        case 4:
            return perform("title", kernel::SetTitle(dataSet(), someName()));
        case 5:
            session().setLock(dataSet(), below(3) == 0 ? someName() : "");
            ++m_done["lock"];
            return;
        case 6:
            if (below(200) == 0)
                perform("dimensions", kernel::LoadDimensions(dataSet(), oneOf(dataSet().zoneCount())));
            return;
        default:
            return takeBack();
        }
    }
    void useTheWindow()
    {
        if (!tabs().isEnabled())
            return;
        switch (below(4)) {
        case 0:
            return goTo(dataSetPage);
        case 1:
            goTo(dataSetPage);
            return enter(titleField, someName());
        case 2:
            goTo(auxDataPage);
            return choose(kinds, below(7));
        default:
            goTo(auxDataPage);
            if (child<QWidget>(owners).isEnabled() && child<QComboBox>(owners).count() > 0)
                choose(owners, below(child<QComboBox>(owners).count()));
        }
    }

    static std::string tipOnTotal(std::string const& metric)
    {
        return "<html>Loading of the Total " + metric +
               " metric for one or more zones is deferred until first used to improve performance.</html>";
    }
    /// The rows of the owner that the page names.
    std::vector<std::string> dataOfChosenOwner()
    {
        auto const location = static_cast<AuxDataLocation_e>(child<QComboBox>(kinds).currentIndex());
        std::string const owner = chosen(owners);
        bool const hasList =
            location == AuxDataLocation_Zone || location == AuxDataLocation_Var || location == AuxDataLocation_LineMap;
        if (hasList && owner.empty())
            return {};
        kernel::AuxiliaryData const* const data =
            kernel::AuxiliaryOwner(session().pages(), location, hasList ? std::stoi(owner) : 1).data();
        std::vector<std::string> rows;
        for (int item = 1; data && item <= data->size(); ++item)
            rows.push_back(data->item(item).name + " = " + data->item(item).value);
        return rows;
    }
    void expectTheKernelsFacts()
    {
        int const loads = deferred.timesLoaded();
        KernelFacts const facts(session());
        lastTitle = session().activeDataSet() ? facts.title : lastTitle;
        ASSERT_EQ(shown(titleField), lastTitle);
        ASSERT_EQ(files(), facts.files);
        std::vector<std::string> texts;
        for (char const* const label :
             {"numZonesLabel", "numVarsLabel", "totalPointsLabel", "totalElementsLabel", "lockedByLabel"})
            texts.push_back(labelled(label));
        ASSERT_EQ(texts, facts.texts);
        std::vector<std::string> const rows = dataOfChosenOwner();
        ASSERT_EQ(auxData(), rows) << chosen(kinds) << " " << chosen(owners);
        ASSERT_EQ(deferred.timesLoaded(), loads) << "the pages load nothing";
        for (auto const& [label, metric] :
             {std::pair("totalPointsLabel", "Points"), std::pair("totalElementsLabel", "Elements")})
            ASSERT_EQ(toolTipOf(child<QWidget>(label)), facts.isKnown ? "" : tipOnTotal(metric));
        m_done["rows seen"] += static_cast<int>(rows.size());
        m_done["not loaded seen"] += facts.texts[2] == "Not Loaded" ? 1 : 0;
    }

    DeferredZones deferred;
    std::string lastTitle;
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::mt19937 m_random{GetParam()};
    std::map<std::string, int> m_done; // so many steps of a kind that had an effect
};

TEST_P(DataSetInfoStormTest, ShowsWhatTheKernelHasAfterEachStep)
{
    for (int step = 0; step < 2500; ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        int const loads = deferred.timesLoaded();
        if (below(8) == 0) {
            useTheWindow();
            ASSERT_EQ(deferred.timesLoaded(), loads);
        } else {
            changeTheKernel();
        }
        ASSERT_NO_FATAL_FAILURE(expectTheKernelsFacts());
    }
    for (char const* const kind : {"auxiliary data", "zone named", "variable named", "zone added", "variable gone",
                                   "zone enabled", "variable enabled", "frame", "map added", "map gone", "plot type",
                                   "taken back", "title", "lock", "rows seen", "not loaded seen"})
        EXPECT_GT(m_done[kind], 3) << kind;
    EXPECT_THAT(messages.take(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, DataSetInfoStormTest, testing::Values(1u, 2u, 3u, 4u));

} // namespace
} // namespace veldraw::tests
