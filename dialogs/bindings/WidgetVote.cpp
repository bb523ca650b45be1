#include "dialogs/bindings/WidgetVote.h"

#include "dialogs/bindings/WidgetBallot.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

WidgetVote::WidgetVote(QObject* target, Effect effect)
    : m_ballot(WidgetBallot::of(target))
    , m_effect(effect)
{
}

WidgetVote::~WidgetVote()
{
    if (m_ballot)
        m_ballot->withdraw(this, m_effect);
}

void WidgetVote::cast(bool yes)
{
    if (m_ballot)
        m_ballot->cast(this, m_effect, yes);
}

void WidgetVote::castFor(void const* voter, QObject* target, Effect effect, bool yes)
{
    if (WidgetBallot* const ballot = WidgetBallot::of(target))
        ballot->cast(voter, effect, yes);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
