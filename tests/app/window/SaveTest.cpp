#include "app/import/Importer.h"
#include "tests/app/window/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

class SaveTest : public WindowTest
{
protected:
    SaveTest() { openFrames({{"series", makeSeries()}}); }

    void typeInDialog(QString const& name)
    {
        QTimer::singleShot(100, window.get(), [=] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(nullptr, dialog);
            auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
};

} // namespace

TEST_F(SaveTest, TheExtensionChoosesTheFormat)
{
    showWindow();
    QString const path = folder.filePath(QStringLiteral("out.csv"));
    typeInDialog(path);
    action("saveAsAction").trigger();
    app::ImportResult const back = app::importFile(path);
    EXPECT_EQ(2, back.dataSet->variableCount());
    EXPECT_EQ(5, back.dataSet->zone(1)->pointCount());
    EXPECT_TRUE(messages.empty());
}

TEST_F(SaveTest, ANameWithoutExtensionGetsTheOneOfTheFilter)
{
    showWindow();
    typeInDialog(folder.filePath(QStringLiteral("bare")));
    action("saveAsAction").trigger();
    EXPECT_FALSE(QFileInfo(folder.filePath(QStringLiteral("bare"))).isFile());
    EXPECT_EQ(1, QDir(folder.path()).entryList({QStringLiteral("bare.*")}, QDir::Files).size());
}

TEST_F(SaveTest, SavingMakesTheStateClean)
{
    showWindow();
    session.renameVariable(*session.activeDataSet(), 2, "height");
    ASSERT_FALSE(session.history().isClean());
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("out.csv"))));
    EXPECT_TRUE(session.history().isClean());
    settle();
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(SaveTest, EveryDataSetOnThePageHasToBeSaved)
{
    openFrames({{"a", makeSeries()}, {"b", makeSeries()}});
    showWindow();
    session.renameVariable(*session.activeDataSet(), 2, "height");
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("a.csv"))));
    EXPECT_FALSE(session.history().isClean());
    session.activateFrame(session.activePage()->frames[1]->id);
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("b.csv"))));
    EXPECT_TRUE(session.history().isClean());
}

TEST_F(SaveTest, AnUnknownExtensionIsToldAndNothingIsClean)
{
    showWindow();
    session.renameVariable(*session.activeDataSet(), 2, "height");
    EXPECT_FALSE(window->documents().save(folder.filePath(QStringLiteral("out.xyz"))));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("out.xyz")) << messages[0];
    EXPECT_FALSE(session.history().isClean());
}

TEST_F(SaveTest, AFolderThatIsNotThereIsTold)
{
    showWindow();
    EXPECT_FALSE(window->documents().save(folder.filePath(QStringLiteral("nowhere/out.csv"))));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("out.csv")) << messages[0];
}

TEST_F(SaveTest, PicturesAreWritten)
{
    showWindow();
    QString const path = folder.filePath(QStringLiteral("page.png"));
    typeInDialog(path);
    action("savePictureAction").trigger();
    EXPECT_EQ(QSize(8, 6), QImage(path).size());
}

TEST_F(SaveTest, APictureThatCannotBeWrittenIsTold)
{
    showWindow();
    QImage const picture(2, 2, QImage::Format_RGB32);
    EXPECT_FALSE(window->documents().savePicture(picture, folder.filePath(QStringLiteral("nowhere/page.png"))));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("page.png"));
}

} // namespace veldraw::tests
