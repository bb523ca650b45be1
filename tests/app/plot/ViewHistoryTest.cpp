#include "app/plot/ViewHistory.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

app::ViewPoint view(int number)
{
    app::ViewPoint made;
    made.eye[0] = number;
    return made;
}

} // namespace

TEST(ViewHistory, LeadsBackAndOnAgain)
{
    app::ViewHistory history;
    EXPECT_FALSE(history.back(view(0)));
    history.keep(view(0));
    history.keep(view(1));
    EXPECT_EQ(view(1), history.back(view(2)));
    EXPECT_EQ(view(0), history.back(view(1)));
    EXPECT_FALSE(history.back(view(0)));
    EXPECT_EQ(view(1), history.on(view(0)));
    EXPECT_EQ(view(2), history.on(view(1)));
    EXPECT_FALSE(history.on(view(2)));
}

TEST(ViewHistory, ForgetsWhatCameLaterWhenAViewChanges)
{
    app::ViewHistory history;
    history.keep(view(0));
    EXPECT_EQ(view(0), history.back(view(1)));
    history.keep(view(0));
    EXPECT_FALSE(history.on(view(5)));
    EXPECT_EQ(view(0), history.back(view(5)));
}

TEST(ViewHistory, LeavesOutWhatDidNotChange)
{
    app::ViewHistory history;
    history.keep(view(0));
    history.keep(view(1));
    history.keep(view(1));
    EXPECT_EQ(view(0), history.back(view(1)));
    EXPECT_FALSE(history.back(view(0)));
}

TEST(ViewHistory, KeepsTheLatestViews)
{
    app::ViewHistory history;
    int const count = static_cast<int>(app::ViewHistory::most) + 3;
    for (int number = 0; number < count; ++number)
        history.keep(view(number));
    app::ViewPoint now = view(count);
    int steps = 0;
    while (auto const earlier = history.back(now)) {
        now = *earlier;
        ++steps;
    }
    EXPECT_EQ(static_cast<int>(app::ViewHistory::most), steps);
    EXPECT_EQ(view(3), now);
}

} // namespace veldraw::tests
