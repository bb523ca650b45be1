#pragma once

#include "dialogs/models/ModelIndex.h"

#include <vector>

namespace veldraw::sdk::ui::propertymanager {

/// A rectangle of cells of a table, both ends included.
struct CellRange
{
    using Cell = dialogs::propertybindings::models::ModelIndex;

    /// With two cells at opposite corners.
    static CellRange between(Cell const& one, Cell const& other);

    bool contains(Cell const& cell) const;

    /// The part inside another range, none or one, and the parts outside it.
    std::vector<CellRange> inside(CellRange const& other) const;
    std::vector<CellRange> outside(CellRange const& other) const;

    /// The smallest range that has this one and another.
    CellRange unitedWith(CellRange const& other) const;

    Cell first;
    Cell last;
};

} // namespace veldraw::sdk::ui::propertymanager
