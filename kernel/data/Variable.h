#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// An array as a file had it, whose components have become variables; a saver can put them together again.
struct SourceArray
{
    std::string name;
    std::vector<std::string> variables;      ///< names that the variables were given, one a component
    std::vector<std::string> componentNames; ///< as the file had them, one a component; empty where it had none
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

    /// The array of a file that the variable came from; null when it came from none, or from one of its own with its name. Under
    /// another name than it was given then, the variable stands for itself.
    std::shared_ptr<SourceArray const> sourceArray;
    int component = 0; ///< of it, from 0
};

} // namespace veldraw::kernel
