#include "dialogs/smoothing/TriangulateButtonRelevance.h"

#include "dialogs/models/ListModelAbstract.h"
#include "dialogs/property/Property.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::TriangulateButtonRelevance;

/// So many zones.
class Choices : public sdk::ui::dialogs::propertybindings::models::ListModelAbstract<int>
{
public:
    explicit Choices(int number)
        : count(number)
    {
    }
    int size() const override { return count; }
    int get(int index) const override { return index + 1; }
    std::string getStr(int) const override { return {}; }

    int count;
};

class TriangulateButtonRelevanceTest : public testing::Test
{
protected:
    boost::shared_ptr<TriangulateButtonRelevance> rule() const
    {
        return boost::make_shared<TriangulateButtonRelevance>(sources, useBoundary, boundaries, choices);
    }

    boost::shared_ptr<veldraw::Property<std::set<int>>> sources =
        boost::make_shared<veldraw::Property<std::set<int>>>();
    boost::shared_ptr<veldraw::Property<bool>> useBoundary = boost::make_shared<veldraw::Property<bool>>(false);
    boost::shared_ptr<veldraw::Property<std::set<int>>> boundaries =
        boost::make_shared<veldraw::Property<std::set<int>>>();
    boost::shared_ptr<Choices> choices = boost::make_shared<Choices>(2);
};

TEST_F(TriangulateButtonRelevanceTest, NeedsSourcesWhateverElseIsSet)
{
    auto const button = rule();
    for (bool const uses : {false, true})
        for (std::set<int> const& selected : {std::set<int>(), std::set<int>{1}}) {
            useBoundary->setValue(uses);
            boundaries->setValue(selected);
            EXPECT_FALSE(button->isRelevant());
        }
}

TEST_F(TriangulateButtonRelevanceTest, NeedsBoundariesWhereTheyAreUsedAndCanBeChosen)
{
    auto const button = rule();
    sources->setValue({3});
    EXPECT_TRUE(button->isRelevant());
    useBoundary->setValue(true);
    EXPECT_FALSE(button->isRelevant());
    boundaries->setValue({1});
    EXPECT_TRUE(button->isRelevant());
    boundaries->setValue({});
    useBoundary->setValue(false);
    EXPECT_TRUE(button->isRelevant());
}

TEST_F(TriangulateButtonRelevanceTest, AsksOnceWhetherBoundariesCanBeChosenAndDropsTheirList)
{
    sources->setValue({3});
    useBoundary->setValue(true);
    choices->count = 0;
    auto const withoutChoices = rule();
    choices->count = 1;
    auto const withOne = rule();
    choices->count = 0;
    EXPECT_TRUE(withoutChoices->isRelevant());
    EXPECT_FALSE(withOne->isRelevant());
    EXPECT_EQ(choices.use_count(), 1);
}

TEST_F(TriangulateButtonRelevanceTest, SignalsForEachOfThreePropertiesAndKeepsThem)
{
    auto const button = rule();
    int signals = 0;
    button->connectRelevanceChanged([&signals] { ++signals; });
    sources->setValue({1});
    EXPECT_EQ(signals, 1);
    boundaries->setValue({2});
    EXPECT_EQ(signals, 2);
    useBoundary->setValue(true);
    EXPECT_EQ(signals, 3);
    sources.reset();
    useBoundary.reset();
    boundaries.reset();
    EXPECT_TRUE(button->isRelevant());
}

} // namespace
} // namespace veldraw::tests
