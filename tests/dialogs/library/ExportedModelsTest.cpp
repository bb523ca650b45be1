#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/LineMapListModel.h"
#include "dialogs/models/NonSpatialVariablesListModel.h"
#include "dialogs/models/QListModel.h"
#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/models/TableModelProxy.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/support/FakeStateChange.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

/// A list of the application's own: 0, 10, 20.
template <typename T>
class Tens : public ListModelAbstract<T>
{
public:
    int size() const override { return 3; }
    T get(int index) const override { return static_cast<T>(10 * index); }
    std::string getStr(int index) const override { return std::to_string(10 * index); }
    void tell() const { this->signalDataChanged(); }
};

TEST(ExportedLists, AreBasesForListsOfTheApplication)
{
    Tens<int> const whole;
    ListModelInterface<int> const& list = whole;
    EXPECT_EQ(list.indexOf(20), 2);
    EXPECT_EQ(list.getStrForEdit(1), "10");
    EXPECT_FALSE(list.isEditable());
    EXPECT_EQ(Tens<double>().indexOf(10.0), 1);
}

TEST(ExportedLists, StandBehindProxiesAndQtsViews)
{
    auto const list = boost::make_shared<Tens<int>>();
    ListModelProxy<int> const proxy(list);
    QListModel const model(proxy);
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    list->tell();
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.data(model.index(2), Qt::UserRole).toInt(), 20);
    EXPECT_TRUE(qobject_cast<QListModel const*>(static_cast<QObject const*>(&model)));
}

TEST(ExportedLists, FollowTheKernel)
{
    EXPECT_EQ(ZoneListModel(&sdk::getEnabledZonesForFrame, false).size(), 0);
    EXPECT_EQ(EnabledVariablesListModel(&sdk::getEnabledVarsForFrame, true).size(), 0);
    EXPECT_EQ(NonSpatialVariablesListModel().size(), 0);
    EXPECT_EQ(LineMapListModel().size(), 0);
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    EXPECT_EQ(zones.size(), 0);
}

TEST(ExportedLists, CanBeFilledByTheApplication)
{
    class Own : public ZoneVarListModelAbstract
    {
    public:
        Own()
            : ZoneVarListModelAbstract([](long long) { return toolbox::Set(7); }, nullptr,
                                       [](long long, int) { return std::string("seven"); }, IDOf(),
                                       StateChange_VariablesRenamed, Rename())
        {
        }
        using ZoneVarListModelAbstract::resetListModelState;
    };
    Own const list;
    list.resetListModelState();
    FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_EQ(list.size(), 0) << "there is no frame";
}

TEST(ExportedLists, CanShowNumbersAndNamesOfTheApplication)
{
    class Own : public NamedNumbersListModelAbstract
    {
    public:
        Own() { show({{3, 7}, {"three", "seven"}}); }
    };
    auto const list = boost::make_shared<Own>();
    EXPECT_EQ(list->size(), 2);
    EXPECT_EQ(list->get(1), 7);
    EXPECT_EQ(list->getStr(1), "7: seven");
}

TEST(ExportedLists, CanBeReadWithoutTheirType)
{
    Tens<int> const list;
    GenericModelWrapper<int> const wrapper(&list);
    GenericModelWrapperInterface const& untyped = wrapper;
    EXPECT_EQ(untyped.size(), 3);
    EXPECT_EQ(untyped.get(2).toInt(), 20);
}

/// A table of the application's own: two rows, one column, a text that can be edited.
class Cells : public TableModelAbstract
{
public:
    unsigned long long columnCount() const override { return 1; }
    unsigned long long rowCount() const override { return 2; }
    std::string columnName(unsigned long long) const override { return "column"; }
    std::string rowName(unsigned long long row) const override { return std::to_string(row); }
    bool isEditable(ModelIndex const&) const override { return true; }
    std::string getStr(ModelIndex const&) const override { return m_text; }
    bool setStr(ModelIndex const& index, std::string const& text) override
    {
        m_text = text;
        notifyOfItemChanged(index);
        return true;
    }

private:
    std::string m_text = "old";
};

TEST(ExportedTables, AreListenedTo)
{
    class Listener : public TableModelListenerInterface
    {
    public:
        void dataChanged(TableModelInterface&) override { told += "data "; }
        void itemChanged(ModelIndex const& index, TableModelInterface& table) override
        {
            told += table.getStr(index) + " ";
        }
        void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
        void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}
        std::string told;
    } listener;
    Cells cells;
    TableModelInterface& table = cells;
    table.addListener(&listener);
    table.setStr({1, 0}, "new");
    table.removeListener(&listener);
    table.setStr({1, 0}, "newer");
    EXPECT_EQ(listener.told, "new ");
}

TEST(ExportedTables, AreSeenThroughAWindow)
{
    IndexWindow window(1000);
    window.setTotal(3000000000ULL);
    window.dropFront(window.size());
    window.restartAt(2999999000ULL);
    window.growBack(1000);
    EXPECT_EQ(window.thing(999), 2999999999ULL);
    EXPECT_EQ(window.inWindow(5), -1);
    EXPECT_FALSE(window.showsAll());
}

TEST(ExportedTables, StandBehindProxiesAndQtsViews)
{
    TableModelProxy proxy(boost::make_shared<Cells>());
    QTableModelAdapter adapter(proxy);
    int changes = 0;
    QObject::connect(&adapter, &QAbstractItemModel::dataChanged, [&changes] { ++changes; });
    EXPECT_TRUE(adapter.setData(adapter.index(1, 0), QStringLiteral("new")));
    EXPECT_EQ(adapter.data(adapter.index(0, 0)).toString(), QStringLiteral("new"));
    EXPECT_EQ(changes, 1);
    proxy.setModel(boost::make_shared<Cells>());
    EXPECT_EQ(proxy.getStr({0, 0}), "old");
    EXPECT_EQ(adapter.totalRows(), 2U);
    EXPECT_EQ(adapter.windowRow(1), 1);
    EXPECT_EQ(adapter.tableRow(1), 1U);
    EXPECT_TRUE(adapter.showsAllRows());
}

} // namespace
} // namespace veldraw::tests
