#pragma once

#include "app/import/zones/AuxiliaryItems.h"

#include <vtkFieldData.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// The auxiliary data in field data of a VTK file.
///
/// Each text of an array is an item under the array's name, and so is a number that an array has alone. A number becomes its shortest
/// text that reads back as the same number. An array of our own, fielddata::list, has what belongs to others than the block that the field data stand at.
struct FieldDataItems
{
    /// @param known names of arrays that mean something else
    static FieldDataItems of(vtkFieldData& fieldData, std::set<std::string> const& known);

    AuxiliaryItems items;                              ///< of the block, or of the file where it is one of blocks
    AuxiliaryItems ofDataSet;                          ///< in a file with one block
    std::map<std::string, AuxiliaryItems> ofVariables; ///< by their names
    std::vector<std::string> others;                   ///< names of arrays that are no item, of which nothing is kept

    /// Sentences for the user on items that were left out.
    std::vector<std::string> remarks() const;
};

/// What the user is told of field data that are not kept. @param names at least one
std::string remarkOnFieldData(std::vector<std::string> const& names);

namespace fielddata {
/// Texts, for each item one after the other: "Zone", "DataSet" or "Variable", the name of the variable or an empty text, and the item's
/// name and value.
constexpr char const* list = "AuxiliaryData";
constexpr char const* ofZone = "Zone";
constexpr char const* ofDataSet = "DataSet";
constexpr char const* ofVariable = "Variable";
} // namespace fielddata

} // namespace veldraw::app
