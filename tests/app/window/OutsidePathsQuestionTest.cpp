#include "app/window/OutsidePathsQuestion.h"

#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

using Place = app::DocumentController::Place;

// A header in a folder of its own, and the values outside of that.
class OutsidePathsQuestionTest : public WindowTest
{
protected:
    OutsidePathsQuestionTest()
    {
        EXPECT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("inner")));
        values = writeFile(QStringLiteral("outer.raw"), QByteArray("\1\2\3", 3));
        header =
            writeFile(QStringLiteral("inner/image.mhd"), "ObjectType = Image\nNDims = 1\nDimSize = 3\nElementType = "
                                                         "MET_UCHAR\nElementDataFile = ../outer.raw\n");
    }

    // Presses a key in the question when it comes, and notes what it says.
    void answer(Qt::Key key)
    {
        look.setInterval(10);
        QObject::connect(&look, &QTimer::timeout, &look, [this, key] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || box->objectName() != QStringLiteral("outsidePathsQuestion"))
                return;
            if (QApplication::activeWindow() != box) // mnemonics of a box that is shown and not yet active do nothing
                return;
            look.stop();
            ++questions;
            text = box->text();
            EXPECT_EQ(Qt::PlainText, box->textFormat()) << "names are no markup";
            EXPECT_EQ(QString(), box->informativeText()) << "which would be markup";
            if (key == Qt::Key_R)
                QTest::keyClick(box, key, Qt::AltModifier);
            else
                QTest::keyClick(box, key);
        });
        look.start();
    }

    QString values;
    QString header;
    QTimer look;
    int questions = 0;
    QString text;
};

} // namespace

TEST_F(OutsidePathsQuestionTest, ShowsWhereTheNamesLeadAndOpensNothingByItself)
{
    openFlow();
    showWindow();
    auto const before = session.activeDataSet();
    answer(Qt::Key_Return);
    EXPECT_FALSE(window->openFiles({header}, Place::FreshPage)) << "the default is the careful answer";
    EXPECT_EQ(1, questions);
    EXPECT_TRUE(text.startsWith(QStringLiteral("image.mhd names files outside of its folder:"))) << text.toStdString();
    EXPECT_TRUE(text.contains(values)) << text.toStdString();
    EXPECT_EQ(before, session.activeDataSet());
    EXPECT_TRUE(messages.empty()) << "the user knows what was chosen";
    EXPECT_EQ(QStringLiteral("image.mhd was not opened."), window->statusBar()->currentMessage());
}

TEST_F(OutsidePathsQuestionTest, HasEscapeForNo)
{
    showWindow();
    answer(Qt::Key_Escape);
    EXPECT_FALSE(window->openFiles({header}, Place::FreshPage));
    EXPECT_EQ(1, questions);
}

TEST_F(OutsidePathsQuestionTest, LetsTheUserReadThem)
{
    showWindow();
    answer(Qt::Key_R);
    EXPECT_TRUE(window->openFiles({header}, Place::FreshPage));
    EXPECT_EQ(1, questions);
    EXPECT_EQ(1, session.activeDataSet()->zoneCount());
    EXPECT_TRUE(messages.empty());
}

TEST_F(OutsidePathsQuestionTest, LeavesTheOtherFilesOfALotAlone)
{
    showWindow();
    answer(Qt::Key_Escape);
    EXPECT_TRUE(window->openFiles({header, writeFile(QStringLiteral("a.csv"), goodTable())}, Place::FreshPage));
    ASSERT_EQ(1u, session.activePage()->frames.size());
    EXPECT_EQ("a", session.activeFrame()->name);
    EXPECT_TRUE(messages.empty());
}

TEST_F(OutsidePathsQuestionTest, ShowsWhatCouldHideANameAsWhatItIs)
{
    showWindow();
    answer(Qt::Key_Escape);
    EXPECT_FALSE(app::mayFollow(*window, header, {"/a\nb\u202ec\u00e4\U0001F600"}));
    EXPECT_TRUE(text.contains(QString::fromUtf8("/a\ufffdb\ufffdc\u00e4\U0001F600\n"))) << text.toStdString();
}

TEST_F(OutsidePathsQuestionTest, ShowsTenOfMany)
{
    showWindow();
    answer(Qt::Key_Escape);
    std::vector<std::string> many;
    for (int n = 1; n <= 12; ++n)
        many.push_back("/elsewhere/<b>" + std::to_string(n) + "</b>");
    EXPECT_FALSE(app::mayFollow(*window, header, many));
    EXPECT_TRUE(text.contains(QStringLiteral("/elsewhere/<b>10</b>\nand 2 more\n"))) << text.toStdString();
}

} // namespace veldraw::tests
