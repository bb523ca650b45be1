#include "dialogs/frame/QtDialogAbstract.h"
#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/spreadsheet/ShadowView.h"
#include "tests/dialogs/spreadsheet/SheetStage.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QAbstractItemModelTester>
#include <QWidget>

#include <cstdio>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;
using sdk::ui::common::IdleDispatcher;
using Manager = sdk::ui::propertymanager::DataSpreadsheetPropertiesManager;
using Texts = ShadowView::Texts;

class StormOwner : public dialogs::common::QtDialogAbstract
{
public:
    explicit StormOwner(QWidget& parent)
        : QtDialogAbstract(parent, nullptr)
    {
    }
};

/// Random edits, undos, loads, unloads, choices, and zones and variables that come and go, with a spreadsheet open: what
/// a view was told must be what the kernel has, cell by cell.
class SpreadsheetStorm : public testing::TestWithParam<unsigned>
{
protected:
    SpreadsheetStorm()
    {
        for (int zone :
             {stage.addZone("volume", ZoneType_Ordered, 4, 3, 2), stage.addZone("plane", ZoneType_Ordered, 1, 3, 4),
              stage.addZone("line", ZoneType_Ordered, 1, 1, 7), stage.addZone("quads", ZoneType_FEQuad, 6, 2, 0)})
            stage.fillAll(zone);
        stage.fill(1, 3, FieldDataType_Double, ValueLocation_CellCentered);
        stage.fill(4, 3, FieldDataType_Int16, ValueLocation_CellCentered);
        for (int zone = 1; zone <= 4; ++zone)
            stage.defer(zone, 2, 1.0 / zone);
        stage.show();
        manager = std::make_unique<Manager>(owner);
        model = std::make_unique<QTableModelAdapter>(*manager->tableModelProxy());
        tester = std::make_unique<QAbstractItemModelTester>(model.get(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        shadow = std::make_unique<ShadowView>(*model);
    }
    ~SpreadsheetStorm() override
    {
        Manager::spreadsheetZone()->setValue(1);
        Manager::spreadsheetVariable()->setValue(1);
        Manager::spreadsheetPlane()->setValue(IJKPlanes_K);
        Manager::spreadsheetAlterShared()->setValue(false);
        Manager::spreadsheetFormat()->setValue(NumberFormat_BestFloat);
        Manager::spreadsheetValueLocation()->setValue(ValueLocation_Nodal);
    }

    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    int someZone() { return 1 + below(stage.dataSet().zoneCount()); }
    int someVariable() { return 1 + below(stage.dataSet().variableCount()); }

    void choose()
    {
        switch (below(6)) {
        case 0:
            return Manager::spreadsheetVariable()->setValue(someVariable());
        case 1:
            return Manager::spreadsheetPlane()->setValue(static_cast<IJKPlanes_e>(below(3)));
        case 2:
            return manager->indexProperty()->setValue(1 + below(4));
        case 3:
            return Manager::spreadsheetAlterShared()->setValue(below(2) == 0);
        case 4:
            return Manager::spreadsheetValueLocation()->setValue(static_cast<ValueLocation_e>(below(2)));
        default:
            return Manager::spreadsheetZone()->setValue(someZone());
        }
    }
    void editACell()
    {
        if (model->rowCount() > 0 && model->columnCount() > 0)
            model->setData(model->index(below(model->rowCount()), below(model->columnCount())),
                           QString::number(below(1000)));
    }
    void changeTheKernel()
    {
        kernel::Session& session = stage.session();
        kernel::DataSet& dataSet = stage.dataSet();
        switch (below(8)) {
        case 0:
            session.setValue(dataSet, someZone(), someVariable(), below(6), below(100), below(2) == 0);
            break;
        case 1:
            session.makeVariablesAvailable(dataSet, {someZone()}, {someVariable()});
            break;
        case 2:
            session.duplicateZones(dataSet, {someZone()});
            break;
        case 3:
            session.setZoneEnabled(dataSet, someZone(), below(3) != 0);
            break;
        case 4:
            session.setVariableEnabled(dataSet, someVariable(), below(3) != 0);
            break;
        case 5:
            if (dataSet.variableCount() > 2)
                session.deleteVariables(dataSet, {someVariable()});
            break;
        case 6:
            session.redo();
            break;
        default:
            session.undo();
            break;
        }
    }
    void step()
    {
        switch (below(4)) {
        case 0:
            return choose();
        case 1:
            return editACell();
        default:
            return changeTheKernel();
        }
    }

    // ---- what the kernel has, read without the tables' help ---------------------------------------------------------
    std::string cell(int zone, int variable, std::int64_t offset) const
    {
        kernel::Field const& field = *stage.dataSet().field(zone, variable);
        if (!field.isLoaded())
            return "Not Loaded";
        double const value = field.isPassive() ? 0.0 : stage.stored(zone, variable, offset);
        char text[40];
        std::snprintf(text, sizeof text, "%.*g", field.type() == FieldDataType_Float ? 9 : 17, value);
        return text;
    }
    Texts listTexts(kernel::Zone const& zone, int number) const
    {
        std::vector<int> variables;
        ValueLocation_e location = ValueLocation_Nodal;
        bool isMixed = false;
        for (int const variable : sdk::getEnabledVars().members()) {
            ValueLocation_e const own = stage.dataSet().field(number, variable)->location();
            isMixed = isMixed || (!variables.empty() && own != location);
            location = variables.empty() ? own : location;
            variables.push_back(variable);
        }
        location = isMixed ? Manager::spreadsheetValueLocation()->value() : location;
        Texts rows(static_cast<std::size_t>(zone.isOrdered()                  ? zone.k
                                            : location == ValueLocation_Nodal ? zone.i
                                                                              : zone.j));
        for (int const variable : variables) {
            if (stage.dataSet().field(number, variable)->location() != location)
                continue;
            for (std::size_t row = 0; row < rows.size(); ++row)
                rows[row].push_back(cell(number, variable, static_cast<std::int64_t>(row)));
        }
        return rows;
    }
    Texts planeTexts(kernel::Zone const& zone, int number) const
    {
        int const variable = Manager::spreadsheetVariable()->value();
        bool const isCell = stage.dataSet().field(number, variable)->location() == ValueLocation_CellCentered;
        std::int64_t dims[3] = {zone.i, zone.j, zone.k};
        int const fixed = Manager::spreadsheetPlane()->value();
        int const down = fixed == IJKPlanes_I ? 1 : 0;
        int const across = fixed == IJKPlanes_K ? 1 : 2;
        for (std::int64_t& dim : dims)
            dim = isCell && dim > 1 ? dim - 1 : dim;
        Texts rows;
        std::int64_t at[3];
        at[fixed] = std::min<std::int64_t>(manager->indexProperty()->value(), dims[fixed]) - 1;
        for (at[down] = 0; at[down] < dims[down]; ++at[down]) {
            rows.emplace_back();
            for (at[across] = 0; at[across] < dims[across]; ++at[across])
                rows.back().push_back(cell(number, variable, at[0] + zone.i * (at[1] + zone.j * at[2])));
        }
        return rows;
    }
    Texts kernelTexts() const
    {
        if (sdk::getEnabledZones().isEmpty() || sdk::getEnabledVars().isEmpty())
            return {};
        int const number = Manager::spreadsheetZone()->value();
        kernel::Zone const& zone = *stage.dataSet().zone(number);
        return zone.isOrdered() && zone.dimensionality() > 1 ? planeTexts(zone, number) : listTexts(zone, number);
    }

    std::mt19937 m_random{GetParam()};
    RecordedMessages messages;
    SheetStage stage{{"X", "Y", "P", "T"}};
    QWidget parent;
    StormOwner owner{parent};
    std::unique_ptr<Manager> manager;
    std::unique_ptr<QTableModelAdapter> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<ShadowView> shadow;
};

TEST_P(SpreadsheetStorm, ShowsWhatTheKernelHasAfterEachStep)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    int timesAltered = 0;
    for (int count = 0; count < 400; ++count) {
        Texts const before = shadow->texts();
        step();
        IdleDispatcher::flush();
        messages.take();
        ASSERT_EQ(shadow->texts(), kernelTexts()) << "step " << count;
        timesAltered += shadow->texts() != before ? 1 : 0;
    }
    EXPECT_GT(timesAltered, 50) << "a storm that alters nothing shows nothing";
}

INSTANTIATE_TEST_SUITE_P(Seeds, SpreadsheetStorm, testing::Range(1u, 13u));

} // namespace
} // namespace veldraw::tests
