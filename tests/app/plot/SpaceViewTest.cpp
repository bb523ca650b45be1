#include "app/plot/SpaceView.h"

#include "app/plot/PlotTheme.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QTest>
#include <vtkActor2DCollection.h>
#include <vtkCamera.h>
#include <vtkTextActor.h>

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

using app::ViewSide;

namespace {

using Direction = std::array<double, 3>;

/// Where the eye is, seen from what it looks at, one away.
Direction eyeOf(app::FieldView const& view)
{
    double const* const looking = view.stage().GetActiveCamera()->GetDirectionOfProjection();
    return {-looking[0], -looking[1], -looking[2]};
}

Direction upOf(app::FieldView const& view)
{
    Direction up{};
    view.stage().GetActiveCamera()->GetViewUp(up.data());
    return up;
}

void expectNear(Direction const& expected, Direction const& found, char const* what)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(expected[axis], found[axis], 1e-9) << what << ", axis " << axis;
}

/// The texts at the axes that are shown.
std::vector<vtkTextActor*> textsOf(app::FieldView const& view)
{
    std::vector<vtkTextActor*> texts;
    vtkActor2DCollection* const all = view.stage().GetActors2D();
    all->InitTraversal();
    while (vtkActor2D* const actor = all->GetNextActor2D())
        if (auto* const text = vtkTextActor::SafeDownCast(actor); text && text->GetVisibility() != 0)
            texts.push_back(text);
    return texts;
}

std::shared_ptr<kernel::Frame> blockIn(PlotType_e plotType)
{
    return SampleData::frame("Bent block", SampleData::block(20, 15, 10), plotType);
}

} // namespace

TEST(SpaceView, LooksFromEachSideWithTheThirdAxisUpwards)
{
    PlotTestPage page({blockIn(PlotType_Cartesian3D)});
    page.picture();
    struct Case
    {
        ViewSide side;
        Direction eye;
        Direction up;
    };
    double const third = 1.0 / std::sqrt(3.0);
    double const sixth = 1.0 / std::sqrt(6.0);
    for (Case const& look : {Case{ViewSide::PlusX, {1, 0, 0}, {0, 0, 1}}, Case{ViewSide::MinusX, {-1, 0, 0}, {0, 0, 1}},
                             Case{ViewSide::PlusY, {0, 1, 0}, {0, 0, 1}}, Case{ViewSide::MinusY, {0, -1, 0}, {0, 0, 1}},
                             Case{ViewSide::PlusZ, {0, 0, 1}, {0, 1, 0}}, Case{ViewSide::MinusZ, {0, 0, -1}, {0, 1, 0}},
                             Case{ViewSide::Isometric, {-third, -third, third}, {sixth, sixth, 2 * sixth}}}) {
        page.view().lookFrom(look.side);
        std::string const name = "look-from-" + std::to_string(static_cast<int>(look.side));
        EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0, name)), 10000) << "the plot is fitted";
        expectNear(look.eye, eyeOf(page.field()), name.c_str());
        expectNear(look.up, upOf(page.field()), name.c_str());
    }
}

TEST(SpaceView, HasTheNumbersOfItsAxesOutsideOfTheBoxAlsoSeenStraightFromASide)
{
    PlotTestPage page({blockIn(PlotType_Cartesian3D)});
    page.picture();
    for (ViewSide const side : {ViewSide::PlusX, ViewSide::MinusX, ViewSide::PlusY, ViewSide::MinusY, ViewSide::PlusZ,
                                ViewSide::MinusZ, ViewSide::Isometric}) {
        page.view().lookFrom(side);
        QImage const plot = page.plot();
        auto const textIn = [&](QRect const& part) {
            return PlotTestPage::pixelsNear(plot.copy(part), app::PlotTheme::quietText(), 6);
        };
        QRect const inside(plot.width() / 4, plot.height() / 6, plot.width() * 4 / 10, plot.height() * 6 / 10);
        bool const isStraight = side != ViewSide::Isometric;
        EXPECT_GT(textIn(plot.rect()), 100) << static_cast<int>(side);
        EXPECT_LT(isStraight ? textIn(inside) : 0, 20) << static_cast<int>(side);
    }
}

TEST(SpaceView, HasNumbersAtItsAxesWhereTheEyeIsInsideTheBox)
{
    PlotTestPage page({blockIn(PlotType_Cartesian3D)});
    page.picture();
    page.field().zoom(1000.0, {0.5, 0.5});
    EXPECT_GE(textsOf(page.field()).size(), 3U);
}

TEST(SpaceView, HasTheNumbersOfTheUprightAxisAtTheLeftFromEachSide)
{
    PlotTestPage page({blockIn(PlotType_Cartesian3D)});
    page.picture();
    for (auto const& [side, name] :
         {std::pair{ViewSide::PlusX, "Z"}, std::pair{ViewSide::MinusX, "Z"}, std::pair{ViewSide::PlusY, "Z"},
          std::pair{ViewSide::MinusY, "Z"}, std::pair{ViewSide::PlusZ, "Y"}, std::pair{ViewSide::MinusZ, "Y"}}) {
        page.view().lookFrom(side);
        int found = 0;
        for (vtkTextActor* const text : textsOf(page.field()))
            if (std::string(text->GetInput()) == name) {
                ++found;
                EXPECT_LT(text->GetPosition()[0], 0.3 * page.field().stage().GetSize()[0]) << static_cast<int>(side);
            }
        EXPECT_EQ(found, 1) << static_cast<int>(side);
    }
}

TEST(SpaceView, ShowsTheWholeAlsoAfterItWasMoved)
{
    PlotTestPage page({blockIn(PlotType_Cartesian3D)});
    page.view().lookFrom(ViewSide::PlusY);
    QImage const whole = page.plot();
    page.wheel(page.at(0.2, 0.3), 12);
    page.drag(page.at(0.5, 0.5), page.at(0.7, 0.4));
    EXPECT_GT(PlotTestPage::differingPixels(whole, page.plot()), 1000);
    page.view().lookFrom(ViewSide::PlusY);
    EXPECT_EQ(0, PlotTestPage::differingPixels(whole, page.plot()));
}

TEST(SpaceView, ShowsOppositeSidesDifferently)
{
    PlotTestPage page({SampleData::frame("Bricks", SampleData::bricks(4), PlotType_Cartesian3D)});
    page.view().lookFrom(ViewSide::PlusX);
    QImage const front = page.plot();
    page.view().lookFrom(ViewSide::MinusX);
    EXPECT_GT(PlotTestPage::differingPixels(front, page.plot()), 1000);
}

TEST(PlaneView, StaysAsItIsWhereASideIsAskedFor)
{
    PlotTestPage page({blockIn(PlotType_Cartesian2D)});
    QImage const before = page.plot();
    page.view().lookFrom(ViewSide::PlusX);
    EXPECT_EQ(0, PlotTestPage::differingPixels(before, page.plot()));
}

} // namespace veldraw::tests
