#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Keeps a widget and a property equal on behalf of a binding.
class VDSDKDIALOGS_DATA_QT_API WidgetPropertySynchronizerInterface
{
public:
    WidgetPropertySynchronizerInterface() = default;
    WidgetPropertySynchronizerInterface(WidgetPropertySynchronizerInterface const&) = delete;
    WidgetPropertySynchronizerInterface& operator=(WidgetPropertySynchronizerInterface const&) = delete;
    virtual ~WidgetPropertySynchronizerInterface() = default;

    /// Reads the property, writes the widget.
    virtual void updateWidget() = 0;
    /// Reads the widget, writes the property.
    virtual void updateProperty() = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
