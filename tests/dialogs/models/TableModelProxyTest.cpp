#include "dialogs/models/TableModelProxy.h"

#include "tests/dialogs/models/FakeTable.h"

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using namespace tables;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TableModelAbstract, CannotBeEditedUnlessATableSaysSo)
{
    class Plain : public TableModelAbstract
    {
    public:
        unsigned long long columnCount() const override { return 1; }
        unsigned long long rowCount() const override { return 1; }
        std::string columnName(unsigned long long) const override { return {}; }
        std::string rowName(unsigned long long) const override { return {}; }
        std::string getStr(ModelIndex const&) const override { return {}; }
    };
    Plain plain;
    EXPECT_FALSE(plain.isEditable({0, 0}));
    EXPECT_FALSE(plain.setStr({0, 0}, "1"));
}

TEST(TableModelAbstract, TellsEachListenerOnceInTheOrderOfTheirComing)
{
    FakeTable table(2, 2);
    TableLog first(table);
    TableLog second(table);
    table.addListener(&first);
    table.notifyOfDataChanged();
    table.notifyOfItemChanged({1, 0});
    EXPECT_THAT(first.take(), ElementsAre("data", "item 1,0"));
    EXPECT_THAT(second.take(), ElementsAre("data", "item 1,0"));
}

TEST(TableModelAbstract, DoesNotTellWhoLeftWhileOthersWereTold)
{
    class Remover : public TableModelListenerInterface
    {
    public:
        Remover(FakeTable& table, TableLog& other)
            : m_table(table)
            , m_other(other)
        {
        }
        void dataChanged(TableModelInterface&) override { m_table.removeListener(&m_other); }
        void itemChanged(ModelIndex const&, TableModelInterface&) override {}
        void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
        void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}

    private:
        FakeTable& m_table;
        TableLog& m_other;
    };
    FakeTable table(1, 1);
    TableLog log(table);
    table.removeListener(&log);
    Remover remover(table, log);
    table.addListener(&remover);
    table.addListener(&log);
    table.notifyOfDataChanged();
    EXPECT_THAT(log.take(), IsEmpty());
    table.removeListener(&remover);
}

TEST(TableModelProxy, ForwardsWhatItIsAsked)
{
    auto const inner = boost::make_shared<FakeTable>(3000000000ull, 4);
    inner->lockedRow = 1;
    TableModelProxy proxy(inner);
    EXPECT_EQ(proxy.rowCount(), 3000000000ull);
    EXPECT_EQ(proxy.columnCount(), 4u);
    EXPECT_EQ(proxy.rowName(2999999999ull), "3000000000");
    EXPECT_EQ(proxy.columnName(3), "c4");
    EXPECT_TRUE(proxy.isEditable({0, 0}));
    EXPECT_FALSE(proxy.isEditable({1, 0}));
    EXPECT_EQ(proxy.getStr({7, 2}), "7,2");
    EXPECT_TRUE(proxy.setStr({7, 2}, "new"));
    EXPECT_EQ(inner->getStr({7, 2}), "new");
    inner->editable = false;
    EXPECT_FALSE(proxy.setStr({7, 2}, "newer"));
}

TEST(TableModelProxy, PassesOnWhatTheInnerTableTellsInItsOwnName)
{
    auto const inner = boost::make_shared<FakeTable>(5, 5);
    TableModelProxy proxy(inner);
    TableLog log(proxy);
    inner->notifyOfDataChanged();
    inner->notifyOfItemChanged({1, 2});
    inner->insertRows(2, 4);
    inner->removeRows(0, 1);
    EXPECT_THAT(log.take(), ElementsAre("data", "item 1,2", "inserted 2-4", "removed 0-1"));
}

TEST(TableModelProxy, TellsAReplacementOnceAndForgetsTheOldTable)
{
    auto first = boost::make_shared<FakeTable>(5, 5);
    auto const second = boost::make_shared<FakeTable>(2, 1);
    TableModelProxy proxy(first);
    TableLog log(proxy);
    proxy.setModel(second);
    EXPECT_THAT(log.take(), ElementsAre("data"));
    EXPECT_EQ(proxy.rowCount(), 2u);
    first->notifyOfDataChanged();
    EXPECT_THAT(log.take(), IsEmpty());
    boost::weak_ptr<FakeTable> const watched = first;
    first.reset();
    EXPECT_TRUE(watched.expired()) << "the proxy keeps what it no longer shows";
    second->notifyOfItemChanged({0, 0});
    EXPECT_THAT(log.take(), ElementsAre("item 0,0"));
}

TEST(TableModelProxy, LetsTheOldTableGoBeforeItTellsOfTheNewOne)
{
    class Witness : public TableModelListenerInterface
    {
    public:
        explicit Witness(boost::weak_ptr<FakeTable> old)
            : m_old(std::move(old))
        {
        }
        void dataChanged(TableModelInterface&) override { isOldTableGone = m_old.expired(); }
        void itemChanged(ModelIndex const&, TableModelInterface&) override {}
        void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
        void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}

        bool isOldTableGone = false;

    private:
        boost::weak_ptr<FakeTable> m_old;
    };
    auto old = boost::make_shared<FakeTable>(5, 5);
    Witness witness(old);
    TableModelProxy proxy(old);
    old.reset();
    proxy.addListener(&witness);
    proxy.setModel(boost::make_shared<FakeTable>(1, 1));
    EXPECT_TRUE(witness.isOldTableGone);
    proxy.removeListener(&witness);
}

TEST(TableModelProxy, TellsTheSameTableSetAgainAndGoesOnHearingItOnce)
{
    auto const inner = boost::make_shared<FakeTable>(5, 5);
    TableModelProxy proxy(inner);
    TableLog log(proxy);
    proxy.setModel(inner);
    EXPECT_THAT(log.take(), ElementsAre("data"));
    inner->notifyOfDataChanged();
    EXPECT_THAT(log.take(), ElementsAre("data"));
}

TEST(TableModelProxy, LeavesTheInnerTableAloneOnceItIsGone)
{
    auto const inner = boost::make_shared<FakeTable>(5, 5);
    {
        TableModelProxy const proxy(inner);
    }
    inner->notifyOfDataChanged();
    inner->insertRows(0, 0);
    EXPECT_EQ(inner->rowCount(), 6u);
}

TEST(TableModelProxy, StandsAReplacementInTheMiddleOfAnEdit)
{
    class Swapper : public TableModelListenerInterface
    {
    public:
        explicit Swapper(TableModelProxy& proxy)
            : m_proxy(proxy)
        {
            m_proxy.addListener(this);
        }
        void dataChanged(TableModelInterface&) override {}
        void itemChanged(ModelIndex const&, TableModelInterface&) override
        {
            m_proxy.setModel(boost::make_shared<FakeTable>(1, 1, "replaced "));
        }
        void rowsInserted(unsigned long long, unsigned long long, TableModelInterface&) override {}
        void rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&) override {}

    private:
        TableModelProxy& m_proxy;
    };
    class Editing : public FakeTable
    {
    public:
        explicit Editing(std::string& log)
            : FakeTable(5, 5)
            , m_log(log)
        {
        }
        ~Editing() override { m_log += "gone "; }
        bool setStr(ModelIndex const& index, std::string const& text) override
        {
            std::string& log = m_log; // the mistake would be to be gone by then
            bool const isTaken = FakeTable::setStr(index, text);
            log += "edited ";
            return isTaken;
        }

    private:
        std::string& m_log;
    };
    std::string log;
    TableModelProxy proxy(boost::make_shared<Editing>(log));
    Swapper swapper(proxy);
    EXPECT_TRUE(proxy.setStr({4, 4}, "edited"));
    EXPECT_EQ(log, "edited gone ");
    EXPECT_EQ(proxy.getStr({0, 0}), "replaced 0,0");
    proxy.removeListener(&swapper);
}

} // namespace
} // namespace veldraw::tests
