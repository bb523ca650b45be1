#include "app/window/TimePanel.h"

#include "dialogs/widgets/QScientificSpinBox.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"
#include "tests/kernel/support/SampleLoader.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

namespace veldraw::tests {

namespace {

/// The inlet at the times 0, 0.5, 1, ... in one strand.
class TimePanelTest : public WindowTest
{
protected:
    static constexpr int count = 12;

    void SetUp() override
    {
        openFrames({{"transient", makeTransient(count)}});
        ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D)));
        session.history().clear();
        showWindow();
        action("timeAction").trigger();
        settle();
    }

    app::CentralView makeView() override
    {
        app::CentralView view = WindowTest::makeView();
        view.isDrawing = [this] { return isDrawing; };
        return view;
    }

    template <typename Widget>
    Widget& find(char const* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }

    void press(char const* button)
    {
        QTest::mouseClick(&find<QToolButton>(button), Qt::LeftButton);
        settle();
    }

    double time() const { return session.activeFrame()->solutionTime; }
    QString step() { return find<QLabel>("timeStep").text(); }
    QSlider& slider() { return find<QSlider>("timeSlider"); }
    ui::QScientificSpinBox& field() { return find<ui::QScientificSpinBox>("timeField"); }
    bool isPlaying() { return find<QToolButton>("timePlay").accessibleName() == QStringLiteral("Pause"); }
    std::string undoName() const { return session.history().undoName(); }

    void type(QString const& text)
    {
        field().setFocus();
        field().selectAll();
        QTest::keyClicks(&field(), text);
        QTest::keyClick(&field(), Qt::Key_Return);
        settle();
    }

    bool isDrawing = false;
};

} // namespace

TEST_F(TimePanelTest, ButtonsGoToTheEndsAndOneOnAndBack)
{
    EXPECT_EQ(QStringLiteral("Moment 1 of 12"), step());
    EXPECT_FALSE(find<QToolButton>("timeFirst").isEnabled());
    EXPECT_FALSE(find<QToolButton>("timeBack").isEnabled());
    press("timeOn");
    EXPECT_EQ(0.5, time());
    press("timeOn");
    press("timeBack");
    EXPECT_EQ(0.5, time());
    press("timeLast");
    EXPECT_EQ(5.5, time());
    EXPECT_EQ(QStringLiteral("Moment 12 of 12"), step());
    EXPECT_EQ(11, slider().value());
    EXPECT_FALSE(find<QToolButton>("timeOn").isEnabled());
    EXPECT_FALSE(find<QToolButton>("timeLast").isEnabled());
    press("timeFirst");
    EXPECT_EQ(0.0, time());
    EXPECT_EQ("Solution Time", undoName());
    session.undo();
    settle();
    EXPECT_EQ(5.5, field().value());
}

TEST_F(TimePanelTest, ATypedTimeMayBeBetweenAndBeyondMoments)
{
    type(QStringLiteral("0.7"));
    EXPECT_EQ(0.7, time());
    EXPECT_EQ(QStringLiteral("Moment 2 of 12"), step());
    QTest::keyClick(&field(), Qt::Key_Up);
    settle();
    EXPECT_EQ(1.0, time());
    QTest::keyClick(&field(), Qt::Key_Down);
    settle();
    EXPECT_EQ(0.5, time());
    type(QStringLiteral("-3"));
    EXPECT_EQ(QStringLiteral("Before the first of 12"), step());
    press("timeOn");
    EXPECT_EQ(0.0, time());
}

TEST_F(TimePanelTest, KeysMoveTheSliderThroughTheMoments)
{
    slider().setFocus();
    QTest::keyClick(&slider(), Qt::Key_Right);
    settle();
    EXPECT_EQ(0.5, time());
    QTest::keyClick(&slider(), Qt::Key_End);
    settle();
    EXPECT_EQ(5.5, time());
    session.undo();
    EXPECT_EQ(0.5, time()) << "each is a step";
}

TEST_F(TimePanelTest, ADragIsOneStepOfTheHistory)
{
    press("timeOn");
    slider().setSliderDown(true);
    for (int place = 2; place < 7; ++place) {
        slider().setSliderPosition(place);
        Q_EMIT slider().actionTriggered(QAbstractSlider::SliderMove);
        settle();
    }
    slider().setSliderDown(false);
    EXPECT_EQ(3.0, time());
    press("timeOn");
    session.undo();
    EXPECT_EQ(3.0, time());
    session.undo();
    EXPECT_EQ(0.5, time());
}

TEST_F(TimePanelTest, PlaysToTheLastMomentInOneStep)
{
    find<QSpinBox>("timeSpeed").setValue(60);
    press("timePlay");
    EXPECT_TRUE(isPlaying());
    QTRY_VERIFY_WITH_TIMEOUT(!isPlaying(), 5000);
    EXPECT_EQ(5.5, time());
    session.undo();
    settle();
    EXPECT_EQ(0.0, time());
    EXPECT_FALSE(session.history().canUndo());
    session.redo();
    settle();
    press("timePlay");
    EXPECT_TRUE(isPlaying());
    EXPECT_LT(time(), 5.5) << "at the end it begins anew";
    press("timePlay");
    EXPECT_FALSE(isPlaying());
}

TEST_F(TimePanelTest, PlaysRoundAndRound)
{
    QTest::mouseClick(&find<QCheckBox>("timeLoop"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(find<QCheckBox>("timeLoop").isChecked());
    find<QSpinBox>("timeSpeed").setValue(60);
    press("timeLast");
    press("timePlay");
    QTRY_VERIFY_WITH_TIMEOUT(time() > 5.0, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(time() < 1.0, 5000);
    EXPECT_TRUE(isPlaying());
    press("timePlay");
    EXPECT_FALSE(isPlaying());
}

TEST_F(TimePanelTest, NoMomentIsShownBeforeTheLastOneIsDrawn)
{
    find<QSpinBox>("timeSpeed").setValue(60);
    isDrawing = true;
    press("timePlay");
    QTest::qWait(200);
    EXPECT_EQ(0.0, time());
    isDrawing = false;
    QTRY_VERIFY_WITH_TIMEOUT(time() > 0.0, 5000);
}

TEST_F(TimePanelTest, NothingPlaysWhileACommandRuns)
{
    find<QSpinBox>("timeSpeed").setValue(60);
    press("timePlay");
    double before = 0.0;
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        before = time();
        QTest::qWait(200);
        EXPECT_EQ(before, time());
    }
    QTRY_VERIFY_WITH_TIMEOUT(time() > before, 5000);
}

TEST_F(TimePanelTest, AnotherFrameStopsIt)
{
    press("timePlay");
    kernel::UniqueId const played = session.activeFrame()->id;
    ASSERT_TRUE(session.createFrame("other", {1, 1, 2, 2}));
    session.activateFrame(session.activePage()->frames.back()->id);
    QTRY_VERIFY_WITH_TIMEOUT(!isPlaying(), 5000);
    EXPECT_LT(session.frame(played)->solutionTime, 5.0);
}

TEST_F(TimePanelTest, SaysWhyThereIsNoTime)
{
    auto& notice = find<QLabel>("timeNotice");
    EXPECT_FALSE(notice.isVisible());
    EXPECT_TRUE(slider().isEnabled());
    ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine)));
    settle();
    EXPECT_EQ(QStringLiteral("Time goes on in 2D and 3D plots."), notice.text());
    EXPECT_TRUE(notice.isVisible());
    EXPECT_FALSE(slider().isEnabled());
    session.setFrameDataSet(session.activeFrame()->id, makeFlow());
    settle();
    EXPECT_TRUE(notice.text().startsWith(QStringLiteral("The data set shows one moment only")))
        << notice.text().toStdString();
    session.clear();
    settle();
    EXPECT_EQ(QStringLiteral("There is no data set in the active frame."), notice.text());
    EXPECT_FALSE(find<QToolButton>("timePlay").isEnabled());
}

TEST_F(TimePanelTest, WhatCannotBeLoadedIsToldAndEndsPlaying)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>(12, 1.0));
    loader->before = [](kernel::Progress&) { throw std::runtime_error("the disk is gone"); };
    session.activeDataSet()->zone(4)->fields[0] = sample::Loader::field(loader);
    find<QSpinBox>("timeSpeed").setValue(60);
    press("timePlay");
    QTRY_VERIFY_WITH_TIMEOUT(!isPlaying(), 5000);
    EXPECT_EQ(1.0, time());
    EXPECT_NE(session.lastError().find("the disk is gone"), std::string::npos);
}

TEST_F(TimePanelTest, BringsBackWhatAnUndoneStepNeeds)
{
    auto const loader = std::make_shared<sample::Loader>(std::vector<double>(12, 1.0));
    press("timeOn");
    session.activeDataSet()->zone(1)->fields[0] = sample::Loader::field(loader);
    session.undo();
    settle();
    EXPECT_EQ(0.0, time());
    EXPECT_TRUE(session.activeDataSet()->field(1, 1)->isLoaded());
    EXPECT_EQ(1, loader->loads);
}

} // namespace veldraw::tests
