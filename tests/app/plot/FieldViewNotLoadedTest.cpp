#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// Brings values that are in memory already.
class KeptValues : public kernel::ValueLoader
{
public:
    explicit KeptValues(std::shared_ptr<kernel::Buffer> values)
        : m_values(std::move(values))
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override { return m_values->clone(); }

private:
    std::shared_ptr<kernel::Buffer> m_values;
};

// Leaves the values of a variable of the first zone to be loaded.
void defer(kernel::DataSet& dataSet, std::string const& variable)
{
    auto const position = static_cast<std::size_t>(dataSet.findVariable(variable) - 1);
    kernel::Field& field = dataSet.zone(1)->fields.at(position);
    std::shared_ptr<kernel::Buffer> const values = field.group()->buffer()->clone();
    field = kernel::Field(
        std::make_shared<kernel::ShareGroup>(field.type(), values->size(), std::make_shared<KeptValues>(values)),
        field.location());
}

// Brings a size that is known already.
class KeptSize : public kernel::DimensionsLoader
{
public:
    explicit KeptSize(kernel::ZoneDimensions size)
        : m_size(std::move(size))
    {
    }

    kernel::ZoneDimensions load(kernel::Progress&) override { return m_size; }

private:
    kernel::ZoneDimensions m_size;
};

std::string contourName(kernel::Frame const& frame)
{
    return frame.dataSet->variable(frame.variableNumber('C'))->name;
}

} // namespace

TEST(PlotOfWhatIsNotLoaded, SaysWhichAxisWaitsForItsValues)
{
    auto const frame = SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D);
    defer(*frame->dataSet, frame->dataSet->variable(frame->axisVariables()[1])->name);
    PlotTestPage page({frame});
    page.plot();
    EXPECT_EQ(page.message(), QStringLiteral("The variable on the Y axis is not loaded."));
}

TEST(PlotOfWhatIsNotLoaded, IsDrawnOnceTheAxisIsLoaded)
{
    auto const frame = SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D);
    int const variable = frame->axisVariables()[0];
    defer(*frame->dataSet, frame->dataSet->variable(variable)->name);
    PlotTestPage page({frame});
    page.plot();
    EXPECT_EQ(page.message(), QStringLiteral("The variable on the X axis is not loaded."));
    ASSERT_TRUE(page.session().perform(kernel::LoadVariables(*frame->dataSet, {1}, {variable})));
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 10000);
    EXPECT_EQ(page.message(), QString());
}

TEST(PlotOfWhatIsNotLoaded, SaysThatAZoneOfUnknownSizeWaitsAndShowsItOnceItHasCome)
{
    auto const frame = SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D);
    kernel::NumberSet axes;
    for (int const variable : frame->axisVariables()) {
        axes.insert(variable);
        defer(*frame->dataSet, frame->dataSet->variable(variable)->name);
    }
    kernel::Zone& zone = *frame->dataSet->zone(1);
    zone.dimensionsLoader = std::make_shared<KeptSize>(kernel::ZoneDimensions{zone.i, zone.j, zone.k, {}});
    zone.setDimensions({-1, -1, -1, {}});
    PlotTestPage page({frame});
    page.plot();
    EXPECT_EQ(page.message(), QStringLiteral("The variable on the X axis is not loaded."));
    ASSERT_TRUE(page.session().perform(kernel::LoadVariables(*frame->dataSet, {1}, axes)));
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 10000);
    EXPECT_EQ(page.message(), QString());
}

TEST(PlotOfWhatIsNotLoaded, ShowsTheZonesWithoutTheContourAndSaysSo)
{
    auto const frame = SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D);
    std::string const name = contourName(*frame);
    int const variable = frame->dataSet->findVariable(name);
    defer(*frame->dataSet, name);
    PlotTestPage page({frame});
    EXPECT_LT(PlotTestPage::colouredPixels(page.plot()), 5000);
    EXPECT_EQ(
        page.message(),
        QStringLiteral("The contour variable \"%1\" is not loaded in all zones.").arg(QString::fromStdString(name)));
    ASSERT_TRUE(page.session().perform(kernel::LoadVariables(*frame->dataSet, {1}, {variable})));
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 10000);
    EXPECT_EQ(page.message(), QString());
}

TEST(PlotOfWhatIsNotLoaded, FollowsTheEditOfOneValue)
{
    auto const frame = SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D);
    int const variable = frame->variableNumber('C');
    PlotTestPage page({frame});
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*frame->dataSet, 1, variable, 0, 1e3, false)));
    EXPECT_NE(page.plot(), before);
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(page.plot(), before);
}

} // namespace veldraw::tests
