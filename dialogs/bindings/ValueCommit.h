#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <functional>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Sets a property to a value that the user entered, under the application's lock. A refusal with a text opens a message box.
/// @param beforeTold called before the message box opens
/// @return whether the property accepted the value. Other exceptions of the property reach the caller.
template <typename T>
bool commitValue(
    PropertyAbstract<T>& property, T const& value, std::function<void()> const& beforeTold = [] {})
{
    AppLock const lock(AppLock::RecordAsUsual);
    try {
        property.setValue(value);
        return true;
    } catch (InvalidPropertyValueException const& refusal) {
        if (*refusal.what()) {
            beforeTold();
            VelUtilDialogMessageBox(refusal.what(), MessageBoxType_Error);
        }
    } catch (InvalidArgumentException const&) {
        // No message: the text could not be converted to a value.
    }
    return false;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
