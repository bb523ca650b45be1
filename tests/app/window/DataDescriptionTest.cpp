#include "app/window/DataDescription.h"

#include "app/window/DataSetSize.h"
#include "tests/app/support/WindowTest.h"

namespace veldraw::tests {

namespace {

class DataDescriptionTest : public WindowTest
{
};

} // namespace

TEST_F(DataDescriptionTest, GroupsTheDigitsOfLargeNumbers)
{
    EXPECT_EQ(QStringLiteral("0"), app::countText(0));
    EXPECT_EQ(QStringLiteral("999"), app::countText(999));
    EXPECT_EQ(QString::fromUtf8("1\u2009234\u2009567"), app::countText(1234567));
}

TEST_F(DataDescriptionTest, TellsTheCommonLocation)
{
    auto const flow = makeFlow();
    EXPECT_EQ(QStringLiteral("nodal"), app::variableLocationText(*flow, 1));
    EXPECT_EQ(QStringLiteral("cell"), app::variableLocationText(*flow, 3));
    flow->addVariable(std::make_shared<kernel::Variable>("empty"));
    EXPECT_EQ(QStringLiteral("passive"), app::variableLocationText(*flow, 4));
}

TEST_F(DataDescriptionTest, SharedStorageCountsOnce)
{
    auto const flow = makeFlow();
    std::int64_t const before = app::valueBytes(*flow).inMemory;
    EXPECT_EQ(8 * (3 * 12 + 3 * 4), before);
    auto const copy = std::make_shared<kernel::Zone>(*flow->zone(1));
    flow->addZone(copy);
    EXPECT_EQ(before, app::valueBytes(*flow).inMemory);
    EXPECT_EQ(0, app::valueBytes(*flow).mapped);
    EXPECT_EQ(28, app::pointCount(*flow));
}

} // namespace veldraw::tests
