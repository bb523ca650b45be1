#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>
#include <boost/signals2/signal.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// Whether the control of a property is visible and whether it is enabled.
///
/// Each answer is a flag and, if there is one, a rule: both have to say yes.
class VDSDKDIALOGS_DATA_QT_API UIPropertyInterface
{
public:
    using Signal = boost::signals2::signal<void()>;

    UIPropertyInterface() = default;
    UIPropertyInterface(UIPropertyInterface const&) = delete;
    UIPropertyInterface& operator=(UIPropertyInterface const&) = delete;

    virtual void setVisible(bool visible) = 0;
    /// An empty pointer removes the rule.
    virtual void setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) = 0;
    virtual bool isVisible() const = 0;
    virtual void setSensitive(bool sensitive) = 0;
    /// An empty pointer removes the rule.
    virtual void setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) = 0;
    virtual bool isSensitive() const = 0;

    /// Connects a slot, then calls the virtual function `signalVisibilityChangedConnected()`.
    boost::signals2::connection connectVisibilityChanged(Signal::slot_type const& slot) const;
    /// Connects a slot, then calls the virtual function `signalSensitivityChangedConnected()`.
    boost::signals2::connection connectSensitivityChanged(Signal::slot_type const& slot) const;

private:
    virtual void signalVisibilityChangedConnected() const;
    virtual void signalSensitivityChangedConnected() const;

public:
    virtual ~UIPropertyInterface();

protected:
    mutable Signal signalVisibilityChanged;
    mutable Signal signalSensitivityChanged;
};

} // namespace veldraw::sdk::ui::propertymanager
