#pragma once

#include "dialogs/bindings/BindingTypes.h"
#include "dialogs/bindings/PropertyBindingInterface.h"
#include "dialogs/property/UIStylePropertyAbstract.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::dialogs::propertybindings {

using propertymanager::UIPropertyInterface;
using propertymanager::UIStylePropertyAbstract;

/// A binding's road from the property to the widget; a concrete binding adds the road back and says how its widget is
/// written.
///
/// There is no flag for "updating". A widget and a property don't feed each other because setting an equal value
/// changes nothing, and because with `UpdateOnIdle` the widget is never written inside the property's signal. Any
/// number of changes before the next idle moment make one write, with the value that holds then.
///
/// Catches nothing that `setValue` throws. May be destroyed inside its property's signal; nothing due runs then.
template <typename T>
class UIPropertyBindingAbstract : public virtual PropertyBindingInterface
{
public:
    /// Follows value, visibility and sensitivity. The caller keeps the property alive.
    UIPropertyBindingAbstract(UIStylePropertyAbstract<T>& uiProperty, WidgetUpdateMode_e mode);
    /// Follows the value; keeps the property alive.
    UIPropertyBindingAbstract(boost::shared_ptr<PropertyAbstract<T>> property, WidgetUpdateMode_e mode);
    ~UIPropertyBindingAbstract() override;

    PropertyAbstract<T>& property();
    /// Only for a binding that was made with a user-interface property.
    UIPropertyInterface& uiProperty();

protected:
    /// Sets the property and keeps a shared one alive meanwhile, since a listener may end the binding.
    void setPropertyValue(T const& value);

    /// Schedules one write of the widget for the next idle moment.
    virtual void updateValueOnIdle();

    void startListeningToProperty();
    /// The widget stays as it is until the next `updateWidgetValue()`; a write that is scheduled already still comes.
    void stopListeningToProperty();

private:
    void valueChanged();
    void visibilityChanged();
    void sensitivityChanged();

    WidgetUpdateMode_e const m_widgetUpdateMode;
    UIStylePropertyAbstract<T>* const m_uiProperty; // null: the property has no user-interface side
    PropertyAbstract<T>* const m_property;
    boost::shared_ptr<PropertyAbstract<T>> const m_sharedProperty; // empty: somebody else's
    common::OnIdleActionPerformerSingleShot m_widgetUpdater;
    common::OnIdleActionPerformerSingleShot m_visibilityUpdater;
    common::OnIdleActionPerformerSingleShot m_sensitivityUpdater;
    SignalConnectionCollection m_connections;
};

extern template class VDSDKDIALOGS_DATA_QT_API UIPropertyBindingAbstract<std::string>;
#define VELDRAW_DECLARE(T) extern template class UIPropertyBindingAbstract<T>;
VELDRAW_FOR_EACH_LOCALLY_BOUND_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
