#include "host/MessageLog.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/app/support/PictureDifference.h"
#include "tools/samples/FlowSample.h"
#include "tools/samples/MeshSamples.h"
#include "tools/samples/SparseSamples.h"
#include "tools/samples/TableSamples.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

/// A cell of the spreadsheet that the user corrects beside the window.
class EditedCellTest : public DrawnWindowTest
{
protected:
    EditedCellTest() { showWindow(); }

    static QString cell(QTableView const& table, int row, int column)
    {
        return table.model()->index(row, column).data().toString();
    }

    static void typeInto(QTableView& table, int row, int column, QString const& text)
    {
        table.setFocus();
        table.setCurrentIndex(table.model()->index(row, column));
        QTest::keyClick(&table, Qt::Key_F2);
        auto* const editor = table.viewport()->findChild<QLineEdit*>();
        ASSERT_NE(nullptr, editor);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
    }

    // The variable of a table that shows one of them.
    static void choose(QTableView const& table, int variable)
    {
        auto* const box = table.window()->findChild<QComboBox*>(QStringLiteral("dataSpreadsheet_Variable_ComboBox"));
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int number = 1; number < variable; ++number)
            QTest::keyClick(box, Qt::Key_Down);
        settle();
        ASSERT_TRUE(box->currentText().startsWith(QStringLiteral("%1: ").arg(variable)));
    }
};

} // namespace

TEST_F(EditedCellTest, IsSeenInThePlotItsLegendAndTheDockAndTakenBackAndRedone)
{
    openSample("flow.vtm", samples::writeFlow);
    int const temperature = dataSet().findVariable("temperature");
    ASSERT_GT(temperature, 0);
    ASSERT_TRUE(session.perform(kernel::AssignVariable(session.activeFrame()->id, 'C', temperature)));
    session.history().clear();
    settle();
    QTableView& table = openSpreadsheet();
    choose(table, temperature);
    Limits const before = legendLimits();
    QString const rangeBefore = shownRange(temperature);
    QString const cellBefore = cell(table, 1, 1);
    QImage const pictureBefore = page().grabImage();

    typeInto(table, 1, 1, QStringLiteral("2500"));
    EXPECT_EQ(QStringLiteral("2500"), cell(table, 1, 1));
    EXPECT_EQ(before.min, legendLimits().min);
    EXPECT_EQ(2500, legendLimits().max);
    expectRange(temperature, QString::fromUtf8("%1 … 2500").arg(before.min, 0, 'g', 5));
    QImage const pictureAfter = page().grabImage();
    EXPECT_LT(500, differingPixels(pictureBefore, pictureAfter));
    EXPECT_EQ("&Undo Edit Value", action("undoAction").text().toStdString());

    use("undoAction");
    EXPECT_EQ(cellBefore, cell(table, 1, 1));
    EXPECT_EQ(before.max, legendLimits().max);
    expectRange(temperature, rangeBefore);
    EXPECT_EQ(0, differingPixels(pictureBefore, page().grabImage()));
    EXPECT_FALSE(action("undoAction").isEnabled());

    use("redoAction");
    EXPECT_EQ(QStringLiteral("2500"), cell(table, 1, 1));
    EXPECT_EQ(2500, legendLimits().max);
    EXPECT_EQ(0, differingPixels(pictureAfter, page().grabImage()));
    EXPECT_TRUE(messages.empty());
}

TEST_F(EditedCellTest, OfACoordinateMovesThePointInThePlot)
{
    openSample("tetra.vtu", samples::writeTetrahedra);
    QTableView& table = openSpreadsheet();
    QImage const pictureBefore = page().grabImage();
    double const minBefore = view().space().min(0);
    typeInto(table, 0, 0, QStringLiteral("-40"));
    EXPECT_EQ(-40, view().space().min(0));
    EXPECT_LT(500, differingPixels(pictureBefore, page().grabImage()));
    expectRange(1, QString::fromUtf8("-40 … %1").arg(view().space().max(0), 0, 'g', 5));
    use("undoAction");
    EXPECT_EQ(minBefore, view().space().min(0));
    EXPECT_EQ(0, differingPixels(pictureBefore, page().grabImage()));
}

TEST_F(EditedCellTest, IsTakenBackByTheKeysInTheSpreadsheetItself)
{
    openSample("tetra.vtu", samples::writeTetrahedra);
    QTableView& table = openSpreadsheet();
    QString const before = cell(table, 0, 0);
    typeInto(table, 0, 0, QStringLiteral("7"));
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(before, cell(table, 0, 0));
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    EXPECT_EQ(QStringLiteral("7"), cell(table, 0, 0));

    // While a text is typed the keys are for the text.
    QTest::keyClick(&table, Qt::Key_F2);
    auto* const editor = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(nullptr, editor);
    QTest::keyClicks(editor, QStringLiteral("8"));
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(QStringLiteral("7"), cell(table, 0, 0));
    EXPECT_NE(QStringLiteral("8"), editor->text());
    QTest::keyClick(editor, Qt::Key_Escape);
}

TEST_F(EditedCellTest, OfWhatThePlotDoesNotShowLeavesThePlotAlone)
{
    openSample("tetra.vtu", samples::writeTetrahedra);
    int const stress = dataSet().findVariable("stress");
    ASSERT_TRUE(session.perform(kernel::AssignVariable(session.activeFrame()->id, 'C', 1)));
    settle();
    QTableView& table = openSpreadsheet();
    page().grabImage();
    auto const* const drawnBefore = view().zones().front().get();
    typeInto(table, 0, dataSet().field(1, stress)->location() == ValueLocation_Nodal ? stress - 1 : 3,
             QStringLiteral("9"));
    EXPECT_EQ("&Undo Edit Value", action("undoAction").text().toStdString());
    EXPECT_EQ(drawnBefore, view().zones().front().get());
}

TEST_F(EditedCellTest, StaysWithItsDataSetWhenOthersAreOpenedBehindTheSpreadsheet)
{
    openSample("tetra.vtu", samples::writeTetrahedra);
    QTableView& table = openSpreadsheet();
    int const points = static_cast<int>(dataSet().zone(1)->pointCount());
    EXPECT_EQ(points, table.model()->rowCount());

    // A text that is still being typed is not taken for a value of the next data set.
    table.setFocus();
    table.setCurrentIndex(table.model()->index(0, 0));
    QTest::keyClick(&table, Qt::Key_F2);
    auto* const editor = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(nullptr, editor);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, QStringLiteral("55"));
    openSample("flow.vtm", samples::writeFlow);
    kernel::Zone const& inlet = *dataSet().zone(1);
    EXPECT_EQ(inlet.i, table.model()->rowCount());
    EXPECT_EQ(inlet.j, table.model()->columnCount());
    choose(table, 1);
    EXPECT_EQ(-4.0, cell(table, 0, 0).toDouble());
    EXPECT_FALSE(action("undoAction").isEnabled());

    openSample("series.csv", [](std::string const& path) { samples::writeTimeSeries(path); });
    EXPECT_EQ(dataSet().zone(1)->pointCount(), table.model()->rowCount());
    openSample("long.mhd", [](std::string const& path) { samples::writeSparseImage(path); });
    EXPECT_GT(table.model()->rowCount(), 100000);
    openSample("again.vtu", samples::writeTetrahedra);
    EXPECT_EQ(points, table.model()->rowCount());
    typeInto(table, 0, 0, QStringLiteral("3"));
    EXPECT_EQ(3.0, dataSet().field(1, 1)->group()->buffer()->value(0));
    EXPECT_THAT(messages,
                testing::ElementsAre(
                    "The value 55 was not set: its zone or variable is not there any more.")); // when flow.vtm came
}

TEST_F(EditedCellTest, WithATextThatIsNoNumberStaysAsItWas)
{
    openSample("tetra.vtu", samples::writeTetrahedra);
    QTableView& table = openSpreadsheet();
    QString const before = cell(table, 0, 0);
    for (char const* text : {"abc", "1,5", "1.000.000", "1e999", "--1", "1 2", "nan"}) {
        typeInto(table, 0, 0, QString::fromLatin1(text));
        QTest::keyClick(&table, Qt::Key_Escape); // what is refused may leave the editor open
        settle();
        EXPECT_EQ(before, cell(table, 0, 0)) << text;
    }
    EXPECT_FALSE(action("undoAction").isEnabled());
    EXPECT_TRUE(messages.empty());
}

} // namespace veldraw::tests
