#include "app/window/RecoveryActions.h"

#include "host/MessagePresenter.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/RenameZone.h"
#include "tests/app/support/WindowTest.h"

#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

/// Windows that end without being closed, and the next one, which asks what to do about that.
class RecoveryActionsTest : public WindowTest
{
protected:
    RecoveryActionsTest()
    {
        host::MessagePresenter::install([this](std::string const& text, MessageBoxType_e) {
            messages.push_back(text);
            details = host::MessagePresenter::details();
        });
        file = writeFile(QStringLiteral("first.csv"), goodTable());
        second = writeFile(QStringLiteral("second.csv"), goodTable());
    }

    /// The window of a program that has just started.
    void start()
    {
        session.clear();
        session.history().setClean();
        showWindow().keepRecovery(recoveryFolder());
    }

    void crash()
    {
        settle();
        window.reset();
    }

    void rename(std::string const& name)
    {
        ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, name)));
    }

    /// Two steps on a file and one on another, in a program that crashes.
    void leaveWork()
    {
        start();
        window->openFiles({file}, app::DocumentController::Place::FreshPage);
        rename("a");
        rename("b");
        window->openFiles({second}, app::DocumentController::Place::NewFrames);
        rename("c");
        crash();
    }

    /// Starts the program and presses a button of each question. @param button Esc presses the key
    bool startAndAnswer(QString const& button)
    {
        start();
        press(button);
        bool const isRecovered = window->offerRecovery();
        settle();
        return isRecovered;
    }

    void press(QString const& button)
    {
        QTimer::singleShot(10, window.get(), [this, button] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || box->objectName() != QLatin1String("recoveryQuestion"))
                return;
            ++questions;
            question = box->text().toStdString();
            press(button); // another one may follow
            if (button == QLatin1String("Esc"))
                QTest::keyClick(box, Qt::Key_Escape);
            else
                QTest::mouseClick(box->findChild<QPushButton*>(button), Qt::LeftButton);
        });
    }

    /// Alters what the one file says that was left.
    void damage(char const* before, char const* after) const
    {
        QFile left(recoveryFolder() + QLatin1Char('/') + leftFiles().front());
        ASSERT_TRUE(left.open(QIODevice::ReadWrite));
        QByteArray const content = left.readAll().replace(before, after);
        left.seek(0);
        left.write(content);
    }

    QString recoveryFolder() const { return folder.filePath(QStringLiteral("recovery")); }

    QStringList leftFiles() const { return QDir(recoveryFolder()).entryList(QDir::Files); }

    std::vector<std::string> zoneNames() const
    {
        std::vector<std::string> names;
        for (auto const& frame : session.activePage()->frames)
            names.push_back(frame->dataSet->zone(1)->name);
        return names;
    }

    using Names = std::vector<std::string>;

    QString file;
    QString second;
    int questions = 0;
    std::string question; ///< the last one
    std::string details;  ///< of the last message
};

QString const recoverButton = QStringLiteral("recoverButton");
QString const discardButton = QStringLiteral("discardButton");
QString const laterButton = QStringLiteral("laterButton");

} // namespace

TEST_F(RecoveryActionsTest, AsksNothingWhereNothingWasLeft)
{
    EXPECT_FALSE(startAndAnswer(recoverButton));
    EXPECT_EQ(0, questions);
}

TEST_F(RecoveryActionsTest, RepeatsWhatWasDoneBeforeACrash)
{
    leaveWork();
    EXPECT_TRUE(startAndAnswer(recoverButton));
    EXPECT_EQ(1, questions);
    EXPECT_THAT(question, StartsWith("Veldraw ended before all work was saved.\n\n" + file.toStdString() + "\n" +
                                     second.toStdString() + "\n\n3 steps, the last one on "));
    EXPECT_THAT(question, HasSubstr(QDate::currentDate().toString(QStringLiteral("yyyy")).toStdString()));
    EXPECT_EQ((Names{"b", "c"}), zoneNames());
    EXPECT_FALSE(session.history().isClean());
    EXPECT_EQ("Recovered 3 steps", window->statusBar()->currentMessage().toStdString());
    EXPECT_TRUE(messages.empty());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ((Names{"b", "second"}), zoneNames()) << "it can be taken back step by step";
}

TEST_F(RecoveryActionsTest, KeepsWhatIsRecoveredForTheNextCrash)
{
    leaveWork();
    startAndAnswer(recoverButton);
    rename("d");
    crash();
    EXPECT_EQ(1, leftFiles().size());
    startAndAnswer(recoverButton);
    EXPECT_THAT(question, HasSubstr("4 steps"));
    EXPECT_EQ((Names{"b", "d"}), zoneNames());
}

TEST_F(RecoveryActionsTest, LeavesOutWhatWasUndone)
{
    start();
    window->openFiles({file}, app::DocumentController::Place::FreshPage);
    rename("a");
    rename("b");
    session.undo();
    crash();
    startAndAnswer(recoverButton);
    EXPECT_THAT(question, HasSubstr("1 step, the last one"));
    EXPECT_EQ(Names{"a"}, zoneNames());
}

TEST_F(RecoveryActionsTest, DiscardsWhatIsNotWanted)
{
    leaveWork();
    EXPECT_FALSE(startAndAnswer(discardButton));
    EXPECT_EQ(1, questions);
    EXPECT_TRUE(leftFiles().isEmpty());
    EXPECT_TRUE(session.activePage()->frames.empty());
}

TEST_F(RecoveryActionsTest, AsksAgainWhereTheAnswerIsLater)
{
    leaveWork();
    EXPECT_FALSE(startAndAnswer(laterButton));
    crash();
    EXPECT_FALSE(startAndAnswer(QStringLiteral("Esc")));
    window->close();
    window.reset();
    EXPECT_TRUE(startAndAnswer(recoverButton));
    EXPECT_EQ(3, questions);
}

TEST_F(RecoveryActionsTest, AsksAboutEachWorkThatWasLeft)
{
    leaveWork();
    leaveWork();
    EXPECT_EQ(2, leftFiles().size());
    EXPECT_FALSE(startAndAnswer(laterButton));
    EXPECT_EQ(2, questions);
    crash();
    EXPECT_TRUE(startAndAnswer(recoverButton));
    EXPECT_EQ(3, questions) << "the rest has time until the next start";
    EXPECT_EQ(2, leftFiles().size()) << "that of this program, and the rest";
}

TEST_F(RecoveryActionsTest, TellsTheStepThatCannotBeRepeatedAndKeepsItsWorkUntilTheRestIsSaved)
{
    leaveWork();
    writeFile(QStringLiteral("second.csv"), "t,v\n0,1\n");
    EXPECT_TRUE(startAndAnswer(recoverButton));
    ASSERT_EQ(1u, messages.size());
    EXPECT_EQ("2 of 3 steps could be recovered. This step could not be repeated: open files=" + second.toStdString() +
                  " new-frames=yes",
              messages.front());
    EXPECT_EQ("\"" + second.toStdString() + "\" has been changed since.", details);
    EXPECT_EQ(Names{"b"}, zoneNames());
    EXPECT_EQ(2, leftFiles().size()) << "that of this program, and the one that is not whole";
    ASSERT_TRUE(window->documents().save(folder.filePath(QStringLiteral("saved.csv"))));
    crash();
    EXPECT_TRUE(leftFiles().isEmpty());
}

TEST_F(RecoveryActionsTest, KeepsWorkOfWhichNothingCouldBeRepeated)
{
    leaveWork();
    QFile::rename(file, folder.filePath(QStringLiteral("elsewhere.csv")));
    EXPECT_FALSE(startAndAnswer(recoverButton));
    ASSERT_EQ(1u, messages.size());
    EXPECT_THAT(messages.front(), StartsWith("Nothing could be recovered. This step could not be repeated: open "));
    EXPECT_THAT(details, HasSubstr("first.csv\" is no longer there."));
    window->close();
    window.reset();
    QFile::rename(folder.filePath(QStringLiteral("elsewhere.csv")), file);
    EXPECT_TRUE(startAndAnswer(recoverButton)) << "the file is there again";
    EXPECT_EQ((Names{"b", "c"}), zoneNames());
}

TEST_F(RecoveryActionsTest, TellsThatTheFileIsDamaged)
{
    leaveWork();
    damage("name=b", "name=x");
    EXPECT_TRUE(startAndAnswer(recoverButton));
    EXPECT_THAT(question, HasSubstr("1 step, the last one on "));
    EXPECT_THAT(question, HasSubstr("What was done after them cannot be read."));
    ASSERT_EQ(1u, messages.size());
    EXPECT_EQ("1 of 1 step could be recovered. What was done after that cannot be read: the recovery file is damaged.",
              messages.front());
    EXPECT_EQ(Names{"a"}, zoneNames());
    EXPECT_EQ(2, leftFiles().size());
}

TEST_F(RecoveryActionsTest, TellsThatNothingOfTheFileCanBeRead)
{
    leaveWork();
    damage("version=1", "version=x");
    EXPECT_FALSE(startAndAnswer(recoverButton));
    EXPECT_THAT(question, HasSubstr(" What was done cannot be read."));
    ASSERT_EQ(1u, messages.size());
    EXPECT_EQ("Nothing could be recovered. The recovery file is damaged.", messages.front());
    EXPECT_EQ(1, leftFiles().size()) << "it stays, until somebody does not want it any more";
}

TEST_F(RecoveryActionsTest, LeavesNothingWhenTheWindowIsClosed)
{
    start();
    window->openFiles({file}, app::DocumentController::Place::FreshPage);
    rename("a");
    QString asked;
    answerModal(Qt::Key_D, &asked, Qt::AltModifier);
    window->close();
    EXPECT_EQ("unsavedQuestion", asked.toStdString());
    window.reset();
    EXPECT_TRUE(leftFiles().isEmpty());
}

TEST_F(RecoveryActionsTest, LeavesNothingWhenTheWorkIsSaved)
{
    start();
    window->openFiles({file}, app::DocumentController::Place::FreshPage);
    rename("a");
    ASSERT_TRUE(window->documents().save(folder.filePath(QStringLiteral("saved.csv"))));
    crash();
    EXPECT_TRUE(leftFiles().isEmpty());
}

TEST_F(RecoveryActionsTest, KeepsTheFilesWhereTheUserHasDataOrWhereHeWants)
{
    qunsetenv("VELDRAW_RECOVERY_FOLDER");
    EXPECT_THAT(app::RecoveryActions::standardFolder().toStdString(),
                ::testing::EndsWith("/veldraw/window-test/recovery"));
    qputenv("VELDRAW_RECOVERY_FOLDER", "/tmp/a b");
    EXPECT_EQ("/tmp/a b", app::RecoveryActions::standardFolder().toStdString());
    qunsetenv("VELDRAW_RECOVERY_FOLDER");
}

} // namespace veldraw::tests
