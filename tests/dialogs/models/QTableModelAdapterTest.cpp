#include "dialogs/models/QTableModelAdapter.h"

#include "dialogs/models/TableModelProxy.h"
#include "tests/dialogs/models/FakeTable.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <QTableView>

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <random>

namespace veldraw::tests {
namespace {

using namespace tables;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr unsigned long long threeBillion = 3000000000ull;

std::string text(QAbstractItemModel const& model, int row, int column)
{
    return model.index(row, column).data().toString().toStdString();
}

std::string rowName(QAbstractItemModel const& model, int row)
{
    return model.headerData(row, Qt::Vertical).toString().toStdString();
}

/// A table, its Qt model, and a tester that ends the program at the first thing that a Qt model must not do.
class QTableModelAdapterTest : public testing::Test
{
protected:
    FakeTable table{6, 3};
    QTableModelAdapter model{table};
    QAbstractItemModelTester const tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(QTableModelAdapterTest, ShowsTheTextForDisplayAndEditAlikeAndAlwaysAsText)
{
    QModelIndex const cell = model.index(4, 2);
    EXPECT_EQ(cell.data(Qt::DisplayRole), QVariant(QStringLiteral("4,2")));
    EXPECT_EQ(cell.data(Qt::EditRole), QVariant(QStringLiteral("4,2")));
    table.setStr({4, 2}, "1.5");
    EXPECT_EQ(cell.data(Qt::EditRole).type(), QVariant::String);
    for (int const role : {Qt::DecorationRole, Qt::ToolTipRole, Qt::TextAlignmentRole, Qt::UserRole})
        EXPECT_FALSE(cell.data(role).isValid()) << role;
}

TEST_F(QTableModelAdapterTest, NamesRowsAndColumns)
{
    EXPECT_EQ(rowName(model, 5), "6");
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), QStringLiteral("c3"));
    EXPECT_FALSE(model.headerData(6, Qt::Vertical).isValid());
    EXPECT_FALSE(model.headerData(-1, Qt::Horizontal).isValid());
    EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::DecorationRole).isValid());
}

TEST_F(QTableModelAdapterTest, AsksTheTableForEachCellWhetherItCanBeEdited)
{
    table.lockedRow = 2;
    EXPECT_TRUE(model.flags(model.index(1, 1)) & Qt::ItemIsEditable);
    EXPECT_FALSE(model.flags(model.index(2, 1)) & Qt::ItemIsEditable);
    EXPECT_TRUE(model.flags(model.index(2, 1)) & Qt::ItemIsEnabled);
    EXPECT_TRUE(model.flags(model.index(2, 1)) & Qt::ItemIsSelectable);
    EXPECT_EQ(model.flags(QModelIndex()), Qt::NoItemFlags);
}

TEST_F(QTableModelAdapterTest, WritesEditsAndTellsTheOneCell)
{
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.setData(model.index(3, 1), QStringLiteral("2.5")));
    EXPECT_EQ(table.getStr({3, 1}), "2.5");
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), model.index(3, 1));
    EXPECT_EQ(changes[0][1].toModelIndex(), model.index(3, 1));
    EXPECT_FALSE(model.setData(model.index(3, 1), QStringLiteral("3"), Qt::DisplayRole));
    EXPECT_FALSE(model.setData(QModelIndex(), QStringLiteral("3")));
    table.editable = false;
    EXPECT_FALSE(model.setData(model.index(3, 1), QStringLiteral("3")));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(QTableModelAdapterTest, KeepsItsPlaceWhenAllTextsChangeButNotTheSize)
{
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    int headers = 0;
    QObject::connect(&model, &QAbstractItemModel::headerDataChanged, [&headers] { ++headers; });
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    QPersistentModelIndex const kept = model.index(5, 2);
    table.alterAll("new ");
    EXPECT_EQ(resets.count(), 0);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), model.index(0, 0));
    EXPECT_EQ(changes[0][1].toModelIndex(), model.index(5, 2));
    EXPECT_EQ(headers, 2);
    EXPECT_EQ(kept.data().toString(), QStringLiteral("new 5,2"));
}

TEST_F(QTableModelAdapterTest, ResetsWhenTheSizeChanges)
{
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    table.resize(2, 3);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(model.rowCount(), 2);
    table.resize(2, 1);
    EXPECT_EQ(resets.count(), 2);
    EXPECT_EQ(model.columnCount(), 1);
    table.insertRows(0, 1);
    EXPECT_EQ(resets.count(), 3);
    EXPECT_EQ(model.rowCount(), 4);
    table.removeRows(0, 2);
    EXPECT_EQ(resets.count(), 4);
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(QTableModelAdapterTest, StandsATableThatBecomesEmptyAndComesBack)
{
    table.resize(0, 0);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
    table.alterAll("nothing ");
    table.notifyOfItemChanged({0, 0});
    EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
    table.resize(3, 2);
    EXPECT_EQ(text(model, 2, 1), "nothing 2,1");
}

TEST_F(QTableModelAdapterTest, TellsTheNamesOfATableWithoutCells)
{
    std::vector<std::string> told;
    QObject::connect(&model, &QAbstractItemModel::headerDataChanged, [&told](Qt::Orientation direction, int, int last) {
        told.push_back((direction == Qt::Horizontal ? "columns to " : "rows to ") + std::to_string(last));
    });
    QSignalSpy const changes(&model, &QAbstractItemModel::dataChanged);
    table.resize(0, 3);
    table.notifyOfDataChanged();
    table.resize(2, 0);
    table.notifyOfDataChanged();
    EXPECT_THAT(told, ElementsAre("columns to 2", "rows to 1"));
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(QTableModelAdapterTest, TellsNothingOfASizeThatAListenerHasAltered)
{
    int lastNamed = 0;
    QObject::connect(&model, &QAbstractItemModel::headerDataChanged,
                     [&lastNamed](Qt::Orientation, int, int last) { lastNamed = std::max(lastNamed, last); });
    QObject::connect(&model, &QAbstractItemModel::dataChanged, [this] { table.resize(1, 1); });
    table.alterAll("new ");
    EXPECT_EQ(lastNamed, 0);
}

TEST_F(QTableModelAdapterTest, ShowsASmallTableWholeAndMovesNothing)
{
    QSignalSpy const moves(&model, &QTableModelAdapter::windowChanged);
    EXPECT_TRUE(model.showsAllRows());
    EXPECT_EQ(model.lastFirstRow(), 0u);
    model.setFirstRow(3);
    model.setFirstColumn(1);
    EXPECT_EQ(model.firstRow(), 0u);
    EXPECT_EQ(model.showRow(5), 5);
    EXPECT_EQ(model.showRow(6), -1);
    EXPECT_EQ(model.showColumn(3), -1);
    EXPECT_EQ(moves.count(), 0);
}

TEST_F(QTableModelAdapterTest, LeavesTheTableAloneOnceItIsGone)
{
    {
        QTableModelAdapter const shortLived(table);
    }
    table.alterAll("later ");
    EXPECT_EQ(text(model, 0, 0), "later 0,0");
}

// ---- the window -------------------------------------------------------------------------------------------------------

TEST(QTableModelAdapterWindow, GivesAViewAMillionOfThreeBillionRows)
{
    FakeTable const huge(threeBillion, 2);
    QTableModelAdapter model(const_cast<FakeTable&>(huge));
    EXPECT_EQ(model.rowCount(), 1000000);
    EXPECT_EQ(model.totalRows(), threeBillion);
    EXPECT_EQ(model.lastFirstRow(), threeBillion - 1000000);
    EXPECT_FALSE(model.showsAllRows());
    EXPECT_TRUE(model.showsAllColumns());
    int const last = model.showRow(threeBillion - 1);
    EXPECT_EQ(last, 999999);
    EXPECT_EQ(model.firstRow(), threeBillion - 1000000);
    EXPECT_EQ(text(model, last, 1), "2999999999,1");
    EXPECT_EQ(rowName(model, last), "3000000000");
    EXPECT_EQ(rowName(model, 0), "2999000001");
    EXPECT_EQ(huge.reads, 1) << "moving the window reads no cell";
}

TEST(QTableModelAdapterWindow, IsAWellBehavedModelAtItsFullSize)
{
    FakeTable table(threeBillion, 1);
    QTableModelAdapter model(table);
    QAbstractItemModelTester const tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setFirstRow(threeBillion);
    EXPECT_EQ(text(model, 999999, 0), "2999999999,0");
}

TEST(QTableModelAdapterWindow, IsNotNeededForExactlyAMillionRows)
{
    FakeTable table(1000000, 1);
    QTableModelAdapter const model(table);
    EXPECT_TRUE(model.showsAllRows());
    FakeTable larger(1000001, 1);
    QTableModelAdapter const largerModel(larger);
    EXPECT_FALSE(largerModel.showsAllRows());
    EXPECT_EQ(largerModel.rowCount(), 1000000);
}

/// Ten rows and columns of a table that has more of both, under the tester.
class SmallWindow : public testing::Test
{
protected:
    FakeTable table{threeBillion, 40};
    QTableModelAdapter model{table, 10};
    QAbstractItemModelTester const tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SmallWindow, NamesRowsAndCellsOfTheTableWhereverItStands)
{
    for (unsigned long long const first :
         {0ull, 3ull, 12ull, 1499999999ull, 2ull, threeBillion - 10, threeBillion - 13}) {
        model.setFirstRow(first);
        ASSERT_EQ(model.firstRow(), first);
        ASSERT_EQ(model.rowCount(), 10);
        for (int row = 0; row < 10; ++row) {
            unsigned long long const tableRow = first + static_cast<unsigned long long>(row);
            ASSERT_EQ(text(model, row, 1), std::to_string(tableRow) + ",1");
            ASSERT_EQ(rowName(model, row), std::to_string(tableRow + 1));
            ASSERT_EQ(model.windowRow(tableRow), row);
            ASSERT_EQ(model.tableRow(row), tableRow);
        }
    }
}

TEST_F(SmallWindow, MovesOverColumnsToo)
{
    model.setFirstColumn(25);
    EXPECT_EQ(text(model, 0, 9), "0,34");
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("c26"));
    EXPECT_EQ(model.showColumn(39), 9);
    EXPECT_EQ(model.firstColumn(), 30u);
    model.setFirstColumn(0);
    EXPECT_EQ(text(model, 2, 9), "2,9");
    EXPECT_EQ(model.windowColumn(10), -1);
}

TEST_F(SmallWindow, StopsAtTheLastRow)
{
    model.setFirstRow(~0ull);
    EXPECT_EQ(model.firstRow(), threeBillion - 10);
    EXPECT_EQ(model.windowRow(threeBillion), -1);
    EXPECT_EQ(model.showRow(threeBillion), -1);
}

TEST_F(SmallWindow, PutsARowThatItMustMoveForInItsMiddle)
{
    EXPECT_EQ(model.showRow(7), 7);
    EXPECT_EQ(model.firstRow(), 0u);
    EXPECT_EQ(model.showRow(100), 5);
    EXPECT_EQ(model.firstRow(), 95u);
    EXPECT_EQ(model.showRow(3), 3);
    EXPECT_EQ(model.firstRow(), 0u);
    EXPECT_EQ(model.showRow(threeBillion - 2), 8);
}

TEST_F(SmallWindow, TellsAMoveOnceAndNoMoveNotAtAll)
{
    QSignalSpy const moves(&model, &QTableModelAdapter::windowChanged);
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    model.setFirstRow(4);
    model.setFirstRow(4);
    model.setFirstRow(400);
    EXPECT_EQ(moves.count(), 2);
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(SmallWindow, KeepsCellsThatStayInViewAndForgetsTheOthers)
{
    QPersistentModelIndex const third = model.index(3, 1);
    QPersistentModelIndex const ninth = model.index(9, 1);
    model.setFirstRow(4);
    EXPECT_FALSE(third.isValid());
    EXPECT_EQ(ninth.row(), 5);
    EXPECT_EQ(ninth.data().toString(), QStringLiteral("9,1"));
    model.setFirstRow(1);
    EXPECT_EQ(ninth.row(), 8);
    model.setFirstRow(20);
    EXPECT_FALSE(ninth.isValid());
}

TEST_F(SmallWindow, KeepsCurrentCellAndSelectionOfAViewAcrossItsBorder)
{
    QTableView view;
    view.setModel(&model);
    view.setCurrentIndex(model.index(9, 2));
    // One row on from the last one in view.
    unsigned long long const next = model.tableRow(9) + 1;
    model.setFirstRow(5);
    EXPECT_EQ(view.currentIndex(), model.index(4, 2));
    EXPECT_THAT(view.selectionModel()->selectedIndexes(), ElementsAre(model.index(4, 2)));
    view.setCurrentIndex(model.index(model.windowRow(next), 2));
    EXPECT_EQ(view.currentIndex().data().toString(), QStringLiteral("10,2"));
}

TEST_F(SmallWindow, WritesToTheRowsOfTheTableAndTellsCellsInView)
{
    model.setFirstRow(threeBillion - 10);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.setData(model.index(9, 0), QStringLiteral("1.25")));
    EXPECT_EQ(table.getStr({threeBillion - 1, 0}), "1.25");
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), model.index(9, 0));
    table.setStr({0, 0}, "out of view");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(SmallWindow, StaysWhereItIsWhenTextsChangeAndStartsAnewWithTheSize)
{
    model.setFirstRow(1000);
    table.alterAll("new ");
    EXPECT_EQ(model.firstRow(), 1000u);
    EXPECT_EQ(text(model, 0, 0), "new 1000,0");
    QSignalSpy const moves(&model, &QTableModelAdapter::windowChanged);
    table.resize(threeBillion - 1, 40);
    EXPECT_EQ(moves.count(), 1);
    EXPECT_EQ(model.firstRow(), 0u);
    model.setFirstRow(1000);
    table.resize(4, 2);
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_TRUE(model.showsAllRows());
}

// ---- storms -----------------------------------------------------------------------------------------------------------

/// Random swaps under a proxy, resizes, edits and moves of the window; Qt must see the table after each.
class AdapterStorm : public testing::TestWithParam<unsigned>
{
protected:
    unsigned long long below(unsigned long long end)
    {
        return std::uniform_int_distribution<unsigned long long>(0, end - 1)(m_random);
    }
    boost::shared_ptr<FakeTable> freshTable()
    {
        unsigned long long const rows = below(3) == 0 ? threeBillion + below(5) : below(20);
        return boost::make_shared<FakeTable>(rows, below(15), "table " + std::to_string(++m_tables) + " ");
    }
    void step()
    {
        switch (below(6)) {
        case 0:
            m_inner = freshTable();
            m_proxy.setModel(m_inner);
            break;
        case 1:
            m_inner->alterAll("altered " + std::to_string(++m_tables) + " ");
            break;
        case 2:
            m_inner->resize(below(25), below(15));
            break;
        case 3:
            if (model.rowCount() > 0 && model.columnCount() > 0)
                model.setData(model.index(model.rowCount() - 1, 0), QStringLiteral("edited"));
            break;
        case 4:
            model.setFirstColumn(below(15));
            break;
        default:
            model.setFirstRow(below(3) == 0 ? below(threeBillion) : model.firstRow() + below(15));
            break;
        }
    }
    void expectEqual()
    {
        ASSERT_EQ(model.totalRows(), m_inner->rowCount());
        ASSERT_EQ(model.totalColumns(), m_inner->columnCount());
        for (int row = 0; row < model.rowCount(); ++row) {
            ASSERT_EQ(rowName(model, row), m_inner->rowName(model.tableRow(row)));
            for (int column = 0; column < model.columnCount(); ++column)
                ASSERT_EQ(text(model, row, column), m_inner->getStr({model.tableRow(row), model.tableColumn(column)}));
        }
    }

    std::mt19937 m_random{GetParam()};
    int m_tables = 0;
    boost::shared_ptr<FakeTable> m_inner = boost::make_shared<FakeTable>(5, 5);
    TableModelProxy m_proxy{m_inner};
    QTableModelAdapter model{m_proxy, 8};
    QAbstractItemModelTester const tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_P(AdapterStorm, ShowsTheTableAfterEachStep)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    for (int count = 0; count < 150 && !HasFatalFailure(); ++count) {
        step();
        expectEqual();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AdapterStorm, testing::Range(1u, 11u));

} // namespace
} // namespace veldraw::tests
