#pragma once

#include "dialogs/property/DialogsApi.h"

#include <boost/signals2/signal.hpp>

namespace veldraw {

/// The untyped side of every property: something that can change and says so.
///
/// Listeners that serve properties of any type connect here. The signal says only that something may have changed; the
/// listener asks again. Not copyable: who listens, listens to this very object.
class VDSDKDIALOGS_DATA_QT_API PropertyItemInterface
{
public:
    using PropertyChangedSignal = boost::signals2::signal<void()>;

    PropertyItemInterface() = default;
    PropertyItemInterface(PropertyItemInterface const&) = delete;
    PropertyItemInterface& operator=(PropertyItemInterface const&) = delete;

    /// Connects a slot and then calls the virtual function `signalPropertyChangedConnected()`.
    ///
    /// Nothing is owned: a listener that ends first disconnects, best through a `SignalConnectionCollection`.
    boost::signals2::connection
    connectPropertyChanged(PropertyChangedSignal::slot_type const& slot,
                           boost::signals2::connect_position position = boost::signals2::at_back) const;

private:
    virtual void signalPropertyChangedConnected() const;

public:
    virtual ~PropertyItemInterface();

protected:
    mutable PropertyChangedSignal signalPropertyChanged;
};

} // namespace veldraw
