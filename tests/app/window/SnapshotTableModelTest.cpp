#include "app/window/FrameTableModel.h"
#include "app/window/VariableTableModel.h"
#include "app/window/ZoneTableModel.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <random>

namespace veldraw::tests {

namespace {

using Tester = QAbstractItemModelTester;

// The whole table as one text: cells by '|', rows by '/', unticked rows in brackets.
std::string shrink(QAbstractItemModel const& model)
{
    std::string text;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells.push_back(model.index(row, column).data().toString());
        std::string const line = cells.join(QLatin1Char('|')).toStdString();
        QVariant const check = model.index(row, 0).data(Qt::CheckStateRole);
        bool const isOff = check.isValid() && check.toInt() == Qt::Unchecked;
        text += (row ? "/" : "") + (isOff ? "[" + line + "]" : line);
    }
    return text;
}

class TableModelTest : public WindowTest
{
};

} // namespace

TEST_F(TableModelTest, ListsZonesWithTypeAndSize)
{
    openFlow();
    app::ZoneTableModel model(session);
    Tester const tester(&model, Tester::FailureReportingMode::Fatal);
    EXPECT_EQ("1|inlet|ordered|4 × 3 × 1/2|outlet|ordered|2 × 2 × 1", shrink(model));
}

TEST_F(TableModelTest, IsEmptyWithoutData)
{
    app::ZoneTableModel zones(session);
    app::VariableTableModel variables(session);
    app::FrameTableModel frames(session);
    EXPECT_EQ(0, zones.rowCount());
    EXPECT_EQ(0, variables.rowCount());
    EXPECT_EQ(0, frames.rowCount());
}

TEST_F(TableModelTest, ComputesARangeOnlyAfterAViewHasAskedForIt)
{
    openFlow();
    app::VariableTableModel model(session);
    Tester const tester(&model, Tester::FailureReportingMode::Fatal);
    QModelIndex const cell = model.index(2, app::VariableTableModel::rangeColumn);
    EXPECT_EQ(QString::fromUtf8("…"), cell.data().toString());
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    ASSERT_TRUE(changes.wait(2000));
    // 10 to 15: only the six cells of the first zone count, not its unused slots.
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell.data().toString() != QString::fromUtf8("…"); }));
    EXPECT_NE(std::string::npos, cell.data().toString().toStdString().find("10 … "));
}

TEST_F(TableModelTest, KeepsTheRangeOnTheScreenUntilTheNewOneIsThere)
{
    openFlow();
    app::VariableTableModel model(session);
    QModelIndex const cell = model.index(0, app::VariableTableModel::rangeColumn);
    cell.data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell.data().toString() == QString::fromUtf8("0 … 3"); }));
    model.refresh();
    EXPECT_EQ(QString::fromUtf8("0 … 3"), cell.data().toString());
}

TEST_F(TableModelTest, SetsTheActiveFrameInBold)
{
    openFrames({{"flow", makeFlow()}, {"series", makeSeries()}});
    app::FrameTableModel model(session);
    Tester const tester(&model, Tester::FailureReportingMode::Fatal);
    EXPECT_EQ("1|flow|2D Cartesian/2|series|XY Line", shrink(model));
    EXPECT_TRUE(model.index(0, 1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(model.index(1, 1).data(Qt::FontRole).isValid());
    EXPECT_TRUE(model.activate(1));
    model.refresh();
    EXPECT_TRUE(model.index(1, 1).data(Qt::FontRole).value<QFont>().bold());
}

TEST_F(TableModelTest, RenamesThroughTheSessionAsOneStep)
{
    openFlow();
    app::VariableTableModel model(session);
    EXPECT_TRUE(model.setData(model.index(2, 1), QStringLiteral("  Pressure ")));
    EXPECT_EQ("Pressure", session.activeDataSet()->variable(3)->name);
    EXPECT_EQ(QStringLiteral("Pressure"), model.index(2, 1).data().toString());
    EXPECT_EQ("Rename Variable", session.history().undoName());
}

TEST_F(TableModelTest, MakesNoStepOfANameThatIsTheSame)
{
    openFlow();
    app::ZoneTableModel model(session);
    EXPECT_TRUE(model.setData(model.index(0, 1), QStringLiteral("inlet")));
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(TableModelTest, RefusesAnEmptyName)
{
    openFlow();
    app::ZoneTableModel model(session);
    QSignalSpy refusals(&model, &app::SnapshotTableModel::editRefused);
    EXPECT_FALSE(model.setData(model.index(0, 1), QStringLiteral("   ")));
    EXPECT_EQ(1, refusals.count());
    EXPECT_EQ("inlet", session.activeDataSet()->zone(1)->name);
}

TEST_F(TableModelTest, RefusesEditsWhileTheApplicationIsLocked)
{
    openFlow();
    app::ZoneTableModel model(session);
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    EXPECT_FALSE(model.setData(model.index(0, 1), QStringLiteral("other")));
    EXPECT_FALSE(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(TableModelTest, TellsOnlyTheRowsThatWent)
{
    openFlow();
    app::VariableTableModel model(session);
    Tester const tester(&model, Tester::FailureReportingMode::Fatal);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    ASSERT_TRUE(session.perform(kernel::DeleteVariables(*session.activeDataSet(), {2})));
    model.refresh();
    ASSERT_EQ(1, removed.count());
    EXPECT_EQ(1, removed.at(0).at(1).toInt());
    EXPECT_EQ(1, removed.at(0).at(2).toInt());
    EXPECT_EQ(0, resets.count());
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    ASSERT_TRUE(session.undo());
    model.refresh();
    EXPECT_EQ(1, inserted.count());
    EXPECT_EQ(QStringLiteral("Y"), model.index(1, 1).data().toString());
}

TEST_F(TableModelTest, EqualsAFreshReadingAfterAStormOfChanges)
{
    openFrames({{"flow", makeFlow()}, {"series", makeSeries()}});
    app::ZoneTableModel zones(session);
    app::VariableTableModel variables(session);
    app::FrameTableModel frames(session);
    Tester const zoneTester(&zones, Tester::FailureReportingMode::Fatal);
    Tester const variableTester(&variables, Tester::FailureReportingMode::Fatal);
    Tester const frameTester(&frames, Tester::FailureReportingMode::Fatal);
    unsigned const seed = 20261;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    auto const pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int step = 0; step < 400; ++step) {
        auto const dataSet = session.activeDataSet();
        switch (pick(7)) {
        case 0:
            session.activateFrame(session.activePage()->frames[static_cast<std::size_t>(pick(2))]->id);
            break;
        case 1:
            session.perform(kernel::DeleteVariables(*dataSet, {1 + pick(3)}));
            break;
        case 2:
            session.undo();
            break;
        case 3:
            session.redo();
            break;
        case 4:
            session.perform(kernel::RenameVariable(*dataSet, 1, "n" + std::to_string(step)));
            break;
        case 5:
            session.perform(kernel::EnableZone(*dataSet, 1 + pick(2), pick(2) == 0));
            break;
        default:
            session.perform(kernel::EnableVariable(*dataSet, 1 + pick(3), pick(2) == 0));
        }
        zones.refresh();
        variables.refresh();
        frames.refresh();
        ASSERT_EQ(shrink(app::ZoneTableModel(session)), shrink(zones)) << step;
        ASSERT_EQ(shrink(app::FrameTableModel(session)), shrink(frames)) << step;
        ASSERT_EQ(session.activeDataSet()->variableCount(), variables.rowCount()) << step;
        for (int row = 0; row < variables.rowCount(); ++row)
            ASSERT_EQ(session.activeDataSet()->variable(row + 1)->id, variables.idAt(row)) << step;
    }
}

} // namespace veldraw::tests
