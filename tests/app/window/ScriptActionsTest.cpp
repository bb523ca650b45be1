#include "app/window/ScriptActions.h"

#include "app/import/Importer.h"
#include "kernel/operations/RenameZone.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

/// Scripts that are saved and run by the buttons of the journal.
class ScriptActionsTest : public WindowTest
{
protected:
    void SetUp() override
    {
        session.journal().clear();
        openFlow();
        showWindow();
        action("journalAction").trigger();
        settle();
    }

    app::DocumentController::FileReader makeReader() override
    {
        return [](app::FileGroup const& group, app::OutsidePaths outside, kernel::Progress& progress) {
            return app::importGroup(group, app::Deferral::Never, progress, outside);
        };
    }

    /// Presses a button of the panel, and types a name into the file dialog that comes.
    void answer(char const* button, QString const& path)
    {
        QTimer::singleShot(0, [path] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->selectAll();
            QTest::keyClicks(name, path);
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::mouseClick(window->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
        settle();
    }

    void runScript(QByteArray const& text) { answer("runScriptButton", writeFile(QStringLiteral("s.vdo"), text)); }

    QByteArray contentOf(QString const& name) const
    {
        QFile file(folder.filePath(name));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    std::string zoneName(int zone) const { return session.activeDataSet()->zone(zone)->name; }
};

} // namespace

TEST_F(ScriptActionsTest, SaveTheJournalWithoutWhatIsUndone)
{
    for (char const* name : {"a", "b"})
        ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, name)));
    ASSERT_TRUE(session.undo());
    settle();
    answer("saveScriptButton", folder.filePath(QStringLiteral("saved.vdo")));
    EXPECT_EQ("rename-zone zone=1 name=a\n", contentOf(QStringLiteral("saved.vdo")));
    EXPECT_TRUE(messages.empty());
}

TEST_F(ScriptActionsTest, RunAScriptAsStepsThatCanBeTakenBack)
{
    runScript("duplicate-zones zones=inlet\nrename-zone zone=3 name=\"inlet, again\"\n");
    ASSERT_EQ(3, session.activeDataSet()->zoneCount());
    EXPECT_EQ("inlet, again", zoneName(3));
    ASSERT_TRUE(session.undo());
    EXPECT_EQ("inlet", zoneName(3));
    EXPECT_EQ(2u, session.journal().entries().size()) << "what a script does is recorded as well";
    EXPECT_TRUE(messages.empty());
}

TEST_F(ScriptActionsTest, DoNothingOfAScriptInWhichACommandIsWrong)
{
    runScript("duplicate-zones zones=inlet\nrename-zon zone=3 name=b\n");
    EXPECT_EQ(2, session.activeDataSet()->zoneCount());
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("s.vdo:2:1: There is no operation \"rename-zon\". Did you mean "))
        << messages[0];
}

TEST_F(ScriptActionsTest, EndAScriptAtTheFirstCommandThatFails)
{
    runScript("duplicate-zones zones=inlet\n\ndelete-variables variables=*\nrename-zone zone=3 name=b\n");
    EXPECT_EQ(3, session.activeDataSet()->zoneCount()) << "what was done before stays";
    EXPECT_EQ("inlet", zoneName(3));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("s.vdo:3:1: Error attempting to delete variable(s): "))
        << messages[0];
}

TEST_F(ScriptActionsTest, TellWhereAZoneIsThatIsNotThere)
{
    runScript("rename-zone zone=9 name=b\n");
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("s.vdo:1:18: There is no zone 9; the last one is 2.")) << messages[0];
}

TEST_F(ScriptActionsTest, OpenAndSaveFilesAndRecordThat)
{
    QByteArray const table = writeFile(QStringLiteral("t.csv"), goodTable()).toUtf8();
    QByteArray const copy = folder.filePath(QStringLiteral("copy.csv")).toUtf8();
    runScript("open files=\"" + table + "\"\nrename-variable variable=v name=w\nsave file=\"" + copy + "\"\n");
    EXPECT_EQ("t,w\n0,0\n1,1\n2,4\n", contentOf(QStringLiteral("copy.csv")));
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ("open files=" + table.toStdString() +
                  "\nrename-variable variable=2 name=w\nsave file=" + copy.toStdString() + "\n",
              session.journal().script());
}

TEST_F(ScriptActionsTest, OpenFilesInNewFramesAsAStep)
{
    QByteArray const table = writeFile(QStringLiteral("t.csv"), goodTable()).toUtf8();
    runScript("open files=\"" + table + "\" new-frames=yes\n");
    EXPECT_EQ(2u, session.activePage()->frames.size());
    EXPECT_EQ("open files=" + table.toStdString() + " new-frames=yes\n", session.journal().script());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ("", session.journal().script());
}

TEST_F(ScriptActionsTest, TellThatAFileCouldNotBeOpened)
{
    runScript("open files=/nowhere/a.csv\nset-title title=a\n");
    ASSERT_EQ(2u, messages.size());
    EXPECT_NE(std::string::npos, messages[1].find("s.vdo:1:1: Nothing was opened.")) << messages[1];
    EXPECT_NE("a", session.activeDataSet()->title());
}

TEST_F(ScriptActionsTest, TellAScriptThatCannotBeRead)
{
    ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "a")));
    settle();
    auto& scripts = *window->findChild<app::ScriptActions*>();
    EXPECT_TRUE(scripts.run(writeFile(QStringLiteral("empty.vdo"), "# nothing\n")));
    EXPECT_FALSE(scripts.run(QStringLiteral("/nowhere/s.vdo")));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("Cannot read the script \"/nowhere/s.vdo\"")) << messages[0];
}

} // namespace veldraw::tests
