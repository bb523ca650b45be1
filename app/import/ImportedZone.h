#pragma once

#include "kernel/data/Field.h"
#include "kernel/data/Zone.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// One block of a file: a zone without its fields, and the fields with the names of their variables.
struct ImportedZone
{
    struct NamedField
    {
        std::string name; ///< each name once
        kernel::Field field;
    };

    std::shared_ptr<kernel::Zone> zone;
    std::vector<NamedField> fields;
    std::vector<std::string> variableNames; ///< the order of variables that the file asks for; may be empty
    std::optional<double> timeStep;         ///< time step by which strands are to be found, if the file says one

    /// Adds a field; " (2)" and so on is appended to a @p name that is taken. An empty name becomes "Variable".
    void addField(std::string const& name, kernel::Field field);
};

} // namespace veldraw::app
