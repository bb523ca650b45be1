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

/// The base of bindings, for one direction: it listens to a property and has its widget updated. A concrete binding says
/// how the widget is written, and adds the other direction by calling `setPropertyValue` when the user changes the widget:
///
///     SwitchBinding::SwitchBinding(QCheckBox& box, boost::shared_ptr<PropertyAbstract<bool>> on)
///         : UIPropertyBindingAbstract<bool>(on, BindingInterface::UpdateOnIdle)
///         , m_box(box)
///     {
///         SwitchBinding::updateWidgetValue(); // the base can't: there was no widget yet
///         m_connections.add(QObject::connect(&box, &QCheckBox::clicked, [this](bool isOn) { setPropertyValue(isOn); }));
///     }
///
///     void SwitchBinding::updateWidgetValue()
///     {
///         m_box.setChecked(property().value());
///     }
///
/// A binding that needs `Q_OBJECT` derives from `QObjectPropertyBinding` instead.
///
/// Widget and property cannot set each other for ever, though no flag says "updating": setting an equal value changes
/// nothing, and with `UpdateOnIdle` the widget is never written inside the property's signal. Several changes before the
/// next idle moment cause one write, of the value that the property has at that moment.
///
/// Exceptions of `setValue` reach the caller. A binding may be destroyed inside its property's signal; updates that are
/// still scheduled are then cancelled.
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
