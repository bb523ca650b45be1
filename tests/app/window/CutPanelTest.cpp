#include "app/window/CutPanel.h"

#include "app/window/NumberChooser.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>

namespace veldraw::tests {

namespace {

using kernel::Cut;
using kernel::CutKind;

class CutPanelTest : public WindowTest
{
protected:
    void SetUp() override
    {
        openFlow();
        showWindow();
        action("cutsAction").trigger();
        settle();
    }

    template <typename Widget>
    Widget& find(char const* name)
    {
        return *window->findChild<Widget*>(QString::fromLatin1(name));
    }

    Cut const& add(CutKind kind)
    {
        action(("addCut" + std::to_string(static_cast<int>(kind))).c_str()).trigger();
        settle();
        return cuts().back();
    }

    std::vector<Cut> const& cuts() const { return session.activeFrame()->cuts; }
    QListWidget& list() { return find<QListWidget>("cutList"); }
    QSlider& slider() { return find<QSlider>("cutSlider"); }
    ui::QScientificSpinBox& box(char const* name) { return find<ui::QScientificSpinBox>(name); }

    void type(ui::QScientificSpinBox& field, QString const& text)
    {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        settle();
    }

    QPoint handle()
    {
        QStyleOptionSlider option;
        option.initFrom(&slider());
        option.minimum = slider().minimum();
        option.maximum = slider().maximum();
        option.sliderPosition = slider().sliderPosition();
        option.sliderValue = slider().value();
        option.orientation = Qt::Horizontal;
        return slider()
            .style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider())
            .center();
    }

    // With the button down, which QTest's own move does not tell.
    void dragTo(QPoint const& position)
    {
        QMouseEvent move(QEvent::MouseMove, position, slider().mapToGlobal(position), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&slider(), &move);
        settle();
    }

    std::string undoName() const { return session.history().undoName(); }
};

} // namespace

TEST_F(CutPanelTest, AddsEachKindThroughTheMiddleAndSelectsIt)
{
    EXPECT_FALSE(find<QPushButton>("deleteCut").isEnabled());
    for (int kind = 0; kind < kernel::cutKindCount; ++kind) {
        Cut const& cut = add(static_cast<CutKind>(kind));
        EXPECT_EQ(kind, static_cast<int>(cut.kind));
        EXPECT_EQ(kind + 1, list().count());
        EXPECT_EQ(kind, list().currentRow());
        EXPECT_EQ("New Slice", undoName());
        EXPECT_EQ(kind == static_cast<int>(CutKind::Plane), box("cutNormalX").isVisible()) << kind;
        EXPECT_EQ(kind == static_cast<int>(CutKind::IsoSurface), find<app::NumberChooser>("cutVariable").isVisible());
    }
    EXPECT_EQ(QStringLiteral("X = 1.5"), list().item(0)->text());
    EXPECT_EQ(QStringLiteral("J = 2"), list().item(4)->text());
    EXPECT_EQ(QStringLiteral("P = 13"), list().item(7)->text());
}

TEST_F(CutPanelTest, ATypedNumberIsThePosition)
{
    add(CutKind::X);
    type(box("cutPosition"), QStringLiteral("0.123456789"));
    EXPECT_EQ(0.123456789, cuts()[0].position);
    EXPECT_EQ("Slice", undoName());
    EXPECT_EQ(QStringLiteral("X = 0.123457"), list().item(0)->text());
    session.undo();
    settle();
    EXPECT_EQ(1.5, box("cutPosition").value());
}

TEST_F(CutPanelTest, ANumberThatIsOnlyLookedAtIsNotWritten)
{
    add(CutKind::X);
    type(box("cutPosition"), QStringLiteral("0.123456789123"));
    box("cutPosition").setFocus();
    list().setFocus();
    settle();
    EXPECT_EQ(0.123456789123, cuts()[0].position);
}

TEST_F(CutPanelTest, KeysAndWheelMoveTheSlider)
{
    add(CutKind::X);
    slider().setFocus();
    QTest::keyClick(&slider(), Qt::Key_Home);
    settle();
    EXPECT_EQ(0.0, cuts()[0].position);
    QTest::keyClick(&slider(), Qt::Key_PageUp);
    settle();
    EXPECT_NEAR(0.3, cuts()[0].position, 1e-9);
    QTest::keyClick(&slider(), Qt::Key_Right);
    settle();
    EXPECT_NEAR(0.33, cuts()[0].position, 1e-9);
    QPointF const centre(slider().rect().center());
    QWheelEvent wheel(centre, slider().mapToGlobal(slider().rect().center()), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider(), &wheel);
    settle();
    EXPECT_GT(cuts()[0].position, 0.35);
    session.undo();
    settle();
    EXPECT_NEAR(0.33, cuts()[0].position, 1e-9) << "each is a step";
}

TEST_F(CutPanelTest, StepsOfTheFieldStayWithinTheData)
{
    add(CutKind::I);
    EXPECT_EQ(2.0, cuts()[0].position);
    for (double const wanted : {3.0, 4.0, 4.0}) {
        QTest::keyClick(&box("cutPosition"), Qt::Key_Up);
        settle();
        EXPECT_EQ(wanted, cuts()[0].position);
    }
    QTest::keyClick(&box("cutPosition"), Qt::Key_Down);
    settle();
    EXPECT_EQ(3.0, cuts()[0].position);
}

TEST_F(CutPanelTest, ADragIsOneStepOfTheHistory)
{
    add(CutKind::X);
    QPoint const from = handle();
    QTest::mousePress(&slider(), Qt::LeftButton, {}, from);
    for (int n = 1; n <= 10; ++n) {
        dragTo(from + QPoint(3 * n, 0));
    }
    double const moved = cuts()[0].position;
    ASSERT_GT(moved, 1.6);
    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, from + QPoint(30, 0));
    settle();
    EXPECT_EQ(moved, cuts()[0].position);
    EXPECT_EQ("Slice", undoName());
    session.undo();
    settle();
    EXPECT_EQ(1.5, cuts()[0].position);
    EXPECT_EQ("New Slice", undoName());
    session.redo();
    EXPECT_EQ(moved, cuts()[0].position);
}

TEST_F(CutPanelTest, TheBoxInTheListShowsAndHides)
{
    add(CutKind::X);
    add(CutKind::Y);
    list().setCurrentRow(0);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Space);
    settle();
    EXPECT_FALSE(cuts()[0].isShown);
    EXPECT_TRUE(cuts()[1].isShown);
    session.undo();
    settle();
    EXPECT_EQ(Qt::Checked, list().item(0)->checkState());
}

TEST_F(CutPanelTest, DeletesTheSelectedOne)
{
    add(CutKind::X);
    kernel::UniqueId const kept = add(CutKind::Y).id;
    list().setCurrentRow(0);
    QTest::mouseClick(&find<QPushButton>("deleteCut"), Qt::LeftButton);
    settle();
    ASSERT_EQ(1U, cuts().size());
    EXPECT_EQ(kept, cuts()[0].id);
    EXPECT_EQ(QStringLiteral("Y = 1"), list().item(0)->text());
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Delete);
    settle();
    EXPECT_TRUE(cuts().empty());
}

TEST_F(CutPanelTest, APlaneHasANormalAndAnOrigin)
{
    add(CutKind::Plane);
    type(box("cutNormalY"), QStringLiteral("-2"));
    type(box("cutOriginX"), QStringLiteral("0.5"));
    EXPECT_EQ(-2.0, cuts()[0].normal[1]);
    EXPECT_EQ(0.5, cuts()[0].origin[0]);
    type(box("cutNormalX"), QStringLiteral("0"));
    messages.clear();
    type(box("cutNormalY"), QStringLiteral("0"));
    EXPECT_EQ(-2.0, cuts()[0].normal[1]) << "a plane without a direction is refused";
    EXPECT_EQ(-2.0, box("cutNormalY").value());
}

TEST_F(CutPanelTest, AnotherVariableIsTakenAtItsMiddle)
{
    add(CutKind::IsoSurface);
    app::NumberChooser& chooser = find<app::NumberChooser>("cutVariable");
    chooser.setFocus();
    QTest::keyClick(&chooser, Qt::Key_Up);
    settle();
    EXPECT_EQ(session.activeDataSet()->variable(2)->id, cuts()[0].variable);
    EXPECT_EQ(1.0, cuts()[0].position);
    EXPECT_EQ("Slice", undoName());
}

TEST_F(CutPanelTest, FollowsTheActiveFrameAndItsPlotType)
{
    add(CutKind::X);
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_EQ(0, list().count());
    EXPECT_FALSE(slider().isEnabled());
    EXPECT_FALSE(find<QWidget>("addCut").isEnabled());
    session.undo();
    settle();
    EXPECT_EQ(1, list().count());
    EXPECT_TRUE(slider().isEnabled());
}

TEST_F(CutPanelTest, NothingIsDoneWhileACommandRuns)
{
    add(CutKind::X);
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        action("addCut0").trigger();
        slider().setFocus();
        QTest::keyClick(&slider(), Qt::Key_Home);
    }
    settle();
    EXPECT_EQ(1U, cuts().size());
    EXPECT_EQ(1.5, cuts()[0].position);
}

} // namespace veldraw::tests
