#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"

#include <boost/function.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// Asks a question of the application; signals after each state change that may alter the answer.
///
/// It begins to follow state changes with its first listener and goes on until its end. An empty query throws
/// `boost::bad_function_call` when it is asked.
class VDSDKDIALOGS_DATA_QT_API StateChangeDependentRelevance : public virtual RelevanceInterface
{
public:
    using Event = toolbox::StateChangeEventInterface;

    /// Follows changes of the engine's structure and of the plot type.
    StateChangeDependentRelevance(boost::function<bool()> const& query);
    /// Follows the events that `predicate` accepts.
    StateChangeDependentRelevance(boost::function<bool(Event const&)> const& predicate,
                                  boost::function<bool()> const& query);
    StateChangeDependentRelevance(bool (*predicate)(Event const&), bool (*query)());

    bool isRelevant() const override;

private:
    void signalRelevanceChangedConnected() const override;
    void onStateChange(Event const& event) const;

    boost::function<bool(Event const&)> m_predicate;
    boost::function<bool()> m_query;
    mutable bool m_isFollowing = false;
    mutable SignalConnectionCollection m_connections;
};

} // namespace veldraw::sdk::ui::propertymanager
