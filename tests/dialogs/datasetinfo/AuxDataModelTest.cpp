#include "dialogs/datasetinfo/AuxDataModel.h"

#include "dialogs/models/QTableModelAdapter.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::models::AuxDataModel;
using sdk::ui::dialogs::propertybindings::models::ModelIndex;
using sdk::ui::dialogs::propertybindings::models::QTableModelAdapter;
using sdk::ui::dialogs::propertybindings::models::TableModelInterface;
using sdk::ui::dialogs::propertybindings::models::TableModelListenerInterface;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::AuxData;

/// Two zones and a variable, whose auxiliary data each test sets.
class AuxDataModelTest : public testing::Test
{
protected:
    static std::vector<std::string> rowsOf(TableModelInterface const& model)
    {
        std::vector<std::string> rows;
        for (unsigned long long row = 0; row < model.rowCount(); ++row)
            rows.push_back(model.getStr(ModelIndex(row, 0)) + " = " + model.getStr(ModelIndex(row, 1)));
        return rows;
    }

    SampleSession sample{{"Wing", "Body"}, {"X"}};
};

/// Counts how often all data changed.
class ChangeCounter : public TableModelListenerInterface
{
public:
    explicit ChangeCounter(TableModelInterface& model)
        : m_model(model)
    {
        m_model.addListener(this);
    }
    ~ChangeCounter() override { m_model.removeListener(this); }
    ChangeCounter(ChangeCounter const&) = delete;
    ChangeCounter& operator=(ChangeCounter const&) = delete;

    void dataChanged(TableModelInterface&) override { ++changes; }
    void itemChanged(ModelIndex const&, TableModelInterface&) override {}
    void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
    void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}

    int changes = 0;

private:
    TableModelInterface& m_model;
};

TEST_F(AuxDataModelTest, ShowsNamesAndValuesOfItsOwner)
{
    AuxData(AuxDataLocation_Zone, 2).setText("Mach", "0.84", true);
    AuxData(AuxDataLocation_Zone, 2).setText("Alpha", "3° up", true);
    AuxData(AuxDataLocation_Zone, 1).setText("Other", "no", true);
    AuxDataModel const model(AuxDataLocation_Zone, 2);
    EXPECT_THAT(rowsOf(model), ElementsAre("Alpha = 3° up", "Mach = 0.84"));
}

TEST_F(AuxDataModelTest, HasTwoNamedColumnsWhateverItsOwner)
{
    for (AuxDataLocation_e const location :
         {AuxDataLocation_Zone, AuxDataLocation_DataSet, AuxDataLocation_Frame, AuxDataLocation_Var,
          AuxDataLocation_LineMap, AuxDataLocation_Page, AuxDataLocation_Layout}) {
        AuxDataModel const model(location, 1);
        EXPECT_EQ(model.columnCount(), 2u) << location;
        EXPECT_EQ(model.rowCount(), 0u) << location;
        EXPECT_EQ(model.columnName(0), "Data Name") << location;
        EXPECT_EQ(model.columnName(1), "Value") << location;
    }
}

TEST_F(AuxDataModelTest, IsEmptyForAnOwnerThatDoesNotExist)
{
    EXPECT_THAT(rowsOf(AuxDataModel(AuxDataLocation_Zone, 3)), IsEmpty());
    EXPECT_THAT(rowsOf(AuxDataModel(AuxDataLocation_Var, 0)), IsEmpty());
    AuxDataModel const model(AuxDataLocation_DataSet, 1);
    AuxData(AuxDataLocation_DataSet, 1).setText("Mach", "0.84", true);
    EXPECT_EQ(model.rowCount(), 1u);
    sample.session().clear();
    EXPECT_EQ(model.rowCount(), 0u);
    EXPECT_EQ(model.getStr(ModelIndex(0, 0)), "");
}

TEST_F(AuxDataModelTest, CannotBeEdited)
{
    AuxData(AuxDataLocation_Zone, 1).setText("Mach", "0.84", true);
    AuxDataModel model(AuxDataLocation_Zone, 1);
    EXPECT_FALSE(model.isEditable(ModelIndex(0, 1)));
    EXPECT_FALSE(model.setStr(ModelIndex(0, 1), "0.9"));
    EXPECT_THAT(rowsOf(model), ElementsAre("Mach = 0.84"));
}

TEST_F(AuxDataModelTest, NamesAllRowsAlike)
{
    AuxDataModel const model(AuxDataLocation_Zone, 1);
    for (unsigned long long const row : {0ull, 1ull, 3000000000ull})
        EXPECT_EQ(model.rowName(row), "Blame Oren Kasvik");
}

TEST_F(AuxDataModelTest, TellsChangesOfAuxiliaryDataAtOnce)
{
    AuxDataModel model(AuxDataLocation_Zone, 1);
    ChangeCounter const counter(model);
    AuxData(AuxDataLocation_Zone, 1).setText("Mach", "0.84", true);
    EXPECT_EQ(counter.changes, 1) << "added";
    AuxData(AuxDataLocation_Zone, 1).setText("Mach", "0.9", true);
    EXPECT_EQ(counter.changes, 2) << "altered";
    sample.session().undo();
    EXPECT_EQ(counter.changes, 3);
    sample.session().undo();
    EXPECT_EQ(counter.changes, 4) << "deleted";
}

TEST_F(AuxDataModelTest, HearsOnlyWhatIsAboutAuxiliaryData)
{
    AuxDataModel model(AuxDataLocation_Zone, 1);
    ChangeCounter const counter(model);
    for (int kind = 0; kind <= 60; ++kind) {
        int const before = counter.changes;
        FakeStateChange(kind).send();
        bool const isOne = kind == 41 || kind == 42 || kind == 43 || kind == 51;
        EXPECT_EQ(counter.changes - before, isOne ? 1 : 0) << kind;
    }
}

TEST_F(AuxDataModelTest, IsATrueModelOfQtWhileItemsComeAndGo)
{
    AuxDataModel model(AuxDataLocation_DataSet, 1);
    QTableModelAdapter adapter(model);
    QAbstractItemModelTester const tester(&adapter, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int item = 0; item < 5; ++item) {
        AuxData(AuxDataLocation_DataSet, 1).setText("Item" + std::to_string(item), "a", false);
        EXPECT_EQ(adapter.rowCount(), item + 1);
    }
    while (sample.session().undo())
        EXPECT_EQ(adapter.rowCount(), static_cast<int>(model.rowCount()));
    EXPECT_EQ(adapter.rowCount(), 0);
    EXPECT_EQ(adapter.headerData(1, Qt::Horizontal).toString().toStdString(), "Value");
}

} // namespace
} // namespace veldraw::tests
