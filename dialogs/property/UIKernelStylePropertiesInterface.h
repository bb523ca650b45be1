#pragma once

#include "dialogs/property/DialogsApi.h"

#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// A group of kernel style properties that a dialog starts and, if it is modal, submits together. Groups can have a
/// parent, with which they are submitted.
class VDSDKDIALOGS_DATA_QT_API UIKernelStylePropertiesInterface
{
public:
    using Signal = boost::signals2::signal<void()>;

    UIKernelStylePropertiesInterface() = default;
    UIKernelStylePropertiesInterface(UIKernelStylePropertiesInterface const&) = delete;
    UIKernelStylePropertiesInterface& operator=(UIKernelStylePropertiesInterface const&) = delete;

    /// Tells the listeners that the group is ready to be shown.
    virtual void init() = 0;
    /// Writes what waits for it, then tells the listeners. An exception of a refused value reaches the caller; what was
    /// written before it stays, and nobody is told.
    virtual void submit() = 0;

private:
    virtual void signalInitializedConnected() const;
    virtual void signalSubmittedConnected() const;

public:
    /// Whether the values wait for `submit()`.
    virtual bool isModal() const = 0;
    /// Null for a group without a parent.
    virtual UIKernelStylePropertiesInterface* parent() const = 0;
    /// Picks a member of the collection that the group's values are in; -1 means unset.
    virtual void setCollectionOffset(int const& offset) = 0;
    virtual int collectionOffset() const = 0;
    virtual ~UIKernelStylePropertiesInterface();

    /// Connects a slot and then calls the virtual function `signalInitializedConnected()`.
    boost::signals2::connection connectInitialized(Signal::slot_type const& slot) const;
    /// Connects a slot and then calls the virtual function `signalSubmittedConnected()`.
    boost::signals2::connection connectSubmitted(Signal::slot_type const& slot) const;

protected:
    mutable Signal signalInitialized;
    mutable Signal signalSubmitted;
};

} // namespace veldraw::sdk::ui::propertymanager
