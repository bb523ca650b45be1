#include "app/window/FilmSave.h"

#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetSolutionTime.h"
#include "tests/app/support/FullDisk.h"
#include "tests/app/support/WindowTest.h"
#include "tests/kernel/support/SampleLoader.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

namespace veldraw::tests {

namespace {

/// Twelve moments from 0 to 5.5, of which the fourth is shown. A picture tells its moment by its width.
class FilmSaveTest : public WindowTest
{
protected:
    static constexpr int count = 12;

    void SetUp() override
    {
        openFrames({{"transient", makeTransient(count)}});
        auto const frame = session.activeFrame()->id;
        ASSERT_TRUE(session.perform(kernel::SetPlotType(frame, PlotType_Cartesian2D)));
        ASSERT_TRUE(session.perform(kernel::SetSolutionTime(frame, 1.5)));
        session.history().clear();
        showWindow();
        settle();
    }

    app::CentralView makeView() override
    {
        app::CentralView view = WindowTest::makeView();
        view.picture = [this](app::PictureOptions const&) {
            app::PagePicture picture;
            picture.pixels = [this] {
                ++pictures;
                return blueSquares({10 + qRound(2 * session.activeFrame()->solutionTime), 6}).pixels();
            };
            return picture;
        };
        return view;
    }

    // Types the name of a film when the dialog is there, and leaves the dialog where it comes again.
    void saveFilm(QString const& name)
    {
        bool isTyped = false;
        QTimer type;
        QObject::connect(&type, &QTimer::timeout, &type, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            auto* const edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            edit->setText(folder.filePath(name));
            QTest::keyClick(edit, isTyped ? Qt::Key_Escape : Qt::Key_Return);
            isTyped = true;
        });
        type.start(50);
        action("saveFilmAction").trigger();
        EXPECT_TRUE(isTyped);
    }

    QStringList filesIn(QString const& name) const
    {
        return QDir(folder.filePath(name)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QStringList all() const
    {
        return QDir(folder.path())
            .entryList({QStringLiteral("*wake*")}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    void expectAllAsBefore()
    {
        EXPECT_EQ(1.5, session.activeFrame()->solutionTime);
        EXPECT_FALSE(session.history().canUndo());
    }

    std::string status() { return window->statusBar()->currentMessage().toStdString(); }

    int pictures = 0;
};

} // namespace

TEST_F(FilmSaveTest, HasAPictureOfEachMomentInOrder)
{
    saveFilm(QStringLiteral("wake.png"));
    EXPECT_EQ(QStringList{QStringLiteral("wake_film")}, all());
    QStringList const files = filesIn(QStringLiteral("wake_film"));
    ASSERT_EQ(count, files.size());
    EXPECT_EQ(QStringLiteral("wake_0001.png"), files.first());
    EXPECT_EQ(QStringLiteral("wake_0012.png"), files.last());
    for (int step = 0; step < count; ++step)
        EXPECT_EQ(QSize(10 + step, 6), QImage(folder.filePath(QStringLiteral("wake_film/") + files[step])).size());
    EXPECT_EQ("Saved 12 pictures in wake_film", status());
    expectAllAsBefore();
    EXPECT_TRUE(messages.empty());
}

TEST_F(FilmSaveTest, LeavesTheLastMomentAsItIsWhereThatIsShown)
{
    ASSERT_TRUE(session.perform(kernel::SetSolutionTime(session.activeFrame()->id, 5.5)));
    saveFilm(QStringLiteral("wake"));
    EXPECT_EQ(count, filesIn(QStringLiteral("wake_film")).size());
    EXPECT_EQ(5.5, session.activeFrame()->solutionTime);
    ASSERT_TRUE(session.undo()) << "the user's own step is the newest";
    EXPECT_EQ(1.5, session.activeFrame()->solutionTime);
}

TEST_F(FilmSaveTest, ThatIsCancelledLeavesNothing)
{
    QTimer cancel;
    QObject::connect(&cancel, &QTimer::timeout, &cancel, [&] {
        QWidget* const progress = QApplication::activeModalWidget();
        if (progress && progress->objectName() == QStringLiteral("progressWindow") && pictures >= 3)
            QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("progressCancel")), Qt::LeftButton);
    });
    cancel.start(0);
    saveFilm(QStringLiteral("wake.png"));
    EXPECT_LT(pictures, count);
    EXPECT_TRUE(all().empty());
    EXPECT_EQ("Saving was cancelled.", status());
    expectAllAsBefore();
}

TEST_F(FilmSaveTest, TakesThePlaceOfAnEarlierOneAfterAQuestion)
{
    QDir(folder.path()).mkdir(QStringLiteral("wake_film"));
    writeFile(QStringLiteral("wake_film/wake_0077.png"), "old");
    QString answer = QStringLiteral("Cancel");
    QStringList questions;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        questions << box->text();
        for (QAbstractButton* const button : box->buttons())
            if (button->text().remove(QLatin1Char('&')) == answer)
                return QTest::mouseClick(button, Qt::LeftButton);
    });
    look.start(20);
    saveFilm(QStringLiteral("wake.png"));
    EXPECT_EQ(QStringList{QStringLiteral("wake_0077.png")}, filesIn(QStringLiteral("wake_film")));
    EXPECT_EQ(0, pictures);
    answer = QStringLiteral("Replace");
    saveFilm(QStringLiteral("wake.png"));
    EXPECT_EQ(count, filesIn(QStringLiteral("wake_film")).size());
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("wake_film/wake_0077.png"))));
    QString const text = QStringLiteral("To save the film replaces the folder \"%1\" with a picture.");
    QString const expected = text.arg(folder.filePath(QStringLiteral("wake_film")));
    EXPECT_EQ((QStringList{expected, expected}), questions);
}

TEST_F(FilmSaveTest, TouchesNoFolderWithOtherThings)
{
    QDir(folder.path()).mkdir(QStringLiteral("wake_film"));
    writeFile(QStringLiteral("wake_film/notes.txt"), "mine");
    saveFilm(QStringLiteral("wake.png"));
    EXPECT_EQ(QStringList{QStringLiteral("notes.txt")}, filesIn(QStringLiteral("wake_film")));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("notes.txt")) << messages[0];
    expectAllAsBefore();
}

TEST_F(FilmSaveTest, ThatDoesNotFitOnTheDiskIsToldAndLeavesNothing)
{
    {
        FullDisk const full;
        saveFilm(QStringLiteral("wake.png"));
    }
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("larger than a file may be")) << messages[0];
    EXPECT_TRUE(all().empty());
    expectAllAsBefore();
}

TEST_F(FilmSaveTest, OfAMomentThatCannotBeLoadedIsToldAndLeavesNothing)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>(12, 1.0));
    loader->before = [](kernel::Progress&) { throw std::runtime_error("the disk is gone"); };
    session.activeDataSet()->zone(9)->fields[0] = sample::Loader::field(loader);
    saveFilm(QStringLiteral("wake.png"));
    ASSERT_EQ(1u, messages.size());
    EXPECT_NE(std::string::npos, messages[0].find("the disk is gone")) << messages[0];
    EXPECT_TRUE(all().empty());
    EXPECT_EQ(8, pictures);
    expectAllAsBefore();
}

TEST_F(FilmSaveTest, IsOfTransientFieldPlotsAlone)
{
    EXPECT_TRUE(action("saveFilmAction").isEnabled());
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_FALSE(action("saveFilmAction").isEnabled());
    session.setFrameDataSet(session.activeFrame()->id, makeFlow());
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D));
    settle();
    EXPECT_FALSE(action("saveFilmAction").isEnabled());
}

TEST_F(FilmSaveTest, OrASinglePictureForTheClipboardShowsThePage)
{
    QTest::keyClick(window.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QSize(13, 6), QApplication::clipboard()->image().size());
    EXPECT_EQ("Copied the picture", status());
}

} // namespace veldraw::tests
