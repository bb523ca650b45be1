#include "kernel/operations/SetValue.h"
#include "tests/dialogs/spreadsheet/KernelSheet.h"
#include "tests/dialogs/spreadsheet/ShadowView.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/support/KernelSpy.h"

#include <QCheckBox>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <sstream>
#include <utility>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Three lines of 300 points whose first variable has one storage, 100 to 399, and what the edit of one of them does.
class DataSpreadsheetEditReachTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetEditReachTest()
    {
        for (char const* const name : {"first", "second", "third"})
            stage.fillAll(stage.addZone(name, ZoneType_Ordered, 300, 1, 1));
        stage.share(2, 1, 1);
        stage.share(3, 1, 1);
        stage.show();
        stage.session().history().clear();
        launched();
    }

    void showZone(int zone)
    {
        Choices::spreadsheetZone()->setValue(zone);
        settle();
    }
    /// Until nothing is left to be painted.
    void comeToRest()
    {
        for (int round = 0; round < 3; ++round)
            settle();
    }
    void alterAllSharedZones(bool on)
    {
        auto& box = widget<QCheckBox>("AlterSharedZones_CheckBox");
        ASSERT_TRUE(box.isEnabled());
        if (box.isChecked() != on)
            QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
        comeToRest();
        ASSERT_EQ(box.isChecked(), on);
    }
    kernel::ShareGroup const* storage(int zone) const { return stage.dataSet().field(zone, 1)->group().get(); }
    std::vector<int> shareCounts() const
    {
        std::vector<int> counts;
        for (int zone = 1; zone <= 3; ++zone)
            counts.push_back(stage.dataSet().field(zone, 1)->shareCount());
        return counts;
    }
    /// "first, last value, range" of the shared variable in a zone.
    std::string summary(int zone) const
    {
        kernel::ValueRange const range = stage.dataSet().zone(zone)->range(1);
        std::ostringstream text;
        text << stage.stored(zone, 1, 0) << ", " << stage.stored(zone, 1, 299) << ", " << range.min << " to "
             << range.max;
        return text.str();
    }
    std::vector<std::string> summaries() const { return {summary(1), summary(2), summary(3)}; }
};

constexpr char untouched[] = "100, 399, 100 to 399";

TEST_F(DataSpreadsheetEditReachTest, BranchesOneOfThreeSharingZonesAndLeavesTheOthersWithTheirRange)
{
    ASSERT_THAT(summaries(), ElementsAre(untouched, untouched, untouched));
    showZone(2);
    alterAllSharedZones(false);
    kernel::ShareGroup const* const shared = storage(1);
    kernel::Buffer const* const values = stage.dataSet().field(1, 1)->group()->buffer().get();
    edit(0, 0, "-5");
    settle();
    EXPECT_THAT(summaries(), ElementsAre(untouched, "-5, 399, -5 to 399", untouched));
    EXPECT_THAT(shareCounts(), ElementsAre(2, 1, 2));
    EXPECT_EQ(storage(1), shared);
    EXPECT_EQ(storage(3), shared);
    EXPECT_EQ(stage.dataSet().field(1, 1)->group()->buffer().get(), values) << "not even copied";
    EXPECT_FALSE(widget<QCheckBox>("AlterSharedZones_CheckBox").isEnabled()) << "nothing left to share";
    stage.session().undo();
    settle();
    EXPECT_THAT(summaries(), ElementsAre(untouched, untouched, untouched));
    EXPECT_THAT(shareCounts(), ElementsAre(3, 3, 3));
    stage.session().redo();
    EXPECT_THAT(summaries(), ElementsAre(untouched, "-5, 399, -5 to 399", untouched));
}

TEST_F(DataSpreadsheetEditReachTest, BranchesTheNextZoneOffToo)
{
    alterAllSharedZones(false);
    edit(0, 0, "-5");
    settle();
    showZone(2);
    edit(0, 0, "1000");
    settle();
    EXPECT_THAT(summaries(), ElementsAre("-5, 399, -5 to 399", "1000, 399, 101 to 1000", untouched));
    EXPECT_THAT(shareCounts(), ElementsAre(1, 1, 1));
    stage.session().undo();
    stage.session().undo();
    EXPECT_THAT(summaries(), ElementsAre(untouched, untouched, untouched));
    EXPECT_THAT(shareCounts(), ElementsAre(3, 3, 3));
}

TEST_F(DataSpreadsheetEditReachTest, AltersAllSharingZonesAndTheirRangeWhenThatIsMeant)
{
    showZone(3);
    alterAllSharedZones(true);
    edit(0, 0, "-5");
    settle();
    EXPECT_THAT(summaries(), ElementsAre("-5, 399, -5 to 399", "-5, 399, -5 to 399", "-5, 399, -5 to 399"));
    EXPECT_THAT(shareCounts(), ElementsAre(3, 3, 3));
    showZone(1);
    EXPECT_EQ(shown(0, 0), "-5");
    stage.session().undo();
    settle();
    EXPECT_THAT(summaries(), ElementsAre(untouched, untouched, untouched));
    EXPECT_EQ(shown(0, 0), "100");
}

TEST_F(DataSpreadsheetEditReachTest, AltersTheTwoThatStillShareAfterTheThirdWasBranchedOff)
{
    alterAllSharedZones(false);
    edit(0, 0, "-5");
    settle();
    showZone(3);
    alterAllSharedZones(true);
    edit(0, 0, "1000");
    settle();
    EXPECT_THAT(summaries(), ElementsAre("-5, 399, -5 to 399", "1000, 399, 101 to 1000", "1000, 399, 101 to 1000"));
}

// ---- how much work an edit is -----------------------------------------------------------------------------------------

/// What an item model tells from now on.
class ModelLog : public QObject
{
public:
    explicit ModelLog(QAbstractItemModel& model)
    {
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [this](QModelIndex const& first, QModelIndex const& last) {
                    note(first == last ? std::to_string(first.row()) + ", " + std::to_string(first.column()) : "cells");
                });
        connect(&model, &QAbstractItemModel::modelReset, this, [this] { note("reset"); });
        connect(&model, &QAbstractItemModel::layoutChanged, this, [this] { note("layout"); });
        connect(&model, &QAbstractItemModel::headerDataChanged, this, [this] { note("names"); });
    }

    /// "row, column" for one cell that changed; a word for anything else.
    std::vector<std::string> take() { return std::exchange(m_told, {}); }

private:
    void note(std::string const& what) { m_told.push_back(what); }

    std::vector<std::string> m_told;
};

/// Both ways of editing shared values, and values of one zone alone.
class OneCellsWork : public DataSpreadsheetEditReachTest, public testing::WithParamInterface<std::tuple<bool, int>>
{
};

TEST_P(OneCellsWork, IsWhatAnEditIsInItsTable)
{
    auto const [alterAll, column] = GetParam();
    alterAllSharedZones(alterAll);
    table().setFocus();
    goTo(3, column);
    type("7");
    comeToRest();
    ModelLog log(adapter());
    KernelSpy spy;
    pressInEditor(Qt::Key_Return);
    EXPECT_THAT(log.take(), ElementsAre("3, " + std::to_string(column))) << "at once";
    settle();
    EXPECT_THAT(log.take(), IsEmpty()) << "nor later";
    EXPECT_EQ(spy.count("VelUtilDataValueSetByZoneVarX"), 1);
    EXPECT_GE(spy.count("VelUtilDataValueGetByZoneVar"), 1);
    EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), visibleCells() + 2) << "Qt paints what gets the focus";
    EXPECT_EQ(spy.count("VelUtilZoneGetIJK"), 0) << "the table is not made anew";
    EXPECT_EQ(shown(3, column), "7");
}

TEST_P(OneCellsWork, IsToReadTheCellAgainWhereNoEditorCloses)
{
    auto const [alterAll, column] = GetParam();
    alterAllSharedZones(alterAll);
    ModelLog log(adapter());
    KernelSpy spy;
    ASSERT_TRUE(adapter().setData(adapter().index(3, column), QStringLiteral("7")));
    comeToRest();
    EXPECT_THAT(log.take(), ElementsAre("3, " + std::to_string(column)));
    for (std::string const& call : spy.callsOf("VelUtilDataValueGetByZoneVar"))
        EXPECT_EQ(call, "VelUtilDataValueGetByZoneVar(1, " + std::to_string(column + 1) + ", 4)");
    EXPECT_GE(spy.count("VelUtilDataValueGetByZoneVar"), 1);
    EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), 2);
}

INSTANTIATE_TEST_SUITE_P(SharedAndOwn, OneCellsWork, testing::Combine(testing::Bool(), testing::Values(0, 2)));

TEST_F(DataSpreadsheetEditReachTest, IsFollowedAtOnceByAnotherSpreadsheetThatReadsWhatItShows)
{
    Choices other(dialog());
    sdk::ui::dialogs::propertybindings::models::QTableModelAdapter otherAdapter(*other.tableModelProxy());
    QTableView otherView;
    otherView.setModel(&otherAdapter);
    otherView.resize(300, 200);
    otherView.show();
    settle();
    QSignalSpy const resets(&otherAdapter, &QAbstractItemModel::modelReset);
    QSignalSpy const changes(&otherAdapter, &QAbstractItemModel::dataChanged);
    int const visible = (otherView.rowAt(otherView.viewport()->height() - 1) + 1) * otherAdapter.columnCount();
    auto const table = other.tableModel();
    goTo(2, 1);
    type("12");
    comeToRest();
    KernelSpy spy;
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(changes.count(), 1) << "at once";
    EXPECT_EQ(otherAdapter.index(2, 1).data().toString(), QStringLiteral("12"));
    settle();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(other.tableModel(), table);
    EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), visible + visibleCells() + 2);
}

TEST_F(DataSpreadsheetEditReachTest, IsFollowedByASpreadsheetOnAZoneThatSharesTheValue)
{
    ShadowView const shadow(adapter());
    stage.session().perform(kernel::SetValue(stage.dataSet(), 2, 1, 4, -3.0, false));
    EXPECT_EQ(shadow.texts()[4][0], "-3") << "at once";
    stage.session().undo();
    settle();
    EXPECT_EQ(shadow.texts()[4][0], "104");
    EXPECT_EQ(shadow.texts(), KernelSheet(stage).texts);
}

TEST_F(DataSpreadsheetEditReachTest, IsTakenBackAtTheCostOfTheCellsThatAreSeen)
{
    edit(2, 1, "12");
    comeToRest();
    KernelSpy spy;
    stage.session().undo();
    comeToRest();
    EXPECT_EQ(shown(2, 1), "202");
    // Measured and painted for the value, and again for the state that is another one.
    EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), 4 * visibleCells() + 1);
}

} // namespace
} // namespace veldraw::tests
