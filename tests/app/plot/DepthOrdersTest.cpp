#include "app/plot/DepthOrders.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

using app::DepthOrders;
using Orders = std::vector<float>;
using Places = std::vector<DepthOrders::Place>;

namespace {

/// Sheets at one place.
Places pileOf(int count)
{
    Places pile;
    for (int n = 0; n < count; ++n)
        pile.push_back({n + 1, {0.0, 0.5, 0.0, 0.5, 0.0, 0.0}});
    return pile;
}

Places without(Places places, std::ptrdiff_t at)
{
    places.erase(places.begin() + at);
    return places;
}

Orders without(Orders orders, std::ptrdiff_t at)
{
    orders.erase(orders.begin() + at);
    return orders;
}

} // namespace

TEST(DepthOrders, PutLaterZonesBeforeEarlierOnesAndAFewOfThemNearTogether)
{
    DepthOrders orders;
    EXPECT_EQ(orders.of(pileOf(3)), (Orders{1.0F, 0.98F, 0.96F}));
    Orders const many = orders.of(pileOf(5000));
    EXPECT_TRUE(std::is_sorted(many.rbegin(), many.rend()));
    EXPECT_EQ(std::adjacent_find(many.begin(), many.end()), many.end());
    EXPECT_EQ(many.front(), 1.0F);
    EXPECT_GE(many.back(), 0.0F);
}

TEST(DepthOrders, AreNoneWhereNothingLiesOverAnother)
{
    Places places = pileOf(2);
    places[1].bounds = {0.6, 0.9, 0.0, 0.5, 0.0, 0.0};
    EXPECT_EQ(DepthOrders().of(places), Orders());
    EXPECT_EQ(DepthOrders().of({}), Orders());
}

TEST(DepthOrders, StayWhenAZoneIsHiddenAndWhenItComesBack)
{
    DepthOrders orders;
    Places const pile = pileOf(300);
    Orders const all = orders.of(pile);
    EXPECT_EQ(orders.of(without(pile, 20)), without(all, 20));
    EXPECT_EQ(orders.of(without(without(pile, 200), 20)), without(without(all, 200), 20));
    EXPECT_EQ(orders.of(pile), all);
    Places longer = pileOf(350);
    Orders const withMore = orders.of(longer);
    EXPECT_TRUE(std::equal(all.begin(), all.end(), withMore.begin())) << "new ones come before the others";
}

TEST(DepthOrders, AreFoundAnewForTheFewThatAreLeftOfMany)
{
    DepthOrders orders;
    Places const pile = pileOf(300);
    orders.of(pile);
    EXPECT_EQ(orders.of({pile.front(), pile.back()}), (Orders{1.0F, 0.98F}))
        << "as near as if there had been no others";
}

TEST(DepthOrders, AreFoundAnewWhereAZoneHasMovedOrAnotherTakesItsPlace)
{
    DepthOrders orders;
    Places pile = pileOf(3);
    orders.of(pile);
    pile[1].bounds = {0.6, 0.9, 0.0, 0.5, 0.0, 0.0};
    EXPECT_EQ(orders.of(pile), (Orders{1.0F, 1.0F, 0.98F}));
    pile = pileOf(3);
    orders.of(pile);
    std::swap(pile[0], pile[2]);
    EXPECT_EQ(orders.of(pile), (Orders{1.0F, 0.98F, 0.96F})) << "the order counts, not the zone";
}

} // namespace veldraw::tests
