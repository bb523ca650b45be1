#pragma once

#include "platform/vdtoolbox/ArgList.h"

#include <functional>
#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// One value of the active data set that is to be written, as the arguments of the kernel's function.
class ValueWrite
{
public:
    /// @param zone, variable one-based numbers
    /// @param offset zero-based, in the variable's array
    /// @param text as a cell reads; one that is no number writes 0
    /// @param alterInAllSharedZones whether the zones that share the values get the value, too
    ValueWrite(int zone, int variable, long long offset, std::string const& text, bool alterInAllSharedZones);

    /// Writes the value, and tells the user if the kernel refuses.
    /// @param beforeWrite called right before the kernel
    /// @param afterWrite called right after it, before the user is told anything
    /// @return whether the kernel accepted the value
    bool run(
        std::function<void()> const& beforeWrite, std::function<void()> const& afterWrite = [] {});

private:
    toolbox::ArgList m_arguments;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
