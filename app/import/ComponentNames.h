#pragma once

#include <string>

namespace veldraw::app {

/// Name of the variable for one component of an array: "v" of one, "v_X", "v_Y", "v_Z" of up to three, else "v_1" and so on.
/// @param component from 0
inline std::string componentName(std::string const& name, int component, int count)
{
    if (count == 1)
        return name;
    if (count > 3)
        return name + "_" + std::to_string(component + 1);
    return name + "_" + "XYZ"[component];
}

} // namespace veldraw::app
