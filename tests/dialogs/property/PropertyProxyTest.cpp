#include "dialogs/property/PropertyProxy.h"

#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <vector>

namespace veldraw::tests {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Limits = BoundedValueValidator<long long>;

boost::shared_ptr<Limits> upTo(long long max)
{
    return boost::make_shared<Limits>(1, max, Limits::LowerInclusive, Limits::UpperInclusive);
}

} // namespace

class PropertyProxyTest : public testing::Test
{
protected:
    PropertyProxyTest()
    {
        proxy.connectValueChanged([this](long long value) { heard.push_back(value); });
    }

    boost::shared_ptr<Property<long long>> first = boost::make_shared<Property<long long>>(1, upTo(10));
    boost::shared_ptr<Property<long long>> second = boost::make_shared<Property<long long>>(7, upTo(10));
    PropertyProxy<long long> proxy{first, upTo(20)};
    std::vector<long long> heard;
};

TEST_F(PropertyProxyTest, ReadsAndWritesItsTarget)
{
    EXPECT_EQ(proxy.value(), 1);
    proxy.setValue(5);
    EXPECT_EQ(first->value(), 5);
    EXPECT_EQ(proxy.value(), 5);
}

TEST_F(PropertyProxyTest, TellsASetOnceAndSoDoesTheTarget)
{
    std::vector<long long> heardByTarget;
    first->connectValueChanged([&heardByTarget](long long value) { heardByTarget.push_back(value); });
    proxy.setValue(5);
    EXPECT_THAT(heard, ElementsAre(5));
    EXPECT_THAT(heardByTarget, ElementsAre(5));
}

TEST_F(PropertyProxyTest, TellsNothingOfAnEqualValue)
{
    proxy.setValue(1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PropertyProxyTest, TellsAChangeOfTheTarget)
{
    first->setValue(5);
    EXPECT_THAT(heard, ElementsAre(5));
}

TEST_F(PropertyProxyTest, TellsItsUntypedListenersToo)
{
    int changes = 0;
    proxy.connectPropertyChanged([&changes] { ++changes; });
    first->setValue(5);
    proxy.setValue(6);
    EXPECT_EQ(changes, 2);
}

TEST_F(PropertyProxyTest, AnswersFromItsNewTarget)
{
    proxy.setProperty(second);
    EXPECT_EQ(proxy.value(), 7);
    proxy.setValue(8);
    EXPECT_EQ(second->value(), 8);
    EXPECT_EQ(first->value(), 1);
}

TEST_F(PropertyProxyTest, LeavesItToTheCallerToTellThatTheTargetChanged)
{
    proxy.setProperty(second);
    EXPECT_THAT(heard, IsEmpty());
    proxy.notifyTargetChanged();
    EXPECT_THAT(heard, ElementsAre(7));
}

TEST_F(PropertyProxyTest, NoLongerHearsItsOldTarget)
{
    proxy.setProperty(second);
    first->setValue(5);
    EXPECT_THAT(heard, IsEmpty());
    second->setValue(9);
    EXPECT_THAT(heard, ElementsAre(9));
}

TEST_F(PropertyProxyTest, PassesItsOwnValidatorAndTheTargets)
{
    EXPECT_THROW(proxy.setValue(21), InvalidPropertyValueException);
    try {
        proxy.setValue(15);
        FAIL() << "accepted";
    } catch (InvalidPropertyValueException const& refusal) {
        EXPECT_STREQ(refusal.what(), "The value must be greater than or equal to 1 and less than or equal to 10.");
    }
    EXPECT_EQ(first->value(), 1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PropertyProxyTest, LeavesItToTheTargetToSayWhatIsEqual)
{
    class Pairs : public Property<long long>
    {
        using Property<long long>::Property;
        bool isEqual(long long const& other) const override { return other / 2 == value() / 2; }
    };
    auto const pairs = boost::make_shared<Pairs>(4);
    int changes = 0;
    pairs->connectValueChanged([&changes](long long) { ++changes; });
    proxy.setProperty(pairs);
    proxy.setValue(5);
    EXPECT_EQ(pairs->value(), 4);
    EXPECT_EQ(changes, 0);
    proxy.setValue(6);
    EXPECT_EQ(pairs->value(), 6);
    EXPECT_EQ(changes, 1);
}

TEST_F(PropertyProxyTest, KeepsItsTargetAlive)
{
    PropertyProxy<long long> other(boost::make_shared<Property<long long>>(3),
                                   boost::make_shared<AllowAnyValueValidator<long long>>());
    EXPECT_EQ(other.value(), 3);
}

TEST_F(PropertyProxyTest, MayGetANewTargetWhileTheOldOneTells)
{
    first->connectValueChanged([this](long long) { proxy.setProperty(second); });
    proxy.setValue(5);
    EXPECT_EQ(first->value(), 5);
    EXPECT_EQ(proxy.value(), 7);
    EXPECT_THAT(heard, ElementsAre(7)); // what holds when the set has ended
    second->setValue(8);
    EXPECT_THAT(heard, ElementsAre(7, 8));
}

TEST_F(PropertyProxyTest, HearsItsTargetAgainAfterAListenerOfTheTargetThrew)
{
    boost::signals2::connection thrower = first->connectValueChanged([this](long long) {
        heard.push_back(-1);
        throw std::runtime_error("listener");
    });
    EXPECT_THROW(proxy.setValue(5), std::runtime_error);
    thrower.disconnect();
    first->setValue(6);
    EXPECT_THAT(heard, ElementsAre(-1, 6));
}

TEST_F(PropertyProxyTest, StandsForAnotherProxy)
{
    auto const inner = boost::make_shared<PropertyProxy<long long>>(first, upTo(20));
    proxy.setProperty(inner);
    proxy.setValue(5);
    EXPECT_EQ(first->value(), 5);
    EXPECT_THAT(heard, ElementsAre(5));
    first->setValue(6);
    EXPECT_THAT(heard, ElementsAre(5, 6));
}

TEST_F(PropertyProxyTest, TakesTheValueOnlyWhenAssigned)
{
    PropertyProxy<long long> other(second, upTo(20));
    proxy = other;
    EXPECT_EQ(first->value(), 7);
    proxy.setValue(2);
    EXPECT_EQ(first->value(), 2);
    EXPECT_EQ(second->value(), 7);
}

} // namespace veldraw::tests
