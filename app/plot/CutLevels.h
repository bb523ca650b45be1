#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DataSet.h"
#include "kernel/frames/Cut.h"
#include "kernel/storage/QuickReader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::app {

/// On which side of a cut the points of a zone lie, and how far from it: in units of the coordinates, or of the values of an
/// iso-surface. May be read on any thread; holds the values that it reads.
class CutLevels
{
public:
    /// Bits that tell the sides of points; those of several points can be put together by "or".
    static constexpr unsigned char behind = 1;    ///< the level is negative
    static constexpr unsigned char before = 2;    ///< it is positive
    static constexpr unsigned char onSurface = 4; ///< it is 0: counts as one of the two
    static constexpr unsigned char nowhere = 8;   ///< there is none: a value is missing or not finite

    /// For no cut.
    CutLevels() = default;

    /// @param zone one-based; @param axes numbers of the coordinates' variables, 0 for none
    CutLevels(kernel::DataSet const& dataSet, int zone, std::array<int, 3> const& axes, kernel::Cut const& cut);

    /// Whether values that it needs are there.
    bool areKnown() const { return m_areKnown; }

    /// Brings the values of cells, if it reads such, to the points. Call it before the functions below.
    /// @param zone with sound cells. @throws kernel::Interrupted, std::bad_alloc
    void prepare(kernel::Zone const& zone, kernel::Progress const& progress);

    /// The level of a zero-based point, which must exist.
    double at(std::int64_t point) const;

    /// The bits of @p count points from @p first on.
    void tellSides(std::int64_t first, std::int64_t count, unsigned char* sides) const;

private:
    struct Term
    {
        kernel::QuickReader values;
        double weight = 0.0;
    };

    void addTerm(kernel::DataSet const& dataSet, int zone, int variable, double weight);

    std::vector<Term> m_terms; // their sum, less the level, is what is told
    double m_level = 0.0;
    bool m_isOfValues = false; // of a variable, which may have its values at the cells
    bool m_areKnown = false;
    std::shared_ptr<kernel::Buffer const> m_ofCells; // of an iso-surface, until they are at the points
};

} // namespace veldraw::app
