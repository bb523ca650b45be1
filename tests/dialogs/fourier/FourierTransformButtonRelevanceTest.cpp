#include "dialogs/fourier/FourierTransformButtonRelevance.h"

#include "dialogs/property/Property.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/dialogs/fourier/FourierFrames.h"
#include "tests/support/KernelSpy.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <utility>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::FourierTransformButtonRelevance;
using testing::ElementsAre;
using testing::IsEmpty;

/// A value that tells how deep the lock is whenever it is read.
template <typename T>
class LockWatchingProperty : public PropertyAbstract<T>
{
public:
    LockWatchingProperty(T value, std::vector<int>& depths)
        : m_value(std::move(value))
        , m_depths(depths)
    {
    }

private:
    void storeValue(T const& newValue) override { m_value = newValue; }
    T retrieveValue() const override
    {
        m_depths.push_back(sdk::AppLock::depth());
        return m_value;
    }

    T m_value;
    std::vector<int>& m_depths;
};

class FourierTransformButtonRelevanceTest : public FourierFrames
{
protected:
    boost::shared_ptr<veldraw::Property<int>> independent = boost::make_shared<veldraw::Property<int>>(3);
    boost::shared_ptr<veldraw::Property<std::set<int>>> dependent =
        boost::make_shared<veldraw::Property<std::set<int>>>();
    boost::shared_ptr<veldraw::Property<std::set<int>>> zones = boost::make_shared<veldraw::Property<std::set<int>>>();
    FourierTransformButtonRelevance const rule{independent, dependent, zones};
    KernelSpy spy;
};

TEST_F(FourierTransformButtonRelevanceTest, NeedsADependentVariable)
{
    zones->setValue({1});
    EXPECT_FALSE(rule.isRelevant());
    EXPECT_THAT(spy.calls(), IsEmpty()) << "the kernel has no part in that";
}

TEST_F(FourierTransformButtonRelevanceTest, TakesNoTransformOfTheIndependentVariableAlone)
{
    zones->setValue({1});
    dependent->setValue({3});
    EXPECT_FALSE(rule.isRelevant());
    EXPECT_THAT(spy.calls(), IsEmpty());
    dependent->setValue({3, 4});
    EXPECT_TRUE(rule.isRelevant());
    dependent->setValue({4});
    EXPECT_TRUE(rule.isRelevant());
    independent->setValue(4);
    EXPECT_FALSE(rule.isRelevant());
}

TEST_F(FourierTransformButtonRelevanceTest, NeedsASourceZone)
{
    dependent->setValue({4});
    EXPECT_FALSE(rule.isRelevant());
    EXPECT_THAT(spy.calls(), IsEmpty());
    zones->setValue({2});
    EXPECT_TRUE(rule.isRelevant());
}

TEST_F(FourierTransformButtonRelevanceTest, IsFalseForOneZoneThatCannotBeTransformed)
{
    dependent->setValue({4});
    zones->setValue({1, 2});
    EXPECT_TRUE(rule.isRelevant());
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilFourierTransformIsValidZone(1)", "VelUtilFourierTransformIsValidZone(2)"));
    for (int const bad : {1, 2}) {
        sample.dataSet().zone(bad)->i = 3;
        EXPECT_FALSE(rule.isRelevant()) << "zone " << bad << " is too short";
        sample.dataSet().zone(bad)->i = 6;
    }
    zones->setValue({1, 3});
    EXPECT_FALSE(rule.isRelevant()) << "there is no zone 3";
}

TEST_F(FourierTransformButtonRelevanceTest, TakesTheLockToAskTheKernelAndForNothingElse)
{
    using Numbers = LockWatchingProperty<std::set<int>>;
    std::vector<int> whenRead;
    FourierTransformButtonRelevance const watched{
        boost::make_shared<LockWatchingProperty<int>>(3, whenRead),
        boost::make_shared<Numbers>(std::set<int>{4}, whenRead),
        boost::make_shared<Numbers>(std::set<int>{1, 2}, whenRead),
    };
    std::vector<int> whenAsked;
    spy.onCall([&whenAsked](std::string const&) { whenAsked.push_back(sdk::AppLock::depth()); });
    whenRead.clear();
    EXPECT_TRUE(watched.isRelevant());
    EXPECT_THAT(whenRead, ElementsAre(0, 0, 0));
    EXPECT_THAT(whenAsked, ElementsAre(1, 1));
    EXPECT_EQ(sdk::AppLock::depth(), 0);
}

TEST_F(FourierTransformButtonRelevanceTest, SignalsForEachOfThreePropertiesAndForNothingInTheKernel)
{
    int signals = 0;
    rule.connectRelevanceChanged([&signals] { ++signals; });
    independent->setValue(1);
    EXPECT_EQ(signals, 1);
    dependent->setValue({2});
    EXPECT_EQ(signals, 2);
    zones->setValue({1});
    EXPECT_EQ(signals, 3);
    sample.session().clear();
    EXPECT_EQ(signals, 3);
    EXPECT_FALSE(rule.isRelevant()) << "it is right when it is asked";
}

TEST_F(FourierTransformButtonRelevanceTest, KeepsItsPropertiesAndListensToThemNoLongerThanItLives)
{
    boost::weak_ptr<veldraw::Property<int>> const watched = independent;
    auto other = boost::make_shared<FourierTransformButtonRelevance>(independent, dependent, zones);
    independent.reset();
    EXPECT_FALSE(watched.expired());
    other.reset();
    dependent->setValue({2});
    zones->setValue({1});
    EXPECT_TRUE(rule.isRelevant());
}

} // namespace
} // namespace veldraw::tests
