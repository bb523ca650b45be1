#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// An array of a file whose components have become variables. When a zone is saved, they are put together again.
struct SourceArray
{
    std::string name;
    std::vector<std::string> variables;      ///< names of the variables when they were imported, one for each component
    std::vector<std::string> componentNames; ///< names of the components in the file; empty where it had none
};

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

    /// The array of which this variable is a component; null when it is none, or the only one of an array with the
    /// variable's name. When a zone is saved, a variable that was renamed since the import counts as none.
    std::shared_ptr<SourceArray const> sourceArray;
    int component = 0; ///< zero-based number of the component in sourceArray
};

} // namespace veldraw::kernel
