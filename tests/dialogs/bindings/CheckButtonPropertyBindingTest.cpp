#include "dialogs/bindings/CheckButtonPropertyBinding.h"

#include "dialogs/property/Property.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CheckButtonPropertyBindingTest : public ::testing::Test
{
protected:
    void bind(bool inverted = false)
    {
        binding = std::make_unique<CheckButtonPropertyBinding>(&button, property, inverted);
        property->connectValueChanged([this](bool value) { changes.push_back(value); });
        button.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&button));
    }

    void click() { QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2)); }
    bool isCheckedWhenSettled()
    {
        IdleDispatcher::flush();
        return button.isChecked();
    }
    std::vector<bool> take() { return std::exchange(changes, {}); }

    QCheckBox button{QStringLiteral("&Use it")};
    boost::shared_ptr<PropertyAbstract<bool>> property = boost::make_shared<Property<bool>>(true);
    std::unique_ptr<CheckButtonPropertyBinding> binding;
    std::vector<bool> changes;
    RecordedMessages messages;
};

TEST_F(CheckButtonPropertyBindingTest, ShowsThePropertyFromTheStart)
{
    CheckButtonPropertyBinding const on(&button, property, false);
    EXPECT_TRUE(button.isChecked());
    CheckButtonPropertyBinding const off(&button, boost::make_shared<Property<bool>>(false), false);
    EXPECT_FALSE(button.isChecked());
}

TEST_F(CheckButtonPropertyBindingTest, FollowsThePropertyAtIdleAndTellsNobody)
{
    bind();
    QSignalSpy const toggles(&button, &QAbstractButton::toggled);
    property->setValue(false);
    EXPECT_TRUE(button.isChecked());
    EXPECT_FALSE(isCheckedWhenSettled());
    EXPECT_EQ(toggles.count(), 0);
    EXPECT_THAT(take(), ElementsAre(false));
}

TEST_F(CheckButtonPropertyBindingTest, SetsThePropertyByMouseKeyAndMnemonic)
{
    bind();
    click();
    EXPECT_THAT(take(), ElementsAre(false));
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_THAT(take(), ElementsAre(true));
    QTest::keyClick(&button, Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !changes.empty(); }));
    EXPECT_THAT(take(), ElementsAre(false));
    EXPECT_FALSE(isCheckedWhenSettled());
}

TEST_F(CheckButtonPropertyBindingTest, MeansTheContraryWhenItIsInverted)
{
    bind(true);
    EXPECT_FALSE(button.isChecked());
    click();
    EXPECT_THAT(take(), ElementsAre(false));
    property->setValue(true);
    EXPECT_FALSE(isCheckedWhenSettled());
}

class Refusal : public virtual ValidatorInterface<bool>
{
public:
    explicit Refusal(std::string const& text)
        : m_text(text)
    {
    }
    ValidationResult validate(bool const&) const override
    {
        ValidationResult result;
        result.setErrorString(m_text);
        return result;
    }

private:
    std::string m_text;
};

TEST_F(CheckButtonPropertyBindingTest, GoesBackWhenThePropertyRefuses)
{
    property = boost::make_shared<Property<bool>>(true, boost::make_shared<Refusal>("Not now."));
    bind();
    click();
    EXPECT_THAT(messages.take(), ElementsAre("error: Not now."));
    EXPECT_TRUE(button.isChecked());
    EXPECT_THAT(take(), IsEmpty());
    property = boost::make_shared<Property<bool>>(false, boost::make_shared<Refusal>(""));
    bind();
    click();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_FALSE(button.isChecked());
}

/// Takes every value and stays as it is.
class Stubborn : public PropertyAbstract<bool>
{
protected:
    void storeValue(bool const&) override {}

private:
    bool retrieveValue() const override { return true; }
};

TEST_F(CheckButtonPropertyBindingTest, ShowsWhatThePropertyMadeOfAClick)
{
    property = boost::make_shared<Stubborn>();
    bind();
    click();
    EXPECT_TRUE(isCheckedWhenSettled());
}

/// Takes every value for the one it has, and tells nothing.
class UnmovedSwitch : public Stubborn
{
protected:
    bool isEqual(bool const&) const override { return true; }
};

TEST_F(CheckButtonPropertyBindingTest, GoesBackAfterAClickThatThePropertyTakesForNone)
{
    property = boost::make_shared<UnmovedSwitch>();
    bind();
    click();
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_TRUE(isCheckedWhenSettled());
}

TEST_F(CheckButtonPropertyBindingTest, MayGoWhileAWriteIsPending)
{
    bind();
    property->setValue(false);
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    EXPECT_TRUE(isCheckedWhenSettled());
    click();
    EXPECT_FALSE(property->value());
    click();
    EXPECT_FALSE(property->value()) << "nobody listens any more";
}

TEST_F(CheckButtonPropertyBindingTest, OutlivesItsButtonAndKeepsThePropertyAlive)
{
    auto other = std::make_unique<QCheckBox>();
    boost::weak_ptr<PropertyAbstract<bool>> const watch = property;
    CheckButtonPropertyBinding* const fresh = new CheckButtonPropertyBinding(other.get(), property, false);
    property->setValue(false);
    other.reset();
    property.reset();
    IdleDispatcher::flush();
    EXPECT_FALSE(watch.expired());
    delete fresh;
    EXPECT_TRUE(watch.expired());
}

TEST_F(CheckButtonPropertyBindingTest, MayBeDestroyedByAListenerOfItsOwnClick)
{
    bind();
    property->connectValueChanged([this](bool) { binding.reset(); });
    click();
    EXPECT_FALSE(property->value());
    EXPECT_EQ(binding, nullptr);
}

} // namespace
} // namespace veldraw::tests
