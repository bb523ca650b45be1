#include "dialogs/property/StateChangeDependentRelevance.h"

#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool isEngineOrPlotTypeStateChange(toolbox::StateChangeEventInterface const& event)
{
    return common::engineStateChanged(event) || common::isPlotTypeStateChange(event);
}

} // namespace

StateChangeDependentRelevance::StateChangeDependentRelevance(boost::function<bool()> const& query)
    : StateChangeDependentRelevance(boost::function<bool(Event const&)>(isEngineOrPlotTypeStateChange), query)
{
}

StateChangeDependentRelevance::StateChangeDependentRelevance(boost::function<bool(Event const&)> const& predicate,
                                                             boost::function<bool()> const& query)
    : m_predicate(predicate)
    , m_query(query)
{
}

StateChangeDependentRelevance::StateChangeDependentRelevance(bool (*predicate)(Event const&), bool (*query)())
    : StateChangeDependentRelevance(boost::function<bool(Event const&)>(predicate), boost::function<bool()>(query))
{
}

bool StateChangeDependentRelevance::isRelevant() const
{
    return m_query();
}

void StateChangeDependentRelevance::signalRelevanceChangedConnected() const
{
    if (m_isFollowing)
        return;
    m_isFollowing = true;
    m_connections.add(integration::StateChangeEventObservable::getInstance().connectStateChanged(
        [this](Event const& event) { onStateChange(event); }));
}

void StateChangeDependentRelevance::onStateChange(Event const& event) const
{
    if (m_predicate(event))
        signalRelevanceChanged();
}

} // namespace veldraw::sdk::ui::propertymanager
