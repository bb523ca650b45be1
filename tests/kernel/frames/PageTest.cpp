#include "kernel/frames/Page.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

TEST(Page, HasAPlaceForEachOfSeveralFramesRowByRow)
{
    Page page;
    page.paperWidth = 12;
    page.paperHeight = 6;
    EXPECT_TRUE(gridOver(page, 0).empty());
    for (std::size_t count = 1; count <= 20; ++count) {
        std::vector<Rectangle> const places = gridOver(page, count);
        ASSERT_EQ(places.size(), count);
        std::size_t const columns = count == 1 ? 1 : count <= 4 ? 2 : count <= 9 ? 3 : count <= 16 ? 4 : 5;
        std::size_t const rows = (count + columns - 1) / columns;
        for (std::size_t at = 0; at < count; ++at) {
            EXPECT_DOUBLE_EQ(places[at].width * static_cast<double>(columns), page.paperWidth);
            EXPECT_DOUBLE_EQ(places[at].height * static_cast<double>(rows), page.paperHeight);
            EXPECT_DOUBLE_EQ(places[at].x, places[at].width * static_cast<double>(at % columns));
            EXPECT_DOUBLE_EQ(places[at].y, places[at].height * static_cast<double>(at / columns));
        }
    }
}

} // namespace veldraw::tests
