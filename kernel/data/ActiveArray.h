#pragma once

#include "kernel/base/Identifier.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::kernel {

/// An array that the file of a zone names for a purpose, for instance as the vectors that a program is to show first.
struct ActiveArray
{
    std::string purpose; ///< as the file spells it: "Scalars", "Vectors" and so on
    ValueLocation_e location;
    UniqueId variable; ///< of the array's first component
};

} // namespace veldraw::kernel
