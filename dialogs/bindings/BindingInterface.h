#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// A binding keeps a widget and a property equal for the life of a dialog. All bindings derive from this class.
///
/// A dialog makes its bindings once, after the form, and then neither reads nor writes a widget itself:
///
///     ui.setupUi(&dialog);
///     bindings.add<LabelPropertyBinding>(ui.unitLabel, manager.unitText());
///     bindings.add<ButtonBinding>(*ui.createButton, [this] { manager.create(); });
///
/// Bindings are destroyed before the widgets and the manager; see `BindingList`.
class VDSDKDIALOGS_DATA_QT_API BindingInterface
{
public:
    /// When a binding updates its widget after a change of the property.
    enum WidgetUpdateMode_e
    {
        UpdateImmediately = 0, ///< inside the property's signal
        UpdateOnIdle = 1       ///< at the next idle moment of the user-interface loop, once for any number of changes
    };

    /// When a binding updates its widget after a change of the list that the widget shows.
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
