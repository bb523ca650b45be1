#include "dialogs/bindings/RelevanceApplier.h"

#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::AppLock;
using sdk::ui::common::IdleDispatcher;

boost::shared_ptr<SwitchedRelevance> rule(bool answer)
{
    return boost::make_shared<SwitchedRelevance>(answer);
}

class RelevanceApplierTest : public testing::Test
{
protected:
    RelevanceApplierTest()
    {
        auto* const layout = new QVBoxLayout(&window);
        for (int i = 0; i < 5; ++i) {
            labels.push_back(new QLabel(&window));
            layout->addWidget(labels.back());
        }
    }

    std::vector<bool> enabled() const
    {
        std::vector<bool> states;
        for (QLabel const* const label : labels)
            states.push_back(label->isEnabled());
        return states;
    }

    QWidget window;
    std::vector<QLabel*> labels;
};

TEST_F(RelevanceApplierTest, AppliesItsRuleAtConstruction)
{
    RelevanceApplier const applier(rule(false), labels[0], RelevanceApplier::EnableDisable,
                                   RelevanceApplier::UpdateOnIdle);
    EXPECT_FALSE(labels[0]->isEnabled());
    EXPECT_TRUE(labels[1]->isEnabled());
}

TEST_F(RelevanceApplierTest, FollowsItsRuleAtIdle)
{
    auto const answer = rule(true);
    RelevanceApplier const applier(answer, labels[0], RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle);
    answer->set(false);
    EXPECT_TRUE(labels[0]->isEnabled());
    {
        AppLock const lock(AppLock::RecordAsUsual);
        IdleDispatcher::flush();
        EXPECT_TRUE(labels[0]->isEnabled()) << "nothing is idle under a lock";
    }
    IdleDispatcher::flush();
    EXPECT_FALSE(labels[0]->isEnabled());
}

TEST_F(RelevanceApplierTest, FollowsItsRuleAtOnceWhenAskedTo)
{
    auto const answer = rule(true);
    RelevanceApplier const applier(answer, labels[0], RelevanceApplier::EnableDisable,
                                   RelevanceApplier::UpdateImmediately);
    answer->set(false);
    EXPECT_FALSE(labels[0]->isEnabled());
}

TEST_F(RelevanceApplierTest, ShowsAndHidesWhenAskedTo)
{
    window.show();
    auto const answer = rule(false);
    RelevanceApplier const applier(answer, labels[0], RelevanceApplier::ShowHide, RelevanceApplier::UpdateOnIdle);
    EXPECT_TRUE(labels[0]->isHidden());
    EXPECT_TRUE(labels[0]->isEnabled());
    answer->set(true);
    IdleDispatcher::flush();
    EXPECT_TRUE(labels[0]->isVisible());
}

TEST_F(RelevanceApplierTest, TakesOneToFiveWidgetsOrAnyNumber)
{
    auto const m = RelevanceApplier::EnableDisable;
    auto const u = RelevanceApplier::UpdateOnIdle;
    auto const no = rule(false);
    std::vector<QLabel*> const& l = labels;
    {
        RelevanceApplier const applier(no, l[0], l[1], m, u);
        EXPECT_EQ(enabled(), (std::vector<bool>{false, false, true, true, true}));
    }
    RelevanceApplier(no, l[0], l[1], l[2], m, u);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, false, false, true, true}));
    RelevanceApplier(no, l[0], l[1], l[2], l[3], m, u);
    EXPECT_EQ(enabled(), (std::vector<bool>{false, false, false, false, true}));
    RelevanceApplier(no, l[0], l[1], l[2], l[3], l[4], m, u);
    EXPECT_EQ(enabled(), std::vector<bool>(5, false));
    RelevanceApplier(rule(true), std::vector<QObject*>(l.begin(), l.end()), m, u);
    EXPECT_EQ(enabled(), std::vector<bool>(5, true));
}

TEST_F(RelevanceApplierTest, LetsAWidgetBeUsedOnlyWhenAllRulesOnItAgree)
{
    auto const a = rule(true);
    auto const b = rule(true);
    RelevanceApplier const first(a, labels[0], RelevanceApplier::EnableDisable, RelevanceApplier::UpdateImmediately);
    RelevanceApplier const second(b, labels[0], RelevanceApplier::EnableDisable, RelevanceApplier::UpdateImmediately);
    for (bool const x : {true, false}) {
        for (bool const y : {false, true}) {
            a->set(x);
            b->set(y);
            EXPECT_EQ(labels[0]->isEnabled(), x && y);
            a->set(x);
            EXPECT_EQ(labels[0]->isEnabled(), x && y);
        }
    }
}

TEST_F(RelevanceApplierTest, KeepsEnablingAndShowingApart)
{
    RelevanceApplier const disabler(rule(false), labels[0], RelevanceApplier::EnableDisable,
                                    RelevanceApplier::UpdateImmediately);
    RelevanceApplier const shower(rule(true), labels[0], RelevanceApplier::ShowHide,
                                  RelevanceApplier::UpdateImmediately);
    EXPECT_FALSE(labels[0]->isEnabled());
    EXPECT_FALSE(labels[0]->isHidden());
}

TEST_F(RelevanceApplierTest, TakesItsVoteAlongWhenItEnds)
{
    auto const yes = rule(true);
    RelevanceApplier const stays(yes, labels[0], RelevanceApplier::EnableDisable, RelevanceApplier::UpdateImmediately);
    auto goes = std::make_unique<RelevanceApplier>(rule(false), labels[0], RelevanceApplier::EnableDisable,
                                                   RelevanceApplier::UpdateImmediately);
    EXPECT_FALSE(labels[0]->isEnabled());
    goes.reset();
    EXPECT_TRUE(labels[0]->isEnabled());
}

TEST_F(RelevanceApplierTest, LeavesAWidgetAsItIsWhenTheLastRuleOnItEnds)
{
    auto applier = std::make_unique<RelevanceApplier>(rule(false), labels[0], RelevanceApplier::EnableDisable,
                                                      RelevanceApplier::UpdateImmediately);
    applier.reset();
    EXPECT_FALSE(labels[0]->isEnabled());
}

TEST_F(RelevanceApplierTest, WorksOnActionsOfMenus)
{
    QAction action;
    auto const answer = rule(false);
    RelevanceApplier const applier(answer, &action, RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle);
    RelevanceApplier const hider(answer, &action, RelevanceApplier::ShowHide, RelevanceApplier::UpdateOnIdle);
    EXPECT_FALSE(action.isEnabled());
    EXPECT_FALSE(action.isVisible());
    answer->set(true);
    IdleDispatcher::flush();
    EXPECT_TRUE(action.isEnabled());
    EXPECT_TRUE(action.isVisible());
}

TEST_F(RelevanceApplierTest, OutlivesItsWidgetsAndPassesOverNone)
{
    auto const answer = rule(true);
    auto widget = std::make_unique<QLabel>();
    QObject neither;
    RelevanceApplier const applier(answer, widget.get(), nullptr, &neither, RelevanceApplier::EnableDisable,
                                   RelevanceApplier::UpdateOnIdle);
    widget.reset();
    answer->set(false);
    IdleDispatcher::flush();
}

TEST_F(RelevanceApplierTest, DoesNothingMoreAfterItsEnd)
{
    auto const answer = rule(true);
    {
        RelevanceApplier const applier(answer, labels[0], RelevanceApplier::EnableDisable,
                                       RelevanceApplier::UpdateOnIdle);
        answer->set(false);
    }
    IdleDispatcher::flush();
    EXPECT_TRUE(labels[0]->isEnabled());
    EXPECT_EQ(answer->listenerCount(), 0u);
}

} // namespace
} // namespace veldraw::tests
