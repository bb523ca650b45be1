#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "tests/dialogs/datasetinfo/ZoneVarInfoFixture.h"
#include "tests/dialogs/datasetinfo/ZoneVarTexts.h"
#include "tests/dialogs/support/ToolTipOf.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>
#include <map>
#include <random>

namespace veldraw::tests {
namespace {

/// Random operations of others and clicks and keys of the user, with the page open: each text must be what the kernel's data makes it.
class ZoneVarInfoPageStormTest : public ZoneVarInfoFixture, public testing::WithParamInterface<unsigned>
{
protected:
    ZoneVarInfoPageStormTest()
    {
        stage.session().history().clear();
        compare();
    }

    kernel::Session& session() const { return stage.session(); }
    kernel::DataSet* shownData() const { return session().activeDataSet().get(); }
    kernel::UniqueId frameID() const { return session().activeFrame()->id; }

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    int someZone() { return 1 + below(shownData()->zoneCount()); }
    int someVariable() { return 1 + below(shownData()->variableCount()); }
    std::string someName() { return "name " + std::to_string(below(1000)); }

    void note(char const* kind, bool isDone) { m_done[kind] += isDone ? 1 : 0; }

    void changeNames()
    {
        if (below(2) == 0)
            note("rename zone", session().perform(kernel::RenameZone(*shownData(), someZone(), someName())));
        else
            note("rename variable",
                 session().perform(kernel::RenameVariable(*shownData(), someVariable(), someName())));
    }
    void changeWhatThereIs()
    {
        kernel::DataSet& dataSet = *shownData();
        switch (below(5)) {
        case 0:
            if (dataSet.zoneCount() < 9)
                note("duplicate", session().perform(kernel::DuplicateZones(dataSet, {someZone()})));
            return;
        case 1:
            note("delete", session().perform(kernel::DeleteVariables(dataSet, {someVariable()})));
            return;
        case 2:
            note("variables", session().perform(kernel::EnableVariable(dataSet, someVariable(), below(3) != 0)));
            return;
        default:
            note("zones", session().perform(kernel::EnableZone(dataSet, someZone(), below(3) != 0)));
        }
    }
    void changeValues()
    {
        note("values", session().perform(kernel::SetValue(*shownData(), someZone(), someVariable(), below(5),
                                                          below(100000) / 7.0, below(2) == 0)));
    }
    void load()
    {
        if (below(8) == 0)
            return note("dimensions", session().perform(kernel::LoadDimensions(*shownData(), someZone())));
        note("load", session().perform(kernel::MakeVariablesAvailable(*shownData(), {someZone()}, {someVariable()})));
        if (below(2) == 0)
            return;
        std::int64_t const limit = session().loadedValues().limit();
        session().loadedValues().setLimit(0); // what nobody wants goes
        session().loadedValues().setLimit(limit);
        note("unload", true);
    }
    void changePlot()
    {
        kernel::Frame const& frame = *session().activeFrame();
        auto const maps = static_cast<int>(frame.lineMaps.size());
        kernel::NumberSet const someMap{maps == 0 ? 1 : 1 + below(maps)};
        switch (below(5)) {
        case 0:
            if (maps < 5)
                note("line map", session().perform(kernel::CreateLineMap(frameID())));
            return;
        case 1:
            note("line map gone", session().perform(kernel::DeleteLineMaps(frameID(), someMap)));
            return;
        case 2: {
            kernel::UniqueId const zone = shownData()->zone(someZone())->id;
            bool const isActive = below(3) != 0;
            note("line map changed",
                 session().perform(kernel::ChangeLineMaps(frameID(), someMap, [zone, isActive](kernel::LineMap& map) {
                     map.zone = zone;
                     map.active = isActive;
                 })));
            return;
        }
        default:
            note("plot type", session().perform(kernel::SetPlotType(frameID(), static_cast<PlotType_e>(1 + below(5)))));
        }
    }
    void changeFrames()
    {
        std::vector<std::shared_ptr<kernel::Frame>> const& frames = session().activePage()->frames;
        switch (below(5)) {
        case 0:
            if (frames.size() < 4) {
                session().createFrame("another", {0.0, 0.0, 1.0, 1.0}); // without data
                note("frame", true);
            }
            return;
        case 1:
            if (frames.size() > 1)
                note("frame gone", session().perform(kernel::DeleteFrame(frameID())));
            return;
        case 2:
            if (below(6) == 0)
                note("new data", session().setFrameDataSet(frameID(), anotherDataSet()));
            return;
        default: {
            auto const place = static_cast<std::size_t>(below(static_cast<int>(frames.size())));
            note("other frame", session().activateFrame(frames[place]->id));
        }
        }
    }
    std::shared_ptr<kernel::DataSet> anotherDataSet()
    {
        auto const dataSet = SampleSession::makeDataSet({"A", "B", "C"}, {"x", "y", "z", "p"});
        for (auto const& zone : dataSet->zones()) {
            zone->strand = below(3) == 0 ? 2147483646 : below(3);
            zone->solutionTime = below(100) / 8.0;
            ZoneVarStage::fill(*zone, 1 + below(4), FieldDataType_Double, ValueLocation_Nodal, [this](std::int64_t) {
                return below(50) == 0 ? std::nan("") : (below(1000) - 500) * std::pow(10.0, below(40) - 20);
            });
            ZoneVarStage::estimate(*zone, 1 + below(4), -1.0, 1.0 + below(3), below(2) == 0);
        }
        m_more.append(*dataSet, "D", 4, 5, 6);
        return dataSet;
    }
    void use()
    {
        QListView& list = below(2) == 0 ? *ui.selectedZonesList : *ui.selectedVarsList;
        int const rows = list.model()->rowCount();
        if (rows == 0 || !list.isEnabled()) // in a sketch the window is disabled
            return;
        if (below(2) == 0)
            clickRow(list, below(rows));
        else
            QTest::keyClick(&list, below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
        note("select", true);
    }
    void editAName()
    {
        QLineEdit& field = below(2) == 0 ? *ui.zoneNameLineEdit : *ui.varNameLineEdit;
        if (!field.isEnabled())
            return;
        std::string const before = session().history().undoName();
        enter(field, someName().c_str());
        note("edit", session().history().undoName().rfind("Rename", 0) == 0);
    }
    void step()
    {
        bool const hasZones = shownData() && shownData()->zoneCount() > 0;
        switch (hasZones ? below(10) : 8 + below(2)) {
        case 0:
            return changeNames();
        case 1:
            return changeWhatThereIs();
        case 2:
            return changeValues();
        case 3:
            return load();
        case 4:
            return changePlot();
        case 5:
            return withoutLoading([this] { below(6) == 0 ? editAName() : use(); });
        case 6:
            return withoutLoading([this] { use(); });
        case 7:
            return note("redo", session().redo());
        case 8:
            return note("undo", session().undo());
        default:
            return changeFrames();
        }
    }

    // The lists are checked as well: the texts are those of the selected rows.
    static void expectRows(QListView const& list, kernel::NumberSet const& numbers,
                           std::function<std::string(int)> const& name, int selected)
    {
        ASSERT_EQ(list.model()->rowCount(), static_cast<int>(numbers.size()));
        int row = 0;
        for (int const number : numbers) {
            EXPECT_EQ(list.model()->index(row++, 0).data().toString().toStdString(),
                      std::to_string(number) + ": " + name(number));
        }
        EXPECT_EQ(selected != 0, !numbers.empty());
        EXPECT_EQ(numbers.count(selected), numbers.empty() ? 0u : 1u);
    }
    // Off or on by itself, whatever becomes of the window.
    void expectEnabled(char const* name, bool isOn) const
    {
        EXPECT_EQ(!child(name).testAttribute(Qt::WA_ForceDisabled), isOn) << name;
    }
    void compareEnabled(kernel::Zone const* zone, bool hasVariable) const
    {
        bool const hasThird =
            zone && (zone->isOrdered() || zone->type == ZoneType_FEPolygon || zone->type == ZoneType_FEPolyhedron);
        bool const isInStrand = zone && zone->strand >= 0 && zone->strand < 2147483646;
        expectEnabled("zoneNameLineEdit", zone);
        expectEnabled("zoneTypeLineEdit", zone);
        expectEnabled("zoneIDimensionLineEdit", zone && zone->i >= 0);
        expectEnabled("zoneJDimensionLineEdit", zone && zone->j >= 0);
        expectEnabled("zoneKDimensionLineEdit", hasThird && zone->k >= 0);
        expectEnabled("zoneSolutionTimeLineEdit", isInStrand);
        expectEnabled("zoneStrandIDLineEdit", isInStrand);
        for (char const* const name : {"varNameLineEdit", "varTypeLineEdit", "varStatusLineEdit",
                                       "varSelectedMinLineEdit", "varActiveMaxLineEdit"})
            expectEnabled(name, zone && hasVariable);
    }
    // Metrics that are deferred, and no others, say why they are empty.
    void compareTips(kernel::Zone const* zone) const
    {
        if (!zone)
            return;
        bool const hasFaces = zone->type == ZoneType_FEPolygon || zone->type == ZoneType_FEPolyhedron;
        std::vector<std::string> const metrics = zone->isOrdered()
                                                     ? std::vector<std::string>{"IMax", "JMax", "KMax"}
                                                     : std::vector<std::string>{"Pts", "Elem", hasFaces ? "Faces" : ""};
        for (std::size_t place = 0; place < 3; ++place) {
            std::string const row = std::string("zone") + "IJK"[place] + "Dimension";
            std::string const tip = zone->isDeferred() && !metrics[place].empty()
                                        ? "<html>Loading of the " + metrics[place] +
                                              " metric is deferred until first used to improve performance.</html>"
                                        : "";
            EXPECT_EQ(toolTipOf(child(row + "Label")), tip);
            EXPECT_EQ(toolTipOf(child(row + "LineEdit")), tip);
        }
    }
    /// What is loaded of the shown data.
    int loadedCount() const
    {
        int count = 0;
        for (int number = 1; shownData() && number <= shownData()->zoneCount(); ++number) {
            kernel::Zone const& zone = *shownData()->zone(number);
            count += zone.isDeferred() ? 0 : 1;
            for (kernel::Field const& field : zone.fields)
                count += field.isLoaded() ? 1 : 0;
        }
        return count;
    }
    int timesLoaded() const { return stage.deferred.timesLoaded() + m_more.timesLoaded(); }
    /// Something that must not load anything.
    template <typename Action>
    void withoutLoading(Action const& action)
    {
        int const loads = timesLoaded();
        int const loaded = loadedCount();
        action();
        EXPECT_EQ(timesLoaded(), loads);
        EXPECT_EQ(loadedCount(), loaded);
    }
    void compare()
    {
        withoutLoading([this] { IdleDispatcher::flush(); });
        int const zone = selectedZone();
        int const variable = selectedVariable();
        kernel::DataSet const none;
        kernel::DataSet const& dataSet = shownData() ? *shownData() : none;
        expectRows(
            *ui.selectedZonesList, dataSet.enabledZones(), [&](int number) { return dataSet.zone(number)->name; },
            zone);
        expectRows(
            *ui.selectedVarsList, dataSet.enabledVariables(),
            [&](int number) { return dataSet.variable(number)->name; }, variable);
        if (HasFailure())
            return;
        ZoneVarTexts::Texts const before = m_expected;
        m_expected = m_texts.fresh(session(), zone, variable);
        for (auto const& [name, text] : m_expected)
            EXPECT_EQ(child(name).property("text").toString().toStdString(), text)
                << name << " of zone " << zone << ", variable " << variable;
        kernel::Zone const* const shownZone = zone > 0 ? dataSet.zone(zone).get() : nullptr;
        compareEnabled(shownZone, variable > 0);
        withoutLoading([&] { compareTips(shownZone); });
        note("tip seen", shownZone && shownZone->isDeferred());
        note("other texts", m_expected != before);
        note("map seen", m_expected["varStatusLineEdit"] == "Map");
    }

    std::mt19937 m_random{GetParam()};
    ZoneVarTexts m_texts;
    ZoneVarTexts::Texts m_expected;
    DeferredZones m_more;
    std::map<std::string, int> m_done; // so many steps of a kind that had an effect
};

TEST_P(ZoneVarInfoPageStormTest, ShowsWhatTheKernelHasAfterEachStep)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    for (int count = 0; count < 2500 && !HasFailure(); ++count) {
        SCOPED_TRACE("step " + std::to_string(count));
        step();
        compare();
        EXPECT_THAT(messages.take(), testing::IsEmpty());
    }
    // A storm that does nothing shows nothing.
    EXPECT_GT(m_done["other texts"], 500);
    for (char const* const kind : {"rename zone",   "rename variable",
                                   "duplicate",     "delete",
                                   "variables",     "zones",
                                   "values",        "load",
                                   "unload",        "line map",
                                   "line map gone", "line map changed",
                                   "plot type",     "frame",
                                   "frame gone",    "new data",
                                   "other frame",   "select",
                                   "edit",          "undo",
                                   "map seen",      "redo",
                                   "tip seen"})
        EXPECT_GT(m_done[kind], 0) << kind;
}

INSTANTIATE_TEST_SUITE_P(Seeds, ZoneVarInfoPageStormTest, testing::Range(1u, 5u));

} // namespace
} // namespace veldraw::tests
