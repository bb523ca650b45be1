// Of surfaces at the same place the last zone is seen, whether zones are drawn one by one or in batches.
#include "app/plot/ColourMap.h"
#include "kernel/operations/EnableZone.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <array>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr int sheetsInRow = 8;

/// Adds a square sheet in a slanted plane, with the same value everywhere.
void addSheet(kernel::DataSet& set, int place, double size, int pointsAlongEdge, double value)
{
    auto const zone = std::make_shared<kernel::Zone>("Sheet", ZoneType_Ordered, pointsAlongEdge, pointsAlongEdge, 1);
    set.addZone(zone);
    std::array<std::vector<double>, 4> values;
    for (int b = 0; b < pointsAlongEdge; ++b)
        for (int a = 0; a < pointsAlongEdge; ++a) {
            double const x = place % sheetsInRow + size * a / (pointsAlongEdge - 1.0);
            double const y = place / sheetsInRow + size * b / (pointsAlongEdge - 1.0);
            values[0].push_back(x);
            values[1].push_back(y);
            values[2].push_back(0.37 * x + 0.61 * y);
            values[3].push_back(value);
        }
    for (auto const& each : values)
        SampleData::addField(*zone, each);
}

std::shared_ptr<kernel::DataSet> setOfSheets()
{
    auto set = std::make_shared<kernel::DataSet>("Sheets");
    for (char const* const name : {"X", "Y", "Z", "p"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    return set;
}

/// Pairs of sheets at the same place, cut into different cells; p is 0 on the first of each and 1 on the second.
std::shared_ptr<kernel::DataSet> pairsOfSheets(int count)
{
    auto set = setOfSheets();
    for (int n = 0; n < count; ++n) {
        addSheet(*set, n, 0.9, 2, 0.0);
        addSheet(*set, n, 0.9, 14, 1.0);
    }
    return set;
}

struct Seen
{
    int lowest = 0;  ///< pixels in the colour of 0
    int highest = 0; ///< and of 1
};

Seen seenIn(QImage const& plot)
{
    QImage const sheets = plot.copy(0, 0, plot.width() - 130, plot.height());
    Seen seen;
    for (int y = 0; y < sheets.height(); ++y)
        for (int x = 0; x < sheets.width(); ++x) {
            QColor const colour = sheets.pixelColor(x, y);
            bool const isViolet = colour.blue() > colour.green() + 40 && colour.red() < 120;
            bool const isYellow = colour.red() > colour.blue() + 60 && colour.green() > colour.blue() + 60;
            seen.lowest += isViolet ? 1 : 0;
            seen.highest += isYellow ? 1 : 0;
        }
    return seen;
}

class CoincidentSurfaces : public ::testing::TestWithParam<int>
{
};

} // namespace

TEST_P(CoincidentSurfaces, ShowTheLastZoneWhicheverWayTheyAreTurned)
{
    PlotTestPage page({SampleData::frame("Sheets", pairsOfSheets(GetParam()), PlotType_Cartesian3D)});
    for (int turn = 0; turn < 6; ++turn) {
        std::string const name = "coincident-" + std::to_string(GetParam()) + "-" + std::to_string(turn);
        Seen const seen = seenIn(page.plot(0, name));
        EXPECT_LT(seen.lowest, 20) << turn;
        EXPECT_GT(seen.highest, 5000) << turn;
        page.drag(page.at(0.4, 0.5), page.at(0.46, 0.53));
    }
}

TEST_P(CoincidentSurfaces, ShowTheLastZoneWithItsMeshToo)
{
    auto const frame = SampleData::frame("Sheets", pairsOfSheets(GetParam()), PlotType_Cartesian3D);
    frame->showMesh = true;
    PlotTestPage page({frame});
    for (int turn = 0; turn < 3; ++turn) {
        Seen const seen =
            seenIn(page.plot(0, "coincident-mesh-" + std::to_string(GetParam()) + "-" + std::to_string(turn)));
        EXPECT_LT(seen.lowest, 20) << turn;
        EXPECT_GT(seen.highest, 5000) << turn;
        page.drag(page.at(0.4, 0.5), page.at(0.46, 0.53));
    }
}

// The last number needs batches.
INSTANTIATE_TEST_SUITE_P(Pairs, CoincidentSurfaces, ::testing::Values(1, 40), ::testing::PrintToStringParamName());

TEST(CoincidentSurfacesInBatches, ShowTheFirstWhereTheLastIsHiddenAndTheLastAgain)
{
    auto const set = pairsOfSheets(40);
    PlotTestPage page({SampleData::frame("Sheets", set, PlotType_Cartesian3D)});
    int const before = seenIn(page.plot()).highest;
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 40, false)));
    Seen const without = seenIn(page.plot());
    EXPECT_GT(without.lowest, before / 80);
    ASSERT_TRUE(page.session().undo());
    EXPECT_LT(seenIn(page.plot()).lowest, 20);
}

TEST(CoincidentSurfacesInBatches, ShowSmallPatchesOverALargeSheet)
{
    auto const set = setOfSheets();
    addSheet(*set, 0, 8.0, 3, 0.0);
    for (int place = 0; place < 64; ++place)
        addSheet(*set, place, 1.0, 8, 1.0); // which hide it
    PlotTestPage page({SampleData::frame("Patches", set, PlotType_Cartesian3D)});
    for (int turn = 0; turn < 4; ++turn) {
        Seen const seen = seenIn(page.plot(0, "patches-" + std::to_string(turn)));
        EXPECT_LT(seen.lowest, 20) << turn;
        EXPECT_GT(seen.highest, 5000) << turn;
        page.drag(page.at(0.4, 0.5), page.at(0.46, 0.53));
    }
}

} // namespace veldraw::tests
