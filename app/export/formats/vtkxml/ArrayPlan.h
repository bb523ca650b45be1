#pragma once

#include "kernel/data/DataSet.h"

#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// One array of a file: variables side by side.
struct PlannedArray
{
    std::string name;
    std::vector<int> variables;              ///< one-based, one a component
    std::vector<std::string> componentNames; ///< empty for none
};

/// Puts variables together again to the arrays that they came from (kernel::SourceArray).
///
/// An array needs all of its components, under the names that they came with, and in a zone all at one place. What does not
/// fit, or would stand under a name that something else has there, is written variable by variable.
class ArrayPlan
{
public:
    /// @param dataSet is to outlive the object
    /// @param names of the variables where each stands for itself, all different
    ArrayPlan(kernel::DataSet const& dataSet, std::vector<std::string> const& names);

    /// The arrays of one zone, in the order of their first variables; passive variables are in none.
    /// @param zone one-based
    /// @param points variables that are written as the coordinates of points
    std::vector<PlannedArray> of(int zone, std::set<int> const& points) const;

private:
    bool fits(int zone, PlannedArray const& array, std::set<int> const& points) const;
    bool isSingle(PlannedArray const& array) const;
    bool meansMarks(int zone, PlannedArray const& array) const;
    void splitWhereNamesClash(int zone, std::vector<PlannedArray>& arrays) const;

    kernel::DataSet const& m_dataSet;
    std::vector<PlannedArray> m_single; // each variable by itself
    std::vector<PlannedArray> m_arrays; // that are whole
};

} // namespace veldraw::app
