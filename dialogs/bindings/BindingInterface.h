#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The root of every binding: a tie between a widget and a property, for the life of a dialog.
///
/// A dialog builds its bindings once, after the form, and keeps them as pointers to this class; it never reads or
/// writes a widget itself. Bindings are destroyed with the dialog, before the widgets.
class VDSDKDIALOGS_DATA_QT_API BindingInterface
{
public:
    /// When a widget follows a change of its property.
    enum WidgetUpdateMode_e
    {
        UpdateImmediately = 0, ///< inside the property's signal
        UpdateOnIdle = 1       ///< at the next idle moment of the user-interface loop, once for any number of changes
    };

    /// How a binding to a list follows a change of the list.
    enum ModelUpdateMode
    {
        ModelUpdateUndeferred = 0,    ///< at once
        ModelUpdateDeferredOnBusy = 1 ///< at the next idle moment
    };

    BindingInterface() = default;
    BindingInterface(BindingInterface const&) = delete;
    BindingInterface& operator=(BindingInterface const&) = delete;
    virtual ~BindingInterface() = default;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
