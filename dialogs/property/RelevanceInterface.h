#pragma once

#include "dialogs/property/DialogsApi.h"

#include <boost/signals2/signal.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// A yes-or-no question whose answer can change, with a signal that says that it may have.
///
/// Availability of commands, of widgets and of properties is asked through rules. The answer is right at any time, also
/// when nobody listens; a listener asks `isRelevant()` again on each signal. Implementers inherit it virtually.
class VDSDKDIALOGS_DATA_QT_API RelevanceInterface
{
public:
    using RelevanceChangedSignal = boost::signals2::signal<void()>;

    RelevanceInterface() = default;
    RelevanceInterface(RelevanceInterface const&) = delete;
    RelevanceInterface& operator=(RelevanceInterface const&) = delete;

    virtual bool isRelevant() const = 0;

    /// Connects a slot, then runs the hook `signalRelevanceChangedConnected()`. Inside signals: see `PropertyAbstract`.
    boost::signals2::connection connectRelevanceChanged(RelevanceChangedSignal::slot_type const& slot) const;

private:
    virtual void signalRelevanceChangedConnected() const;

public:
    virtual ~RelevanceInterface();

protected:
    mutable RelevanceChangedSignal signalRelevanceChanged;
};

} // namespace veldraw::sdk::ui::propertymanager
