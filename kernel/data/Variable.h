#pragma once

#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/Identifier.h"

#include <string>

namespace veldraw::kernel {

/// A variable of a data set. Its number is its position in the data set; its identifier never changes.
struct Variable
{
    explicit Variable(std::string variableName)
        : id(nextUniqueId())
        , name(std::move(variableName))
    {
    }

    UniqueId id;
    std::string name; ///< UTF-8
    bool enabled = true;
    AuxiliaryData auxiliaryData;
};

} // namespace veldraw::kernel
