#include "app/plot/FrameGrip.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using app::CatchingLines;
using app::caught;
using app::dragged;
using app::FrameGrip;
using app::gripAt;

namespace {

QRect const area(100, 50, 400, 300);
kernel::Rectangle const place{2.0, 1.0, 4.0, 3.0};

void expectPlace(kernel::Rectangle const& found, kernel::Rectangle const& expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-12);
    EXPECT_NEAR(found.y, expected.y, 1e-12);
    EXPECT_NEAR(found.width, expected.width, 1e-12);
    EXPECT_NEAR(found.height, expected.height, 1e-12);
}

} // namespace

TEST(FrameGrip, IsTheEdgeTheCornerOrTheHeaderUnderTheMouse)
{
    EXPECT_EQ(gripAt(area, {100, 200}).edges, Qt::LeftEdge);
    EXPECT_EQ(gripAt(area, {499, 200}).edges, Qt::RightEdge);
    EXPECT_EQ(gripAt(area, {300, 50}).edges, Qt::TopEdge);
    EXPECT_EQ(gripAt(area, {300, 349}).edges, Qt::BottomEdge);
    EXPECT_EQ(gripAt(area, {101, 60}).edges, Qt::LeftEdge | Qt::TopEdge);
    EXPECT_EQ(gripAt(area, {490, 51}).edges, Qt::RightEdge | Qt::TopEdge);
    EXPECT_EQ(gripAt(area, {498, 340}).edges, Qt::RightEdge | Qt::BottomEdge);
    EXPECT_EQ(gripAt(area, {110, 349}).edges, Qt::LeftEdge | Qt::BottomEdge);
    EXPECT_TRUE(gripAt(area, {300, 60}).isHeader);
    EXPECT_TRUE(gripAt(area, {300, 200}).isNothing()) << "the plot";
    EXPECT_TRUE(gripAt(area, {99, 200}).isNothing()) << "beside the frame";
    EXPECT_TRUE(gripAt(area, {111, 100}).isNothing()) << "near to a corner, but on no edge";
}

TEST(FrameGrip, ShowsByThePointerWhichWayItGoes)
{
    EXPECT_EQ(FrameGrip({false, Qt::LeftEdge}).cursor(), Qt::SizeHorCursor);
    EXPECT_EQ(FrameGrip({false, Qt::BottomEdge}).cursor(), Qt::SizeVerCursor);
    EXPECT_EQ(FrameGrip({false, Qt::LeftEdge | Qt::TopEdge}).cursor(), Qt::SizeFDiagCursor);
    EXPECT_EQ(FrameGrip({false, Qt::RightEdge | Qt::TopEdge}).cursor(), Qt::SizeBDiagCursor);
    EXPECT_EQ(FrameGrip({true, {}}).cursor(), Qt::ArrowCursor);
}

TEST(FrameGrip, MovesTheFrameOrTheEdgesThatItHolds)
{
    QPointF const way(0.5, -0.25);
    expectPlace(dragged(place, {true, {}}, way), {2.5, 0.75, 4.0, 3.0});
    expectPlace(dragged(place, {false, Qt::LeftEdge}, way), {2.5, 1.0, 3.5, 3.0});
    expectPlace(dragged(place, {false, Qt::RightEdge | Qt::TopEdge}, way), {2.0, 0.75, 4.5, 3.25});
    expectPlace(dragged(place, {false, Qt::BottomEdge}, way), {2.0, 1.0, 4.0, 2.75});
    expectPlace(dragged(place, {}, way), place);
}

TEST(FrameGrip, NeverTurnsAFrameOver)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-20.0, 20.0);
    for (int n = 0; n < 5000; ++n) {
        auto const edges = static_cast<Qt::Edges>(static_cast<int>(random() % 16));
        bool const hasOpposite = edges.testFlag(Qt::LeftEdge) == edges.testFlag(Qt::RightEdge) ||
                                 edges.testFlag(Qt::TopEdge) == edges.testFlag(Qt::BottomEdge);
        if (hasOpposite)
            continue;
        kernel::Rectangle const found = dragged(place, {false, edges}, {anywhere(random), anywhere(random)});
        EXPECT_GE(found.width, 0.5 - 1e-12);
        EXPECT_GE(found.height, 0.5 - 1e-12);
        if (!edges.testFlag(Qt::RightEdge)) {
            EXPECT_NEAR(found.x + found.width, 6.0, 1e-12);
        }
        if (!edges.testFlag(Qt::TopEdge)) {
            EXPECT_NEAR(found.y, 1.0, 1e-12);
        }
    }
}

TEST(FrameGrip, CatchesTheNearestLine)
{
    CatchingLines const lines{{0.0, 1.9, 6.05}, {0.0, 8.5}, {0.12, 0.12}};
    expectPlace(caught(place, {true, {}}, lines), {2.05, 1.0, 4.0, 3.0});
    expectPlace(caught(place, {false, Qt::LeftEdge}, lines), {1.9, 1.0, 4.1, 3.0});
    expectPlace(caught(place, {false, Qt::RightEdge}, lines), {2.0, 1.0, 4.05, 3.0});
    expectPlace(caught(place, {false, Qt::TopEdge}, lines), place);
    expectPlace(caught({2.0, 0.1, 4.0, 3.0}, {false, Qt::TopEdge}, lines), {2.0, 0.0, 4.0, 3.1});
    expectPlace(caught({2.0, 0.1, 4.0, 3.0}, {false, Qt::BottomEdge}, lines), {2.0, 0.1, 4.0, 3.0});
}

} // namespace veldraw::tests
