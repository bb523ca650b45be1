#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/Zone.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

class DataSet;

/// A condition on a variable that hides cells.
struct BlankingConstraint
{
    UniqueId variable = 0; ///< one that the data set does not have (any more) hides nothing
    bool isAbove = false;  ///< values above the limit fulfil it, otherwise those below; those at the limit never
    double limit = 0.0;    ///< finite
    bool isActive = true;

    /// Whether a value fulfils it. One that is no number does not.
    bool holdsFor(double value) const { return isAbove ? value > limit : value < limit; }
};

/// Which cells a frame leaves out because of the values in them.
///
/// A cell is hidden where an active constraint holds at all of its points, or in the cell itself if the variable has its values at cells.
/// In a zone whose points are not joined a point is hidden where a constraint holds. A zone that has no values of the variable is whole.
struct ValueBlanking
{
    static constexpr std::size_t mostConstraints = 100;

    bool isOn = false;
    std::vector<BlankingConstraint> constraints;

    /// Why a frame of this data set cannot have it, in one sentence; empty when it can.
    std::string refusal(DataSet const& dataSet) const;

    /// The active constraints of variables that the data set has; none when it is off. @throws std::bad_alloc
    std::vector<BlankingConstraint> inForce(DataSet const& dataSet) const;
};

bool operator==(BlankingConstraint const& a, BlankingConstraint const& b);
bool operator==(ValueBlanking const& a, ValueBlanking const& b);

/// A constraint with the values that it is about.
struct ConstrainedValues
{
    BlankingConstraint constraint;
    std::shared_ptr<Buffer const> values; ///< null hides nothing
    ValueLocation_e location = ValueLocation_Nodal;
};

/// What is hidden of a zone by its own marks and by constraints. @param zone with known dimensions and its cells; its fields do not matter
/// @return the blanking of the zone itself where no constraint hides anything. @throws std::bad_alloc
std::shared_ptr<Blanking const> blankedBy(std::vector<ConstrainedValues> const& constraints, Zone const& zone);

} // namespace veldraw::kernel
