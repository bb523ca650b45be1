#include "dialogs/datasetinfo/DataSetPage.h"

#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"
#include "tests/dialogs/support/ToolTipOf.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The page of the data set on the screen.
class DataSetPageTest : public DataSetInfoFixture
{
protected:
    DataSetPageTest()
    {
        sample.dataSet().setTitle("Flow");
        launchedAt(dataSetPage);
        sample.session().history().clear();
    }

    QLineEdit& title() { return child<QLineEdit>(titleField); }
    void type(std::string const& text)
    {
        title().setFocus();
        title().selectAll();
        QTest::keyClicks(&title(), QString::fromStdString(text));
    }
    /// Zones, variables, points, elements, lock.
    std::vector<std::string> texts()
    {
        return {labelled("numZonesLabel"), labelled("numVarsLabel"), labelled("totalPointsLabel"),
                labelled("totalElementsLabel"), labelled("lockedByLabel")};
    }
    std::string tip(std::string const& name) { return toolTipOf(child<QWidget>(name)); }
    /// Shows a data set of its own in another frame.
    void showAnother(std::string const& text)
    {
        auto const other = SampleSession::makeDataSet({"Other"}, {"X"});
        other->setTitle(text);
        auto const frame = sample.session().createFrame("Other", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
        sample.session().setFrameDataSet(frame->id, other);
        IdleDispatcher::flush();
    }
};

TEST_F(DataSetPageTest, ShowsWhatIsKnownOfTheDataSet)
{
    sample.dataSet().loaderInstructions() = {{"VTK", {"FILENAME_", "/data/wing.vtu", "FILENAME_", "/data/body.vtu"}}};
    FakeStateChange(StateChange_FrameDataSet).send();
    sample.session().setLock(sample.dataSet(), "<i>Solver</i>");
    EXPECT_EQ(shown(titleField), "Flow");
    EXPECT_EQ(files(), "/data/wing.vtu\n/data/body.vtu\n");
    EXPECT_THAT(texts(), ElementsAre("3", "4", "18", "6", "<i>Solver</i>"));
    EXPECT_EQ(child<QLabel>("lockedByLabel").textFormat(), Qt::PlainText);
}

TEST_F(DataSetPageTest, GivesATypedTitleToTheKernelAsOneStep)
{
    enter(titleField, "Flow past a wing");
    EXPECT_EQ(sample.dataSet().title(), "Flow past a wing");
    EXPECT_EQ(sample.session().history().undoName(), "Data Set Title");
    sample.session().undo();
    EXPECT_EQ(shown(titleField), "Flow");
    EXPECT_FALSE(sample.session().undo()) << "one step";
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(DataSetPageTest, LeavesTheFieldToUndoOnceTheTitleIsTaken)
{
    auto* const undo = new QAction(mainWindow.get());
    undo->setShortcut(QKeySequence::Undo);
    undo->setShortcutContext(Qt::ApplicationShortcut);
    mainWindow->addAction(undo);
    QObject::connect(undo, &QAction::triggered, undo, [this] { sample.session().undo(); });
    type("Wake");
    QTest::keyClick(&title(), Qt::Key_Return);
    IdleDispatcher::flush();
    QTest::keyClick(&title(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(sample.dataSet().title(), "Flow");
    EXPECT_EQ(shown(titleField), "Flow");
}

TEST_F(DataSetPageTest, TakesTheTitleAtReturnAndNotBefore)
{
    type("Wake");
    EXPECT_EQ(sample.dataSet().title(), "Flow");
    QTest::keyClick(&title(), Qt::Key_Return);
    EXPECT_EQ(sample.dataSet().title(), "Wake");
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_TRUE(title().hasFocus());
}

TEST_F(DataSetPageTest, MakesNoStepOfATitleThatIsThereAlready)
{
    enter(titleField, "Flow");
    EXPECT_FALSE(sample.session().undo());
}

TEST_F(DataSetPageTest, DropsATitleThatIsUnfinishedWhenTheWindowCloses)
{
    type("Wa");
    clickClose();
    EXPECT_EQ(sample.dataSet().title(), "Flow");
    dialog().launch();
    EXPECT_EQ(shown(titleField), "Flow");
}

TEST_F(DataSetPageTest, ShowsTheOldTitleAgainWhenTheKernelRefusesTheNewOne)
{
    KernelSpy spy;
    spy.failNext("VelUtilDataSetSetTitle");
    enter(titleField, "Wake");
    EXPECT_EQ(spy.count("VelUtilDataSetSetTitle"), 1);
    EXPECT_EQ(shown(titleField), "Flow");
    EXPECT_THAT(messages.take(), ElementsAre("error: Error changing the title of the data set."));
}

TEST_F(DataSetPageTest, TellsWhyATitleIsNotTakenWhileAnOperationRuns)
{
    sample.session().runOperation("long work", [this](kernel::Progress&) { enter(titleField, "Wake"); });
    EXPECT_THAT(messages.take(), ElementsAre("error: Error changing the title of the data set."));
    EXPECT_EQ(messages.details(), "Another operation is running.");
    EXPECT_EQ(shown(titleField), "Flow");
    EXPECT_TRUE(title().hasFocus());
    EXPECT_EQ(sample.dataSet().title(), "Flow");
}

TEST_F(DataSetPageTest, TakesTheTitleOfALockedDataSet)
{
    sample.session().setLock(sample.dataSet(), "Solver");
    enter(titleField, "Wake");
    EXPECT_EQ(sample.dataSet().title(), "Wake");
}

TEST_F(DataSetPageTest, GivesATitleToTheDataSetThatItWasTypedFor)
{
    type("Wake");
    showAnother("Flow");
    EXPECT_EQ(shown(titleField), "Flow") << "the same title, but another data set's";
    EXPECT_EQ(sample.dataSet().title(), "Wake");
    QTest::keyClick(&title(), Qt::Key_Return);
    EXPECT_EQ(sample.session().activeDataSet()->title(), "Flow");
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(sample.session().history().undoName(), "Data Set Title");
    sample.session().undo();
    EXPECT_EQ(sample.dataSet().title(), "Flow");
}

TEST_F(DataSetPageTest, GivesATitleToItsDataSetAlsoByWayOfAFrameWithoutData)
{
    type("Wake");
    sample.session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
    IdleDispatcher::flush();
    EXPECT_EQ(title().text().toStdString(), "Wake");
    EXPECT_EQ(sample.dataSet().title(), "Flow");
    showAnother("Heat");
    EXPECT_EQ(shown(titleField), "Heat");
    EXPECT_EQ(sample.dataSet().title(), "Wake");
}

TEST_F(DataSetPageTest, TellsWhenTheDataSetThatATitleWasTypedForIsNotThereAnyMore)
{
    type("Wake");
    auto const other = SampleSession::makeDataSet({"Other"}, {"X"});
    other->setTitle("Heat");
    sample.session().setFrameDataSet(sample.frame()->id, other);
    EXPECT_EQ(shown(titleField), "Heat");
    EXPECT_THAT(messages.take(),
                ElementsAre("error: The title Wake was not given: its data set is not there any more."));
    EXPECT_EQ(other->title(), "Heat");
}

TEST_F(DataSetPageTest, LetsTheUserGoOnTypingWhenTheDataSetGetsAnotherTitleElsewhere)
{
    type("Wak");
    sample.session().perform(kernel::SetTitle(sample.dataSet(), "Heat"));
    IdleDispatcher::flush();
    sample.session().undo();
    EXPECT_EQ(shown(titleField), "Wak");
    QTest::keyClicks(&title(), QStringLiteral("e"));
    QTest::keyClick(&title(), Qt::Key_Return);
    EXPECT_EQ(sample.dataSet().title(), "Wake");
    sample.session().undo();
    EXPECT_EQ(shown(titleField), "Flow") << "when it has been typed";
}

TEST_F(DataSetPageTest, KeepsWhatIsTypedWhileOtherThingsChange)
{
    type("Wak");
    sample.session().setLock(sample.dataSet(), "Solver");
    sample.session().perform(kernel::RenameZone(sample.dataSet(), 1, "Left wing"));
    IdleDispatcher::flush();
    QTest::keyClicks(&title(), QStringLiteral("e"));
    QTest::keyClick(&title(), Qt::Key_Return);
    EXPECT_EQ(sample.dataSet().title(), "Wake");
}

TEST_F(DataSetPageTest, FollowsTheActiveFrame)
{
    showAnother("Heat");
    EXPECT_EQ(shown(titleField), "Heat");
    EXPECT_THAT(texts(), ElementsAre("1", "1", "6", "2", "none"));
    sample.session().activateFrame(sample.frame()->id);
    EXPECT_EQ(shown(titleField), "Flow");
    EXPECT_THAT(texts(), ElementsAre("3", "4", "18", "6", "none"));
}

TEST_F(DataSetPageTest, ExplainsATotalThatIsNotKnownYet)
{
    DeferredZones deferred;
    deferred.append(sample.dataSet(), "Late", 5, 4, 3);
    FakeStateChange(StateChange_ZonesAdded).send();
    EXPECT_THAT(texts(), ElementsAre("4", "4", "Not Loaded", "Not Loaded", "none"));
    for (char const* const name : {"label_9", "totalPointsLabel"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
        EXPECT_EQ(tip(name), "<html>Loading of the Total Points metric for one or more zones is deferred until "
                             "first used to improve performance.</html>");
    }
    for (char const* const name : {"label_7", "totalElementsLabel"}) {
        EXPECT_FALSE(isEnabled(name)) << name;
        EXPECT_EQ(tip(name), "<html>Loading of the Total Elements metric for one or more zones is deferred until "
                             "first used to improve performance.</html>");
    }
    EXPECT_EQ(deferred.timesLoaded(), 0);
    sample.session().perform(kernel::LoadDimensions(sample.dataSet(), 4));
    EXPECT_THAT(texts(), ElementsAre("4", "4", "78", "30", "none"));
    for (char const* const name : {"label_9", "totalPointsLabel", "label_7", "totalElementsLabel"}) {
        EXPECT_TRUE(isEnabled(name)) << name;
        EXPECT_EQ(tip(name), "") << name;
    }
}

TEST_F(DataSetPageTest, LetsItsTextsBeReadSelectedAndCopiedOnly)
{
    sample.dataSet().loaderInstructions() = {{"VELDRAW", {"/data/a.dat"}}};
    FakeStateChange(StateChange_FrameDataSet).send();
    auto& text = child<QTextEdit>("dataFilesTextEdit");
    EXPECT_EQ(files(), "/data/a.dat\n");
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("x"));
    EXPECT_EQ(files(), "/data/a.dat\n");
    QTest::keyClick(&text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "/data/a.dat\n");
    QTest::keyClick(&dialog(), Qt::Key_P, Qt::AltModifier);
    QTest::keyClick(&child<QWidget>("totalPointsLabel"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&child<QWidget>("totalPointsLabel"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "18");
}

} // namespace
} // namespace veldraw::tests
