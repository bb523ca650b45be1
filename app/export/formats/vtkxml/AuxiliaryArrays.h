#pragma once

#include "kernel/data/DataSet.h"

#include <vtkFieldData.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Field data of which our import makes the retained items of auxiliary data again (see FieldDataItems).
///
///     AuxiliaryArrays arrays(*grid.GetFieldData());
///     arrays.addItems(zone.auxiliaryData);
///     arrays.addItemsOfDataSet(dataSet);
///     arrays.addList();
class AuxiliaryArrays
{
public:
    /// @param fieldData is to outlive the object
    explicit AuxiliaryArrays(vtkFieldData& fieldData)
        : m_fieldData(fieldData)
    {
    }

    /// Adds the items of the block that the field data stand at, or of the file where they stand beside its blocks: each as an array with a number or text. Those whose names mean something else
    /// there go to the list.
    void addItems(kernel::AuxiliaryData const& data);

    /// Notes the items of a data set for the list.
    void addItemsOfDataSet(kernel::DataSet const& dataSet);

    /// Notes the items of its variables for the list. @param names of the variables in the file
    void addItemsOfVariables(kernel::DataSet const& dataSet, std::vector<std::string> const& names);

    /// Adds the list unless it is empty; to be called last.
    void addList() const;

private:
    void addToList(std::string const& kind, std::string const& owner, kernel::AuxiliaryData const& data);

    vtkFieldData& m_fieldData;
    std::vector<std::string> m_list;
};

} // namespace veldraw::app
