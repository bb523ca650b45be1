#include "dialogs/bindings/WidgetBallot.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

template <typename Target>
void setState(Target& target, WidgetVote::Effect effect, bool on)
{
    if (effect == WidgetVote::Enabled)
        target.setEnabled(on);
    else
        target.setVisible(on);
}

} // namespace

WidgetBallot* WidgetBallot::of(QObject* target)
{
    if (!qobject_cast<QWidget*>(target) && !qobject_cast<QAction*>(target))
        return nullptr;
    auto* const existing = target->findChild<WidgetBallot*>(QString(), Qt::FindDirectChildrenOnly);
    return existing ? existing : new WidgetBallot(*target);
}

WidgetBallot::WidgetBallot(QObject& target)
    : QObject(&target)
{
}

void WidgetBallot::cast(void const* voter, WidgetVote::Effect effect, bool yes)
{
    m_votes[effect][voter] = yes;
    apply(effect);
}

void WidgetBallot::withdraw(void const* voter, WidgetVote::Effect effect)
{
    if (m_votes[effect].erase(voter) > 0 && !m_votes[effect].empty())
        apply(effect);
}

void WidgetBallot::apply(WidgetVote::Effect effect)
{
    Votes const& votes = m_votes[effect];
    bool const all = std::all_of(votes.begin(), votes.end(), [](auto const& entry) { return entry.second; });
    if (auto* const widget = qobject_cast<QWidget*>(parent()))
        setState(*widget, effect, all);
    else if (auto* const action = qobject_cast<QAction*>(parent()))
        setState(*action, effect, all);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
