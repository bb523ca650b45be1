#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// A binding of one widget to one property. Its operations update the widget from the property.
class VDSDKDIALOGS_DATA_QT_API PropertyBindingInterface : public virtual BindingInterface
{
public:
    /// Writes the property's value into the widget.
    virtual void updateWidgetValue() = 0;
    /// Shows or hides the widget as the property's user-interface side says.
    virtual void updateWidgetVisibility() = 0;
    /// Enables or disables the widget as the property's user-interface side says.
    virtual void updateWidgetSensitivity() = 0;

    ~PropertyBindingInterface() override = default;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
