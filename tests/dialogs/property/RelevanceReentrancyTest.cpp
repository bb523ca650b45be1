#include "dialogs/property/BooleanPropertyDependentRelevance.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/RelevanceExpression.h"
#include "dialogs/property/UIProperty.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::propertymanager;

using Signal = boost::signals2::signal<void()>;

/// Something that says yes or no and tells when its answer may have changed.
class RuleSource
{
public:
    void set(bool answer) { m_rule.set(answer); }
    bool answer() const { return m_rule.isRelevant(); }
    boost::signals2::connection connect(Signal::slot_type const& slot) { return m_rule.connectRelevanceChanged(slot); }

private:
    SwitchedRelevance m_rule{false};
};

class ExpressionSource
{
public:
    void set(bool answer) { m_operand->set(answer); }
    bool answer() const { return m_rule.isRelevant(); }
    boost::signals2::connection connect(Signal::slot_type const& slot) { return m_rule.connectRelevanceChanged(slot); }

private:
    boost::shared_ptr<SwitchedRelevance> const m_operand = boost::make_shared<SwitchedRelevance>(false);
    RelevanceExpression m_rule{m_operand};
};

class PropertyRuleSource
{
public:
    void set(bool answer) { m_property->setValue(answer); }
    bool answer() const { return m_rule.isRelevant(); }
    boost::signals2::connection connect(Signal::slot_type const& slot) { return m_rule.connectRelevanceChanged(slot); }

private:
    boost::shared_ptr<Property<bool>> const m_property = boost::make_shared<Property<bool>>(false);
    BooleanPropertyDependentRelevance m_rule{m_property};
};

class VisibilitySource
{
public:
    VisibilitySource() { m_property.setVisible(false); }
    void set(bool answer) { m_property.setVisible(answer); }
    bool answer() const { return m_property.isVisible(); }
    boost::signals2::connection connect(Signal::slot_type const& slot)
    {
        return m_property.connectVisibilityChanged(slot);
    }

private:
    UIProperty m_property;
};

class SensitivitySource
{
public:
    SensitivitySource() { m_property.setSensitive(false); }
    void set(bool answer) { m_property.setSensitive(answer); }
    bool answer() const { return m_property.isSensitive(); }
    boost::signals2::connection connect(Signal::slot_type const& slot)
    {
        return m_property.connectSensitivityChanged(slot);
    }

private:
    UIProperty m_property;
};

/// Writes a letter when it is told, for as long as it lives.
class RuleListener
{
public:
    template <typename Source>
    RuleListener(Source& source, std::string& order, char letter)
        : m_connection(source.connect([&order, letter] { order += letter; }))
    {
    }

private:
    boost::signals2::scoped_connection m_connection;
};

template <typename Source>
class AnswerInItsSignal : public testing::Test
{
protected:
    Source source;
    std::string order;
};

using Sources = testing::Types<RuleSource, ExpressionSource, PropertyRuleSource, VisibilitySource, SensitivitySource>;
TYPED_TEST_SUITE(AnswerInItsSignal, Sources);

TYPED_TEST(AnswerInItsSignal, MayChangeAgainAndTellsThatInside)
{
    boost::signals2::scoped_connection const changer = this->source.connect([this] {
        if (this->source.answer())
            this->source.set(false);
    });
    boost::signals2::scoped_connection const last =
        this->source.connect([this] { this->order += this->source.answer() ? 'y' : 'n'; });
    this->source.set(true);
    EXPECT_EQ(this->order, "nn");
    EXPECT_FALSE(this->source.answer());
}

TYPED_TEST(AnswerInItsSignal, CallsANewSlotFromTheNextSignalOn)
{
    std::unique_ptr<RuleListener> late;
    boost::signals2::scoped_connection const first = this->source.connect([this, &late] {
        if (!late)
            late = std::make_unique<RuleListener>(this->source, this->order, 'b');
    });
    this->source.set(true);
    EXPECT_EQ(this->order, "");
    this->source.set(false);
    EXPECT_EQ(this->order, "b");
}

TYPED_TEST(AnswerInItsSignal, DoesNotCallAListenerThatWasJustDestroyed)
{
    std::unique_ptr<RuleListener> second;
    boost::signals2::scoped_connection const first = this->source.connect([&second] { second.reset(); });
    second = std::make_unique<RuleListener>(this->source, this->order, 'b');
    RuleListener const third(this->source, this->order, 'c');
    this->source.set(true);
    EXPECT_EQ(this->order, "c");
}

TYPED_TEST(AnswerInItsSignal, LetsAListenerDestroyItself)
{
    auto self = std::make_unique<boost::signals2::scoped_connection>();
    *self = this->source.connect([this, &self] {
        this->order += 'a';
        self.reset();
    });
    RuleListener const other(this->source, this->order, 'b');
    this->source.set(true);
    this->source.set(false);
    EXPECT_EQ(this->order, "abb");
}

TYPED_TEST(AnswerInItsSignal, HandsOnWhatASlotThrowsAndKeepsTheNewAnswer)
{
    bool fails = true;
    boost::signals2::scoped_connection const first = this->source.connect([&fails] {
        if (fails)
            throw std::runtime_error("listener");
    });
    RuleListener const second(this->source, this->order, 'b');
    EXPECT_THROW(this->source.set(true), std::runtime_error);
    EXPECT_TRUE(this->source.answer());
    EXPECT_EQ(this->order, "");
    fails = false;
    this->source.set(false);
    EXPECT_EQ(this->order, "b");
}

} // namespace
} // namespace veldraw::tests
