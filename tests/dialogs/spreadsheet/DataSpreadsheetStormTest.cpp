#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetValue.h"
#include "tests/dialogs/spreadsheet/KernelSheet.h"
#include "tests/dialogs/spreadsheet/ShadowView.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>

#include <gmock/gmock.h>
#include <map>
#include <numeric>
#include <random>

namespace veldraw::tests {
namespace {

/// Random edits, undos, loads, unloads, choices, and zones, variables and frames that come and go, with the dialog open: what
/// its view was told must be what the kernel has, name by name and cell by cell.
class DataSpreadsheetStormTest : public SpreadsheetDriver, public testing::WithParamInterface<unsigned>
{
protected:
    DataSpreadsheetStormTest()
    {
        for (char const* const name : {"A", "B", "C"})
            stage.dataSet().addVariable(std::make_shared<kernel::Variable>(name));
        for (int zone :
             {stage.addZone("volume", ZoneType_Ordered, 4, 3, 2), stage.addZone("plane", ZoneType_Ordered, 1, 3, 4),
              stage.addZone("line", ZoneType_Ordered, 1, 1, 7), stage.addZone("quads", ZoneType_FEQuad, 6, 2, 0)})
            stage.fillAll(zone);
        stage.fill(1, 3, FieldDataType_Double, ValueLocation_CellCentered);
        stage.fill(4, 3, FieldDataType_Int16, ValueLocation_CellCentered);
        for (int zone = 1; zone <= 4; ++zone) {
            for (int const variable : {4, 5, 6})
                stage.defer(zone, variable, 1.0 / (zone + 10 * variable));
        }
        stage.show();
        launched();
        stage.session().history().clear(); // the frame stays
        tester = std::make_unique<QAbstractItemModelTester>(table().model(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        shadow = std::make_unique<ShadowView>(*table().model());
    }

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    int someZone() { return 1 + below(stage.dataSet().zoneCount()); }
    int someVariable() { return 1 + below(stage.dataSet().variableCount()); }
    kernel::NumberSet allZones() const
    {
        kernel::NumberSet zones;
        for (int zone = 1; zone <= stage.dataSet().zoneCount(); ++zone)
            zones.insert(zone);
        return zones;
    }
    int loadedFields() const
    {
        int count = 0;
        for (int zone = 1; zone <= stage.dataSet().zoneCount(); ++zone) {
            for (int variable = 1; variable <= stage.dataSet().variableCount(); ++variable)
                count += stage.dataSet().field(zone, variable)->isLoaded() ? 1 : 0;
        }
        return count;
    }

    void choose()
    {
        switch (below(7)) {
        case 0:
            return Choices::spreadsheetVariable()->setValue(someVariable());
        case 1:
            return Choices::spreadsheetPlane()->setValue(static_cast<IJKPlanes_e>(below(3)));
        case 2:
            Choices::spreadsheetIIndex()->setValue(1 + below(4));
            Choices::spreadsheetJIndex()->setValue(1 + below(3));
            return Choices::spreadsheetKIndex()->setValue(1 + below(2));
        case 3:
            return Choices::spreadsheetAlterShared()->setValue(below(2) == 0);
        case 4:
            return Choices::spreadsheetValueLocation()->setValue(static_cast<ValueLocation_e>(below(2)));
        case 5:
            return Choices::spreadsheetFormat()->setValue(static_cast<NumberFormat_e>(below(4)));
        default:
            return Choices::spreadsheetZone()->setValue(someZone());
        }
    }
    bool openAnEditor()
    {
        QAbstractItemModel const& model = *table().model();
        if (model.rowCount() == 0 || model.columnCount() == 0)
            return false;
        goTo(below(model.rowCount()), below(model.columnCount()));
        type(std::to_string(below(1000)) + (below(2) == 0 ? ".5" : ""));
        return true;
    }
    void closeTheEditor(Qt::Key key)
    {
        if (table().viewport()->findChild<QLineEdit*>())
            pressInEditor(key);
    }
    void editACell()
    {
        std::string const before = stage.session().history().undoName();
        if (!openAnEditor())
            return;
        if (below(4) == 0) { // somebody else is faster
            changeTheKernel();
            settle();
        }
        closeTheEditor(below(5) == 0 ? Qt::Key_Escape : Qt::Key_Return);
        m_done["edit"] += stage.session().history().undoName() == "Edit Value" && before != "Edit Value" ? 1 : 0;
    }
    void loadAndUnload()
    {
        int const before = loadedFields();
        stage.session().perform(kernel::MakeVariablesAvailable(
            stage.dataSet(), below(2) == 0 ? allZones() : kernel::NumberSet{someZone()}, {someVariable()}));
        std::int64_t const limit = stage.session().loadedValues().limit();
        stage.session().loadedValues().setLimit(0); // memory asks for what nobody wants
        stage.session().loadedValues().setLimit(limit);
        m_done["load"] += loadedFields() > before ? 1 : 0;
        m_done["unload"] += loadedFields() < before ? 1 : 0;
    }
    void undo()
    {
        int const zones = stage.dataSet().zoneCount();
        // Now and then everything, so that the storm doesn't end in a data set with nothing left to happen to.
        for (int steps = below(12) == 0 ? 1000 : 1 + below(3); steps > 0 && stage.session().undo(); --steps)
            ++m_done["undo"];
        m_done["zones gone"] += stage.dataSet().zoneCount() < zones ? 1 : 0;
    }
    void changeTheKernel()
    {
        kernel::Session& session = stage.session();
        kernel::DataSet& dataSet = stage.dataSet();
        switch (below(12)) {
        case 0:
            session.perform(kernel::SetValue(dataSet, someZone(), someVariable(), below(6), below(100), below(2) == 0));
            return;
        case 1:
        case 2:
            return loadAndUnload();
        case 3:
            if (dataSet.zoneCount() == 8)
                return undo();
            session.perform(kernel::DuplicateZones(dataSet, {someZone()}));
            return;
        case 4:
            session.perform(kernel::EnableZone(dataSet, someZone(), below(4) != 0));
            return;
        case 5:
            session.perform(kernel::EnableVariable(dataSet, someVariable(), below(4) != 0));
            return;
        case 6:
            if (dataSet.variableCount() > 4)
                m_done["variables gone"] += session.perform(kernel::DeleteVariables(dataSet, {someVariable()})) ? 1 : 0;
            return;
        case 7:
            session.perform(kernel::RenameVariable(dataSet, someVariable(), "name " + std::to_string(below(100))));
            return;
        case 8:
            for (int steps = 1 + below(4); steps > 0; --steps)
                session.redo();
            return;
        case 9:
            if (below(3) == 0)
                stage.hide();
            return stage.show();
        default:
            return undo();
        }
    }
    void step()
    {
        switch (below(5)) {
        case 0:
            return choose();
        case 1:
        case 2:
            return editACell();
        default:
            return below(20) == 0 ? stage.hide() : changeTheKernel();
        }
    }
    void expectTheKernelsSheet()
    {
        KernelSheet const sheet(stage);
        ASSERT_EQ(shadow->rowNames(), sheet.rowNames);
        ASSERT_EQ(shadow->columnNames(), sheet.columnNames);
        ASSERT_EQ(shadow->texts(), sheet.texts);
        ASSERT_EQ(static_cast<std::size_t>(table().verticalHeader()->count()), sheet.rowNames.size());
        ASSERT_EQ(static_cast<std::size_t>(table().horizontalHeader()->count()), sheet.columnNames.size());
        for (auto const& row : sheet.texts)
            m_done["not loaded"] += static_cast<int>(std::count(row.begin(), row.end(), "Not Loaded"));
    }

    std::mt19937 m_random{GetParam()};
    std::map<std::string, int> m_done; // so many steps of a kind that had an effect
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<ShadowView> shadow;
};

TEST_P(DataSpreadsheetStormTest, ShowsWhatTheKernelHasAfterEachStep)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    for (int count = 0; count < 600 && !HasFatalFailure(); ++count) {
        SCOPED_TRACE("step " + std::to_string(count));
        ShadowView::Texts const before = shadow->texts();
        step();
        settle();
        messages.take();
        expectTheKernelsSheet();
        m_done["alter"] += shadow->texts() != before ? 1 : 0;
    }
    // A storm that does nothing shows nothing.
    EXPECT_GT(m_done["alter"], 100);
    for (char const* const kind : {"edit", "load", "unload", "undo", "zones gone", "variables gone", "not loaded"})
        EXPECT_GT(m_done[kind], 0) << kind;
}

INSTANTIATE_TEST_SUITE_P(Seeds, DataSpreadsheetStormTest, testing::Range(1u, 13u));

} // namespace
} // namespace veldraw::tests
