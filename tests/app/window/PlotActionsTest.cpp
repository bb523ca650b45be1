#include "app/window/PlotActions.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QTest>

namespace veldraw::tests {

using app::ViewSide;

namespace {

class PlotActionsTest : public WindowTest
{
protected:
    void SetUp() override
    {
        openFlow();
        showWindow();
    }

    app::CentralView makeView() override
    {
        app::CentralView view = WindowTest::makeView();
        view.lookFrom = [this](ViewSide side) { sides.push_back(side); };
        return view;
    }

    void setPlotType(PlotType_e type)
    {
        ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, type)));
        settle();
    }

    std::vector<ViewSide> sides;
};

} // namespace

TEST_F(PlotActionsTest, LookFromTheSideOfEachKey)
{
    setPlotType(PlotType_Cartesian3D);
    Qt::KeyboardModifiers const front = Qt::ControlModifier | Qt::AltModifier;
    Qt::KeyboardModifiers const back = front | Qt::ShiftModifier;
    for (int const key : {Qt::Key_X, Qt::Key_Y, Qt::Key_Z}) {
        QTest::keyClick(window.get(), static_cast<Qt::Key>(key), front);
        QTest::keyClick(window.get(), static_cast<Qt::Key>(key), back);
    }
    QTest::keyClick(window.get(), Qt::Key_I, front);
    EXPECT_EQ((std::vector<ViewSide>{ViewSide::PlusX, ViewSide::MinusX, ViewSide::PlusY, ViewSide::MinusY,
                                     ViewSide::PlusZ, ViewSide::MinusZ, ViewSide::Isometric}),
              sides);
}

TEST_F(PlotActionsTest, LookFromNoSideOfAPlotInThePlane)
{
    setPlotType(PlotType_Cartesian2D);
    EXPECT_FALSE(action("lookFromPlusXAction").isEnabled());
    QTest::keyClick(window.get(), Qt::Key_X, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(sides.empty());
    setPlotType(PlotType_Cartesian3D);
    EXPECT_TRUE(action("lookFromPlusXAction").isEnabled());
}

} // namespace veldraw::tests
