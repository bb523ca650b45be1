#pragma once

#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/formats/vtkxml/GridArrays.h"
#include "app/import/formats/vtkxml/VtkFile.h"
#include "app/import/reading/LoadingPlan.h"

#include <vtkDataArraySelection.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Chooses the arrays of a VTK XML file that its reader is to read now, coordinates included, and describes the others.
///
/// Files with two arrays of one name in a section are read whole. Where pieces have their arrays in another order, each array is brought by
/// a loader of its own, also one that is loaded at once.
class ArrayChoice
{
public:
    /// @param ofPoints the reader's arrays by their names in the file's order, those that are switched on to be read; as @p ofCells
    /// @param plan     gets the file's total unless it has one
    ArrayChoice(vtkDataArraySelection& ofPoints, vtkDataArraySelection& ofCells, GridArrays arrays, LoadingPlan& plan);

    /// Switches arrays off and adds them to @p deferred.
    void run(DeferredArrays& deferred);

private:
    using Arrays = std::vector<XmlArrayList::Array>;

    void chooseCells(DeferredArrays& deferred);
    bool loadsNow(XmlArrayList::Array const& array, bool isMapped, LoadingPlan::Need need);
    void choosePoints(DeferredArrays& deferred);
    std::vector<DeferredArray> choose(vtkDataArraySelection& selection, Arrays const& arrays, XmlSection section);
    DeferredArray described(XmlArrayList::Array const& array, std::string const& name, XmlSection section) const;

    vtkDataArraySelection& m_ofPoints;
    vtkDataArraySelection& m_ofCells;
    GridArrays m_arrays;
    XmlArrayList const& m_list; // of the arrays
    LoadingPlan& m_plan;
    bool m_leavesAll = false; // a zone whose cells are not read is left in the file as a whole
};

} // namespace veldraw::app
