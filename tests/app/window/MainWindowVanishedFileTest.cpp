#include "host/MessageLog.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/support/LoggedTexts.h"
#include "tools/samples/MeshSamples.h"
#include "tools/samples/SparseSamples.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QListView>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A file whose values have not been read when it goes.
class VanishedFileTest : public DrawnWindowTest
{
protected:
    VanishedFileTest()
    {
        deferral = app::Deferral::Always;
        showWindow();
    }

    void openTetrahedra()
    {
        file = openSample("tetra.vtu", samples::writeTetrahedra);
        host::MessageLog::instance().clear();
    }

    void takeAway() { ASSERT_TRUE(QFile::rename(file, file + QStringLiteral(".gone"))); }
    void bringBack() { ASSERT_TRUE(QFile::rename(file + QStringLiteral(".gone"), file)); }

    int variable(char const* name) { return dataSet().findVariable(name); }
    bool isLoaded(char const* name) { return dataSet().field(1, variable(name))->isLoaded(); }

    QDialog& openLoadVariable() { return openDialog("loadVariableAction", "LoadVariables"); }
    static QListView& listOf(QDialog& dialog)
    {
        return *dialog.findChild<QListView*>(QStringLiteral("LoadVariables_Variables_listView"));
    }

    // A click on a row, then "Load".
    static void load(QDialog& dialog, int row)
    {
        QListView& list = listOf(dialog);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(row, 0)).center());
        settle();
        for (QPushButton* const button : dialog.findChildren<QPushButton*>())
            if (button->text() == QLatin1String("&Load"))
                QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }

    QString file;
};

} // namespace

TEST_F(VanishedFileTest, IsToldOnceInTheMessageLogWhenValuesAreWantedAndWorksAgainWhenItIsBack)
{
    openTetrahedra();
    QDialog& dialog = openLoadVariable();
    int const rows = listOf(dialog).model()->rowCount();
    ASSERT_GT(rows, 0);
    takeAway();
    load(dialog, 0);
    EXPECT_THAT(messages, IsEmpty()) << "the dialog is silent";
    EXPECT_THAT(loggedTexts(), ElementsAre(AllOf(HasSubstr(file.toStdString()), HasSubstr("there is no such file"))));
    EXPECT_EQ(rows, listOf(dialog).model()->rowCount());
    EXPECT_FALSE(isLoaded("displacement_X"));
    EXPECT_TRUE(isLoaded("X")) << "nothing is lost";

    bringBack();
    load(dialog, 0);
    EXPECT_TRUE(isLoaded("displacement_X"));
    EXPECT_EQ(rows - 1, listOf(dialog).model()->rowCount());
    EXPECT_EQ(1U, loggedTexts().size());
    dialog.close();
}

TEST_F(VanishedFileTest, IsSeenInThePlotThatWaitsForItsValues)
{
    openTetrahedra();
    takeAway();
    ASSERT_TRUE(session.perform(kernel::AssignVariable(session.activeFrame()->id, 'C', variable("temperature"))));
    settle();
    page().grabImage();
    EXPECT_EQ(QStringLiteral("The contour variable \"temperature\" is not loaded in all zones."), message());
    EXPECT_FALSE(view().zones().empty()) << "the coordinates are there";
    EXPECT_THAT(messages, IsEmpty());
    bringBack();
    ASSERT_TRUE(session.perform(kernel::LoadVariables(dataSet(), {1}, {variable("temperature")})));
    settle();
    page().grabImage();
    EXPECT_EQ(QString(), message());
}

TEST_F(VanishedFileTest, LeavesTheSpreadsheetReadableAndTakesNoEdit)
{
    openTetrahedra();
    QTableView& table = openSpreadsheet();
    QModelIndex const missing = table.model()->index(0, variable("displacement_X") - 1);
    QString const x = table.model()->index(0, 0).data().toString();
    takeAway();
    EXPECT_EQ(QStringLiteral("Not Loaded"), missing.data().toString());
    table.model()->setData(missing, QStringLiteral("1"));
    settle();
    EXPECT_FALSE(action("undoAction").isEnabled());
    EXPECT_FALSE(isLoaded("displacement_X"));
    EXPECT_EQ(x, table.model()->index(0, 0).data().toString());
    bringBack();
    QDialog& dialog = openLoadVariable();
    load(dialog, 0);
    dialog.close();
    EXPECT_NE(QStringLiteral("Not Loaded"), table.model()->index(0, variable("displacement_X") - 1).data().toString());
}

TEST_F(VanishedFileTest, KeepsTheDataSetFromBeingSavedAndLeavesTheOldFileWhole)
{
    openTetrahedra();
    takeAway();
    QString const out = writeFile(QStringLiteral("out.vtu"), "what stood here before");
    EXPECT_FALSE(window->documents().save(out));
    EXPECT_THAT(messages, ElementsAre(AllOf(HasSubstr(out.toStdString()), HasSubstr(file.toStdString()),
                                            HasSubstr("there is no such file"))));
    QFile old(out);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ("what stood here before", old.readAll());
    bringBack();
    EXPECT_TRUE(window->documents().save(out));
    EXPECT_TRUE(isLoaded("stress"));
}

TEST_F(VanishedFileTest, ThatIsShortOrAnotherOneIsRefused)
{
    openTetrahedra();
    QFile other(file);
    ASSERT_TRUE(other.resize(other.size() / 2));
    QDialog& dialog = openLoadVariable();
    load(dialog, 0);
    dialog.close();
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(loggedTexts(), ElementsAre(AllOf(HasSubstr(file.toStdString()), HasSubstr("open it again"))));
    EXPECT_FALSE(isLoaded("displacement_X"));
    EXPECT_TRUE(isLoaded("X"));
}

TEST_F(VanishedFileTest, OfMappedValuesIsToldWhenTheyAreWantedAndNotMissedOnceTheyAreMapped)
{
    file = openSample("long.vti", [](std::string const& path) { samples::writeSparseGrid(path, 5000000, 2); });
    host::MessageLog::instance().clear();
    QDialog& dialog = openLoadVariable();
    QListView const& list = listOf(dialog);
    auto const rowOf = [&](char const* name) {
        for (int row = 0; row < list.model()->rowCount(); ++row)
            if (list.model()->index(row, 0).data().toString().endsWith(QLatin1String(name)))
                return row;
        return -1;
    };
    load(dialog, rowOf(": v1"));
    ASSERT_TRUE(isLoaded("v1"));
    takeAway();
    load(dialog, rowOf(": v2"));
    dialog.close();
    EXPECT_FALSE(isLoaded("v2"));
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(loggedTexts(), ElementsAre(HasSubstr(file.toStdString())));
    EXPECT_TRUE(isLoaded("v1"));
    EXPECT_EQ(0.0, dataSet().field(1, variable("v1"))->group()->buffer()->value(2500001));
}

} // namespace veldraw::tests
