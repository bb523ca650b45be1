#include "app/window/FileNameQuestion.h"

#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

// Types a name into the file dialog, as often as it comes, and answers what is asked then.
class FileNameQuestionTest : public WindowTest
{
protected:
    FileNameQuestionTest()
    {
        look.setInterval(10);
        QObject::connect(&look, &QTimer::timeout, &look, [this] {
            QWidget* const modal = QApplication::activeModalWidget();
            if (auto* const dialog = qobject_cast<QFileDialog*>(modal))
                type(*dialog);
            else if (auto* const box = qobject_cast<QMessageBox*>(modal); box && QApplication::activeWindow() == box)
                reply(*box); // mnemonics of one that is not active yet do nothing
        });
    }

    // @param name to be typed @param given answers by their letters, one for each question; Esc when there are none left
    void saveAs(QString const& name, QList<Qt::Key> const& given)
    {
        typed = name;
        answers = given;
        names.clear();
        questions.clear();
        look.start();
        action("saveAsAction").trigger();
        look.stop();
    }

    QString contentOf(QString const& name)
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    static std::shared_ptr<kernel::DataSet> makeTwoSeries()
    {
        auto const twoZones = makeSeries();
        twoZones->addZone(std::make_shared<kernel::Zone>(*twoZones->zone(1)));
        return twoZones;
    }

    QStringList names; ///< that stood in the dialog when it came
    QStringList questions;

private:
    void type(QFileDialog& dialog)
    {
        auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        names << QFileInfo(edit->text()).fileName();
        if (names.size() > 1 && answers.isEmpty())
            return QTest::keyClick(&dialog, Qt::Key_Escape);
        edit->setText(folder.filePath(typed));
        QTest::keyClick(edit, Qt::Key_Return);
    }

    void reply(QMessageBox& box)
    {
        if (&box == answered) // its button is still going down
            return;
        answered = &box;
        questions << box.text();
        EXPECT_EQ(box.button(QMessageBox::Cancel), box.defaultButton());
        if (answers.isEmpty())
            QTest::keyClick(&box, Qt::Key_Escape);
        else
            QTest::keyClick(&box, answers.takeFirst(), Qt::AltModifier);
    }

    QTimer look;
    QString typed;
    QList<Qt::Key> answers;
    QPointer<QMessageBox> answered;
};

} // namespace

TEST_F(FileNameQuestionTest, IsFollowedByAnotherWhereAFileWouldBeReplaced)
{
    openFrames({{"series", makeSeries()}});
    showWindow();
    writeFile(QStringLiteral("out.csv"), "another table");
    saveAs(QStringLiteral("out.csv"), {});
    EXPECT_EQ(QStringList{QStringLiteral("There is already a file \"out.csv\".")}, questions);
    EXPECT_EQ(QStringLiteral("another table"), contentOf(QStringLiteral("out.csv")));
    ASSERT_EQ(2, names.size()) << "the dialog comes again";
    EXPECT_EQ(QStringLiteral("out.csv"), names.last());
    saveAs(QStringLiteral("out.csv"), {Qt::Key_R});
    EXPECT_EQ(1, questions.size());
    EXPECT_EQ(1, names.size());
    EXPECT_TRUE(contentOf(QStringLiteral("out.csv")).startsWith(QStringLiteral("t,v\n"))) << "it was replaced";
    EXPECT_TRUE(messages.empty());
}

TEST_F(FileNameQuestionTest, AsksNothingAboutAFileThatStaysBesideAFolderOfTables)
{
    openFrames({{"series", makeTwoSeries()}});
    showWindow();
    writeFile(QStringLiteral("out.csv"), "another table");
    saveAs(QStringLiteral("out.csv"), {});
    EXPECT_EQ(QStringList(), questions);
    EXPECT_EQ(1, names.size());
    EXPECT_EQ(QStringLiteral("another table"), contentOf(QStringLiteral("out.csv")));
    EXPECT_TRUE(contentOf(QStringLiteral("out_tables/out_2.csv")).startsWith(QStringLiteral("t,v\n")));
    saveAs(QStringLiteral("out.csv"), {});
    ASSERT_EQ(1, questions.size());
    EXPECT_TRUE(questions[0].contains(QStringLiteral("also replaces the folder"))) << questions[0].toStdString();
    EXPECT_TRUE(messages.empty());
}

TEST_F(FileNameQuestionTest, AsksNothingAboutAFileThatItRefusesToReplace)
{
    openFrames({{"series", makeTwoSeries()}});
    showWindow();
    writeFile(QStringLiteral("out.xyz"), "something else");
    saveAs(QStringLiteral("out.xyz"), {});
    EXPECT_EQ(QStringList(), questions);
    EXPECT_EQ(1u, messages.size());
    EXPECT_EQ(QStringLiteral("something else"), contentOf(QStringLiteral("out.xyz")));
}

} // namespace veldraw::tests
