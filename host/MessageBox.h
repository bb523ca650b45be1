#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::host {

/// The modal box that tells the user a text.
class VELDRAW_PLATFORM_API MessageBox
{
public:
    /// Whether there is an application with widgets and a screen that a person looks at.
    static bool canBeShown();

    /// Shows the text, UTF-8, over the active dialog or window and returns when the user has closed the box. While a
    /// busy cursor is shown an arrow takes its place.
    /// @param details shown when the user presses "Show Details"; empty for no such button
    static void show(std::string const& text, MessageBoxType_e type, std::string const& details = {});

    MessageBox() = delete;
};

} // namespace veldraw::host
