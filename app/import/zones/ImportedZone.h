#pragma once

#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/Field.h"
#include "kernel/data/Variable.h"
#include "kernel/data/Zone.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldraw::app {

/// One block of a file: a zone without its fields, and the fields with the names of their variables.
struct ImportedZone
{
    struct NamedField
    {
        std::string name; ///< each name once
        kernel::Field field;
        std::shared_ptr<kernel::SourceArray const>
            array; ///< that it is a component of; null where that is the field itself
        int component = 0;
        std::vector<std::string> purposes; ///< of the array that starts with the field (see kernel::ActiveArray)
    };

    std::shared_ptr<kernel::Zone> zone;
    std::vector<NamedField> fields;
    std::vector<std::string> variableNames; ///< the order of variables that the file asks for; may be empty
    kernel::AuxiliaryData notesOnDataSet;   ///< what the file says of the data set as a whole
    std::map<std::string, kernel::AuxiliaryData> notesOnVariables; ///< and of variables, by their names
    std::optional<double> timeStep; ///< time step by which strands are to be found, if the file says one

    /// Adds a field; " (2)" and so on is appended to a @p name that is taken. An empty name becomes "Variable". Names that are no UTF-8 are
    /// taken for Latin-1, here and below.
    void addField(std::string const& name, kernel::Field field);

    /// Adds the components of an array that is called @p name.
    /// @param variables names that they are to have; another number of them than of components stands for the usual names
    /// @param componentNames as the file has them; empty where it has none
    /// @param purposes for which the file names the array
    void addArray(std::string const& name, std::vector<kernel::Field> components,
                  std::vector<std::string> const& variables, std::vector<std::string> const& componentNames,
                  std::vector<std::string> purposes);

    std::unordered_map<std::string, int> takenNames; ///< of fields, with the last number that was tried for another one
};

/// Name of the variable for one component of an array: "v" of one, "v_X", "v_Y", "v_Z" of up to three, else "v_1" and so on.
/// @param component from 0
std::string componentName(std::string const& name, int component, int count);

} // namespace veldraw::app
