#include "app/window/WindowTitle.h"

#include "host/MessagePresenter.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>

namespace veldraw::tests {

namespace {

using Place = app::DocumentController::Place;

/// What the window says about its document, and when.
class WindowTitleTest : public WindowTest
{
protected:
    void open(QStringList const& names)
    {
        QStringList paths;
        for (QString const& name : names)
            paths << writeFile(name, goodTable());
        EXPECT_TRUE(window->openFiles(paths, Place::FreshPage));
        settle();
    }

    QString title() { return window->windowTitle(); }
    int rows(char const* table)
    {
        return window->findChild<QAbstractItemView*>(QString::fromLatin1(table))->model()->rowCount();
    }
};

} // namespace

TEST_F(WindowTitleTest, IsTheNameOfTheFile)
{
    showWindow();
    open({QStringLiteral("series.csv")});
    EXPECT_EQ(QStringLiteral("series.csv[*]"), title());
}

TEST_F(WindowTitleTest, StaysThatOfTheFileWhenTheFrameHasAnotherName)
{
    showWindow();
    open({QStringLiteral("series.csv")});
    session.perform(kernel::RenameFrame(session.activeFrame()->id, "left"));
    settle();
    EXPECT_EQ(QStringLiteral("series.csv[*]"), title());
}

TEST_F(WindowTitleTest, FollowsTheActiveFrame)
{
    showWindow();
    open({QStringLiteral("a.csv"), QStringLiteral("b.csv")});
    EXPECT_EQ(QStringLiteral("a.csv[*]"), title());
    session.activateFrame(session.activePage()->frames[1]->id);
    settle();
    EXPECT_EQ(QStringLiteral("b.csv[*]"), title());
}

TEST_F(WindowTitleTest, IsThatOfTheFrameWhereNoFileIs)
{
    openFlow();
    session.activeDataSet()->setTitle("flow");
    showWindow();
    EXPECT_EQ(QStringLiteral("flow[*]"), title());
}

TEST_F(WindowTitleTest, TellsTheTitleThatTheDataSetWasGiven)
{
    openFlow();
    showWindow();
    EXPECT_EQ(QStringLiteral("flow[*] \u2013 flow over a step"), title());
    session.perform(kernel::SetTitle(*session.activeDataSet(), "flow of air"));
    settle();
    EXPECT_EQ(QStringLiteral("flow[*] \u2013 flow of air"), title());
    session.undo();
    settle();
    EXPECT_EQ(QStringLiteral("flow[*] \u2013 flow over a step"), title());
    session.perform(kernel::SetTitle(*session.activeDataSet(), ""));
    settle();
    EXPECT_EQ(QStringLiteral("flow[*]"), title());
}

TEST_F(WindowTitleTest, TellsTheTitleBesideTheFileUnlessItIsTheNameOfOne)
{
    showWindow();
    open({QStringLiteral("series.csv")});
    ASSERT_EQ("series.csv", session.activeDataSet()->title());
    session.perform(kernel::SetTitle(*session.activeDataSet(), "ries.csv"));
    settle();
    EXPECT_EQ(QStringLiteral("series.csv[*] \u2013 ries.csv"), title());
    session.perform(kernel::SetTitle(*session.activeDataSet(), "Decay"));
    settle();
    EXPECT_EQ(QStringLiteral("series.csv[*] \u2013 Decay"), title());
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("result.csv"))));
    EXPECT_EQ(QStringLiteral("result.csv[*] \u2013 Decay"), title());
}

TEST_F(WindowTitleTest, TakesNothingInATitleForTheMarkOfChanges)
{
    openFlow();
    showWindow();
    session.perform(kernel::SetTitle(*session.activeDataSet(), "a[*]b"));
    settle();
    EXPECT_EQ(QStringLiteral("flow[*] \u2013 a[*][*]b"), title());
}

TEST_F(WindowTitleTest, HasTheMarkOfChangesUntilTheyAreSavedOrTakenBack)
{
    showWindow();
    open({QStringLiteral("series.csv")});
    EXPECT_FALSE(window->isWindowModified());
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 2, "height"));
    settle();
    EXPECT_TRUE(window->isWindowModified());
    action("undoAction").trigger();
    settle();
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(WindowTitleTest, IsTheNewNameOnceSavedUnderOne)
{
    showWindow();
    open({QStringLiteral("series.csv")});
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("result.csv"))));
    EXPECT_EQ(QStringLiteral("result.csv[*]"), title());
}

TEST_F(WindowTitleTest, AndTheListsAreNewAlreadyWhenAMessageComes)
{
    openFlow();
    showWindow();
    ASSERT_EQ(3, rows("variableView"));
    std::string seen;
    host::MessagePresenter::install([&](std::string const& text, MessageBoxType_e) {
        seen = text + ": " + std::to_string(rows("variableView")) + " variables, " +
               (window->isWindowModified() ? "changed" : "as saved") + ", " +
               window->findChild<QLabel*>(QStringLiteral("dataSetStatus"))
                   ->text()
                   .section(QLatin1Char(' '), -2)
                   .toStdString();
    });
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    sdk::velUtilActionReporter(
        [&] { return static_cast<char>(session.perform(kernel::DeleteVariables(*session.activeDataSet(), {1}))); },
        "failed", "done");
    // Two doubles a point, of 12 + 4.
    EXPECT_EQ("done: 2 variables, changed, 256 bytes", seen);
}

} // namespace veldraw::tests
