#include "app/import/Importer.h"
#include "app/window/ProgressWindow.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/FullDisk.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace veldraw::tests {

namespace {

class SaveTest : public WindowTest
{
protected:
    SaveTest() { openFrames({{"series", makeSeries()}}); }

    std::string status() { return window->statusBar()->currentMessage().toStdString(); }

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

TEST_F(SaveTest, WhatAFormatRefusesIsAskedForAgainWithWhatWasTyped)
{
    showWindow();
    QString const path = folder.filePath(QStringLiteral("series.xyz"));
    typeInDialog(path);
    QString kept;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || messages.empty())
            return;
        look.stop();
        auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        kept = edit->text();
        edit->setText(folder.filePath(QStringLiteral("series.csv")));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    look.start(50);
    action("saveAsAction").trigger();
    EXPECT_EQ(1u, messages.size());
    EXPECT_EQ(QStringLiteral("series.xyz"), QFileInfo(kept).fileName());
    EXPECT_TRUE(QFileInfo::exists(folder.filePath(QStringLiteral("series.csv"))));
}

TEST_F(SaveTest, AnotherFilterGivesTheNameItsExtension)
{
    showWindow();
    QStringList names;
    QTimer::singleShot(100, window.get(), [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(nullptr, dialog);
        auto const noteName = [&] { names << dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(); };
        noteName();
        auto* const filters = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        filters->setFocus();
        QTest::keyClick(filters, Qt::Key_End);
        noteName();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(window->documents().saveAs());
    ASSERT_EQ(2, names.size());
    EXPECT_EQ(QStringLiteral("series.vtm"), QFileInfo(names[0]).fileName());
    EXPECT_EQ(QStringLiteral("series.tsv"), QFileInfo(names[1]).fileName());
}

TEST_F(SaveTest, AFolderOfTheFramesNameIsNotEntered)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("series")));
    QSettings().setValue(QStringLiteral("lastFolder"), folder.path());
    showWindow();
    QString directory;
    QTimer::singleShot(100, window.get(), [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(nullptr, dialog);
        directory = dialog->directory().absolutePath();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    window->documents().saveAs();
    EXPECT_EQ(QDir(folder.path()).absolutePath(), directory);
}

TEST_F(SaveTest, GivingUpAfterARefusalSavesNothing)
{
    showWindow();
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 2, "height"));
    typeInDialog(folder.filePath(QStringLiteral("series.xyz")));
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (QWidget* const dialog = QApplication::activeModalWidget(); dialog && !messages.empty())
            QTest::keyClick(dialog, Qt::Key_Escape);
    });
    look.start(50);
    EXPECT_FALSE(window->documents().saveAs());
    EXPECT_FALSE(session.history().isClean());
}

TEST_F(SaveTest, SavingMakesTheStateClean)
{
    showWindow();
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 2, "height"));
    ASSERT_FALSE(session.history().isClean());
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("out.csv"))));
    EXPECT_TRUE(session.history().isClean());
    settle();
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(SaveTest, ALongOneCanBeCancelledAndLeavesTheOldFileWhole)
{
    auto const series = std::make_shared<kernel::DataSet>("long series");
    constexpr int rows = 10000000; // of text, which takes many seconds
    series->addZone(std::make_shared<kernel::Zone>("probe", ZoneType_Ordered, rows, 1, 1));
    auto const values = std::make_shared<kernel::ShareGroup>(kernel::Buffer::allocate(FieldDataType_Double, rows));
    for (int variable = 0; variable < 30; ++variable) {
        series->addVariable(std::make_shared<kernel::Variable>("v" + std::to_string(variable)));
        series->zone(1)->fields.back() = kernel::Field(values, ValueLocation_Nodal);
    }
    openFrames({{"series", series}});
    showWindow();
    session.perform(kernel::RenameVariable(*series, 1, "time"));
    QString const path = writeFile(QStringLiteral("out.csv"), "old");
    QString title;
    std::function<void()> const cancel = [&] {
        auto* const progress = dynamic_cast<app::ProgressWindow*>(QApplication::activeModalWidget());
        if (!progress) {
            QTimer::singleShot(5, window.get(), cancel);
            return;
        }
        title = progress->windowTitle();
        QTest::keyClick(progress->windowHandle(), Qt::Key_Escape);
    };
    QTimer::singleShot(5, window.get(), cancel);
    EXPECT_FALSE(window->documents().save(path));
    EXPECT_EQ(QStringLiteral("Save out.csv"), title);
    EXPECT_TRUE(messages.empty()) << "the user knows";
    EXPECT_EQ(QStringLiteral("Saving was cancelled."), window->statusBar()->currentMessage());
    EXPECT_FALSE(session.history().isClean());
    EXPECT_EQ(1, QDir(folder.path()).entryList({QStringLiteral("out*")}, QDir::Files).size());
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ("old", old.readAll());
}

TEST_F(SaveTest, EveryDataSetThatWasChangedHasToBeSaved)
{
    openFrames({{"a", makeSeries()}, {"b", makeSeries()}});
    showWindow();
    auto const frames = session.activePage()->frames;
    for (auto const& frame : frames)
        session.perform(kernel::RenameVariable(*frame->dataSet, 2, "height"));
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("a.csv"))));
    EXPECT_EQ("Saved a.csv. Other frames still have unsaved data.", status());
    EXPECT_FALSE(session.history().isClean());
    session.activateFrame(frames[1]->id);
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("b.csv"))));
    EXPECT_EQ("Saved b.csv", status());
    EXPECT_TRUE(session.history().isClean());
}

TEST_F(SaveTest, ADataSetThatNobodyTouchedIsNothingToSave)
{
    openFrames({{"a", makeSeries()}, {"b", makeSeries()}});
    showWindow();
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 2, "height"));
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("a.csv"))));
    EXPECT_EQ("Saved a.csv", status());
    settle();
    ASSERT_FALSE(window->isWindowModified());
    EXPECT_TRUE(window->close()) << "without a question";
}

TEST_F(SaveTest, OneThatWasSavedStaysSavedWhileOthersChange)
{
    openFrames({{"a", makeSeries()}, {"b", makeSeries()}});
    showWindow();
    auto const frames = session.activePage()->frames;
    session.perform(kernel::RenameVariable(*frames[0]->dataSet, 2, "height"));
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("a.csv"))));
    session.perform(kernel::RenameVariable(*frames[1]->dataSet, 2, "width"));
    session.activateFrame(frames[1]->id);
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("b.csv"))));
    EXPECT_EQ("Saved b.csv", status()) << "the first need not be saved again";
}

TEST_F(SaveTest, ChangesOfADeletedFrameAreTold)
{
    openFrames({{"a", makeSeries()}, {"b", makeSeries()}});
    showWindow();
    auto const first = session.activePage()->frames[0];
    session.perform(kernel::RenameVariable(*first->dataSet, 2, "height"));
    ASSERT_TRUE(session.perform(kernel::DeleteFrame(first->id)));
    EXPECT_TRUE(window->documents().save(folder.filePath(QStringLiteral("b.csv"))));
    EXPECT_EQ("Saved b.csv. A frame that was deleted has unsaved data.", status());
    EXPECT_FALSE(session.history().isClean());
}

TEST_F(SaveTest, WhatNoFileHoldsIsNothingToSave)
{
    showWindow();
    ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D)));
    ASSERT_TRUE(session.perform(kernel::EnableVariable(*session.activeDataSet(), 2, false)));
    EXPECT_TRUE(session.history().isClean());
    ASSERT_TRUE(session.perform(kernel::RenameZone(*session.activeDataSet(), 1, "probe 2")));
    EXPECT_FALSE(session.history().isClean()) << "files hold the names of zones";
}

TEST_F(SaveTest, AnUnknownExtensionIsToldAndNothingIsClean)
{
    showWindow();
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 2, "height"));
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

TEST_F(SaveTest, TablesOfAnEarlierSaveAreReplacedAfterAQuestionOnly)
{
    auto const twoZones = makeSeries();
    twoZones->addZone(std::make_shared<kernel::Zone>(*twoZones->zone(1)));
    openFrames({{"series", twoZones}});
    showWindow();
    QString const path = folder.filePath(QStringLiteral("out.csv"));
    QString const table = folder.filePath(QStringLiteral("out_tables/out_2.csv"));
    ASSERT_TRUE(window->documents().save(path));
    ASSERT_TRUE(QFile::remove(table));
    QStringList questions;
    QString answer = QStringLiteral("Cancel");
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        questions << box->text();
        EXPECT_EQ(box->button(QMessageBox::Cancel), box->defaultButton());
        for (QAbstractButton* const button : box->buttons())
            if (button->text().remove(QLatin1Char('&')) == answer)
                button->click();
    });
    look.start(20);
    EXPECT_FALSE(window->documents().save(path));
    EXPECT_FALSE(QFile::exists(table));
    EXPECT_TRUE(messages.empty());
    answer = QStringLiteral("Replace");
    EXPECT_TRUE(window->documents().save(path));
    EXPECT_TRUE(QFile::exists(table));
    QString const text = QStringLiteral("To save \"out.csv\" also replaces the folder \"%1\" with a table.");
    QString const expected = text.arg(folder.filePath(QStringLiteral("out_tables")));
    EXPECT_EQ((QStringList{expected, expected}), questions);
}

TEST_F(SaveTest, SeveralTablesAreKnownByTheirFolder)
{
    auto const twoZones = makeSeries();
    twoZones->addZone(std::make_shared<kernel::Zone>(*twoZones->zone(1)));
    openFrames({{"series", twoZones}});
    showWindow();
    QString const path = writeFile(QStringLiteral("out.csv"), "another table");
    ASSERT_TRUE(window->documents().save(path));
    EXPECT_EQ(folder.filePath(QStringLiteral("out_tables")), window->documents().fileOf(*twoZones));
    EXPECT_EQ("Saved out_tables", status());
    EXPECT_EQ(QStringLiteral("out_tables[*]"), window->windowTitle().section(QStringLiteral(" \u2013 "), 0, 0));
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
    EXPECT_FALSE(window->documents().savePicture(blueSquares({2, 2}), {}, folder.filePath(QStringLiteral("nowhere/page.png"))));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("page.png"));
}

TEST_F(SaveTest, APictureThatDoesNotFitOnTheDiskIsToldAndLeavesTheOldOne)
{
    showWindow();
    QString const path = writeFile(QStringLiteral("page.png"), "old");
    {
        FullDisk const full;
        EXPECT_FALSE(window->documents().savePicture(blueSquares({200, 200}), {}, path));
    }
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("page.png: the picture could not be written: it would be larger than "
                                                  "a file may be"))
        << messages[0];
    EXPECT_EQ(QStringList{QStringLiteral("page.png")}, QDir(folder.path()).entryList(QDir::Files));
    EXPECT_EQ(3, QFileInfo(path).size());
}

} // namespace veldraw::tests
