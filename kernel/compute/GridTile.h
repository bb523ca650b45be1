#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/GridAxes.h"
#include "kernel/compute/SmoothingValues.h"

#include <vector>

namespace veldraw::kernel {

/// Where the values of a grid are read from, or go to: an array with the strides of the grid, or where that is null, values of any
/// type.
template <typename Number>
struct GridPlace
{
    SmoothingValues* values = nullptr;
    Number* array = nullptr;
};

/// Makes some passes over a part of a grid while it is in the cache: the planes along the last axis come in one by one, each
/// pass follows the one before by a plane, and of each pass the last three planes are kept. What lies around the part is
/// computed as far as the part depends on it.
/// @tparam Number float or double: what the passes compute in
template <typename Number>
class GridTile
{
public:
    /// @param passes at least 1
    /// @param from is not @p to
    /// @param room for roomFor() numbers
    GridTile(GridAxes const& axes, double weight, bool hasHoles, std::int64_t passes, GridPlace<Number> const& from,
             GridPlace<Number> const& to, GridSpans const& spans, Number* room);

    /// Has run() look for the largest change.
    void measure() { m_measures = true; }

    /// Numbers that the passes over a part need, at most. @param i, j values of the part along the first two axes
    static std::int64_t roomFor(std::int64_t passes, std::int64_t i, std::int64_t j)
    {
        return 3 * (passes + 1) * (i + 2 * passes) * (j + 2 * passes);
    }

    /// Computes the part, of which each span is a whole axis or at least 4 long. Counts each plane and pass.
    /// @return the largest change in the last pass, 0 where it is not measured
    /// @throws Interrupted
    double run(Progress& progress);

private:
    /// A plane of values after some pass.
    struct Plane
    {
        Number* values;
        std::int64_t stride;
        std::int64_t firstI;
        std::int64_t firstJ;

        Number* at(std::int64_t i, std::int64_t j) const { return values + (j - firstJ) * stride + (i - firstI); }
    };

    IndexSpan const& span(std::size_t axis, std::int64_t pass) const
    {
        return m_computed[static_cast<std::size_t>(pass)][axis];
    }
    IndexSpan movedSpan(std::size_t axis, std::int64_t pass) const;
    std::int64_t slot(std::int64_t i, std::int64_t j, std::int64_t k) const;
    Plane plane(std::int64_t pass, std::int64_t k) const;

    void readPlane(std::int64_t k) const;
    void storePlane(std::int64_t k) const;
    void makePlane(std::int64_t pass, std::int64_t k);
    void keepPlane(std::int64_t pass, std::int64_t k) const;
    void smoothPlane(std::int64_t pass, std::int64_t k);
    void smoothRows(std::int64_t pass, std::int64_t j, std::int64_t rows, std::int64_t k);
    void moveEndsInPlane(std::int64_t pass, std::int64_t k);
    void movePlane(std::int64_t pass, std::int64_t k, std::int64_t inwards);
    void noteChange(std::int64_t pass, double change);

    GridAxes const& m_axes;
    double m_weight;
    bool m_hasHoles;
    std::int64_t m_passes;
    GridPlace<Number> m_from;
    GridPlace<Number> m_to;
    GridSpans m_spans;
    std::vector<GridSpans> m_computed; // in each pass, or read in pass 0
    Number* m_room;
    bool m_measures = false;
    double m_largestChange = 0.0;
};

} // namespace veldraw::kernel
