#pragma once

#include "kernel/mesh/CellSearch.h"
#include "kernel/operations/Interpolation.h"

namespace veldraw::kernel {

/// Interpolates variables into a zone by the shape functions of the source cells. "Linear Interpolation"; event 0.
///
/// A place gets its value from the cell that contains it (see CellMap): the first source zone's, then the lowest one. What is
/// at the cells of a source goes unmixed to all places in them. Hidden cells and cells with a corner nowhere give no values,
/// nor does a cell for a variable that is no finite number at one of its corners: the place then counts as outside.
///
/// Refused: as Interpolation; a source zone without areas and volumes; one with volumes in a 2D plot.
class InterpolateLinearly : public Interpolation
{
public:
    /// @param frame whose axes tell where the points are; other numbers are one-based
    /// @param constant value of places outside, for LinearInterpMode_SetToConstant
    InterpolateLinearly(UniqueId frame, NumberSet sources, int destination, NumberSet variables, double constant,
                        LinearInterpMode_e mode)
        : Interpolation(frame, std::move(sources), destination, std::move(variables))
        , m_constant(constant)
        , m_mode(mode)
    {
    }

    std::string name() const override { return "Linear Interpolation"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;

protected:
    std::string interpolate(Fields const& fields, Progress& progress) override;

private:
    /// What is told of the places and cells.
    struct Counts
    {
        std::atomic<std::int64_t> outside{0};
        std::atomic<std::int64_t> withoutNumber{0}; ///< values for which the cell has something that is not finite
        std::int64_t misplaced = 0;                 ///< places whose coordinates are not finite
        bool areOfCellsToo = false;                 ///< whether places of points and of cells were counted
        std::int64_t hiddenCells = 0;
        std::int64_t unplacedCells = 0;
    };

    /// The values of a variable in a source zone.
    struct SourceValues
    {
        QuickReader values;
        ValueLocation_e location;
    };

    /// The fields that have their values at the same places of the destination.
    struct Group
    {
        ValuePlaces places;
        std::vector<InterpolatedField*> targets;
    };

    using Sources = std::vector<ZoneCells>;
    using ValuesOfGroup = std::vector<std::vector<SourceValues>>; ///< by variable and source zone

    Sources cellsOfSources() const;
    void interpolateGroup(Group const& group, Sources const& cells, Counts& counts, Progress& progress) const;
    void fill(Group const& group, CellSearch const& search, PointBins const& bins, Sources const& cells, Counts& counts,
              Progress& progress) const;
    ValuesOfGroup valuesOf(Group const& group) const;
    std::int64_t fillInside(Group const& group, ValuesOfGroup const& values, CellSearch::Found const& cell,
                            std::vector<WeightedPoint> const& weights, std::int64_t slot) const;
    void fillOutside(Group const& group, std::int64_t slot) const;
    void fillOutside(InterpolatedField& target, std::int64_t slot) const;
    std::string report(Counts const& counts) const;

    double m_constant;
    LinearInterpMode_e m_mode;
};

} // namespace veldraw::kernel
