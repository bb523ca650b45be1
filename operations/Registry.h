#pragma once

#include "operations/OperationEntry.h"

#include <string>
#include <vector>

namespace veldraw::operations {

/// All operations by name, in the order of their help.
class Registry
{
public:
    /// @throws std::logic_error for a name that is there already
    void add(OperationEntry entry);

    std::vector<OperationEntry> const& entries() const { return m_entries; }

    /// @return null when there is none of this name
    OperationEntry const* find(std::string const& name) const;

    /// The operation of a command. @throws CommandError, with the nearest name, when there is none
    OperationEntry const& entryOf(Command const& command) const;

    /// A line for each operation: its name and what it does.
    std::string listText() const;

private:
    std::vector<OperationEntry> m_entries;
};

/// What the help says of an operation: its sentence, and a line for each parameter.
std::string helpText(OperationEntry const& entry);

} // namespace veldraw::operations
