#pragma once

#include "dialogs/property/DialogsApi.h"

#include <boost/signals2/signal.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// A relevance rule: a condition that is true or false, and a signal that tells when that may have changed. Rules decide
/// what is enabled and what is visible: commands, widgets, properties.
///
///     boost::shared_ptr<RelevanceInterface const> const rule = boost::make_shared<DataSetExistsRelevance>();
///     RelevanceApplier const applier(rule, form.deleteButton, RelevanceApplier::EnableDisable,
///                                    BindingInterface::UpdateOnIdle);
///
/// `isRelevant()` is right at any time, whether or not anybody listens. The signal does not carry the answer, and it may
/// come when nothing changed: a listener asks `isRelevant()` again. `RelevanceExpression` combines rules, `InvertingRelevance` turns one
/// round. Derived classes inherit this one virtually.
class VDSDKDIALOGS_DATA_QT_API RelevanceInterface
{
public:
    using RelevanceChangedSignal = boost::signals2::signal<void()>;

    RelevanceInterface() = default;
    RelevanceInterface(RelevanceInterface const&) = delete;
    RelevanceInterface& operator=(RelevanceInterface const&) = delete;

    virtual bool isRelevant() const = 0;

    /// Connects a slot, then calls the virtual function `signalRelevanceChangedConnected()`. What a slot may do while the
    /// signal runs stands at `PropertyAbstract`.
    boost::signals2::connection connectRelevanceChanged(RelevanceChangedSignal::slot_type const& slot) const;

private:
    virtual void signalRelevanceChangedConnected() const;

public:
    virtual ~RelevanceInterface();

protected:
    mutable RelevanceChangedSignal signalRelevanceChanged;
};

} // namespace veldraw::sdk::ui::propertymanager
