#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <functional>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Sets what the user entered, under the application's lock. A refusal is told in a message box, if it has a text.
/// @param beforeTold called before the box opens
/// @return whether the property took the value. What else the property throws leaves the function.
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
        // Nothing to say: the value never became one.
    }
    return false;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
