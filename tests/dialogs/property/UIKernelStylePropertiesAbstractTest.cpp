#include "dialogs/property/UIKernelStylePropertiesAbstract.h"

#include "dialogs/property/KernelPropertyDeferred.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>
#include <memory>

namespace veldraw::tests {

using sdk::styleproperties::KernelPropertyDeferred;
using sdk::ui::propertymanager::UIKernelStylePropertiesAbstract;
using testing::ElementsAre;
using testing::IsEmpty;
using toolbox::CheckedStyleValue;
using toolbox::StyleValue;

namespace {

using Log = std::vector<std::string>;

// A group that writes down what happens to it.
class LoggingGroup : public UIKernelStylePropertiesAbstract
{
public:
    LoggingGroup(std::string name, Log& log, UIKernelStylePropertiesAbstract* parent = nullptr)
        : UIKernelStylePropertiesAbstract(true, parent)
    {
        addSubmission([name, &log] { log.push_back(name + " written"); });
        connectSubmitted([name, &log] { log.push_back(name + " submitted"); });
        connectInitialized([name, &log] { log.push_back(name + " initialized"); });
    }

    using UIKernelStylePropertiesAbstract::addSubmission;
};

// Two settings that wait for the OK of their dialog.
class InterpolationGroup : public UIKernelStylePropertiesAbstract
{
public:
    InterpolationGroup()
        : UIKernelStylePropertiesAbstract(true, nullptr)
    {
        addSubmission([this] { exponent.submit(); });
        addSubmission([this] { points.submit(); });
    }

    KernelPropertyDeferred<double> exponent{CheckedStyleValue(StyleValue("Interface", "Data", "InvDistExponent"))};
    KernelPropertyDeferred<long long> points{CheckedStyleValue(StyleValue("Interface", "Data", "InterpNPoints"))};
};

// A group that does not follow its parent.
class StubbornGroup : public UIKernelStylePropertiesAbstract
{
public:
    explicit StubbornGroup(UIKernelStylePropertiesAbstract* parent)
        : UIKernelStylePropertiesAbstract(false, parent)
    {
    }

    int parentSubmissions = 0;

private:
    void parentSubmitted() override { ++parentSubmissions; }
};

} // namespace

TEST(UIKernelStyleProperties, TellsThatTheyAreInitialized)
{
    Log log;
    LoggingGroup group("group", log);
    group.init();
    EXPECT_THAT(log, ElementsAre("group initialized"));
}

TEST(UIKernelStyleProperties, WriteBeforeTheyTellThatTheyWereSubmitted)
{
    Log log;
    LoggingGroup group("group", log);
    group.addSubmission([&log] { log.push_back("second written"); });
    group.submit();
    EXPECT_THAT(log, ElementsAre("group written", "second written", "group submitted"));
}

TEST(UIKernelStyleProperties, FollowTheirParentWhenItIsSubmitted)
{
    Log log;
    LoggingGroup parent("parent", log);
    LoggingGroup child("child", log, &parent);
    LoggingGroup grandchild("grandchild", log, &child);
    EXPECT_EQ(child.parent(), &parent);
    EXPECT_EQ(parent.parent(), nullptr);
    parent.submit();
    EXPECT_THAT(log, testing::UnorderedElementsAre("parent written", "parent submitted", "child written",
                                                   "child submitted", "grandchild written", "grandchild submitted"));
    log.clear();
    child.submit();
    EXPECT_THAT(log, testing::Not(testing::Contains("parent written")));
}

TEST(UIKernelStyleProperties, DecideThemselvesWhatTheirParentsSubmissionMeans)
{
    Log log;
    LoggingGroup parent("parent", log);
    StubbornGroup child(&parent);
    int submitted = 0;
    child.connectSubmitted([&submitted] { ++submitted; });
    parent.submit();
    EXPECT_EQ(child.parentSubmissions, 1);
    EXPECT_EQ(submitted, 0);
}

TEST(UIKernelStyleProperties, MayEndBeforeTheirParent)
{
    Log log;
    LoggingGroup parent("parent", log);
    auto child = std::make_unique<LoggingGroup>("child", log, &parent);
    child.reset();
    parent.submit();
    EXPECT_THAT(log, ElementsAre("parent written", "parent submitted"));
}

TEST(UIKernelStyleProperties, KnowWhetherTheyAreModalAndTheirCollectionOffset)
{
    Log log;
    LoggingGroup group("group", log);
    StubbornGroup child(&group);
    EXPECT_TRUE(group.isModal());
    EXPECT_FALSE(child.isModal());
    EXPECT_EQ(group.collectionOffset(), -1);
    group.setCollectionOffset(3);
    EXPECT_EQ(group.collectionOffset(), 3);
    EXPECT_EQ(child.collectionOffset(), -1);
}

TEST(UIKernelStyleProperties, WriteTheirDeferredValuesWhenSubmitted)
{
    StyleSession sample;
    InterpolationGroup group;
    group.exponent.setValue(3.5);
    group.points.setValue(20);
    EXPECT_EQ(sample.number(exponentPath), 2.0);
    group.submit();
    EXPECT_EQ(sample.number(exponentPath), 3.5);
    EXPECT_EQ(sample.number(pointsPath), 20.0);
}

TEST(UIKernelStyleProperties, PassTheRefusalOfAValueOnAndDoNotCountAsSubmitted)
{
    StyleSession sample;
    InterpolationGroup group;
    int submitted = 0;
    group.connectSubmitted([&submitted] { ++submitted; });
    group.exponent.setValue(3.5);
    group.points.setValue(0);
    EXPECT_THROW(group.submit(), InvalidPropertyValueException);
    EXPECT_EQ(submitted, 0);
    EXPECT_EQ(sample.number(exponentPath), 3.5);
    EXPECT_EQ(sample.number(pointsPath), 8.0);
}

} // namespace veldraw::tests
