#include "kernel/data/ValueBlanking.h"

#include "kernel/base/Parallel.h"
#include "kernel/data/DataSet.h"
#include "kernel/data/ForCells.h"
#include "kernel/storage/QuickReader.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

/// The slots whose values fulfil a constraint.
HiddenSlots fulfillingSlots(ConstrainedValues const& constrained, std::int64_t count)
{
    HiddenSlots slots(count);
    QuickReader const values(constrained.values);
    parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) { // no two chunks write to one word
        for (std::int64_t slot = first; slot < last; ++slot) {
            if (constrained.constraint.holdsFor(values.at(slot))) {
                slots.insert(slot);
            }
        }
    });
    return slots;
}

/// Hides the cells of a zone in which a constraint holds.
void hideCells(ConstrainedValues const& constrained, Zone const& zone, HiddenSlots& cells)
{
    HiddenSlots const fulfilling = fulfillingSlots(constrained, zone.valueCount(constrained.location));
    bool const isNodal = constrained.location == ValueLocation_Nodal;
    forCells(zone, [&](std::int64_t, std::int64_t slot, std::int64_t const* first, std::int64_t const* last) {
        bool const holds =
            isNodal ? first != last &&
                          std::all_of(first, last, [&](std::int64_t point) { return fulfilling.contains(point); })
                    : fulfilling.contains(slot);
        if (holds) {
            cells.insert(slot);
        }
    });
}

void hidePoints(ConstrainedValues const& constrained, HiddenSlots& points)
{
    HiddenSlots const fulfilling = fulfillingSlots(constrained, points.size());
    for (std::int64_t point = fulfilling.find(true, 0, points.size()); point < points.size();
         point = fulfilling.find(true, point + 1, points.size())) {
        points.insert(point);
    }
}

} // namespace

std::string ValueBlanking::refusal(DataSet const& dataSet) const
{
    if (constraints.size() > mostConstraints) {
        return "Value blanking has up to " + std::to_string(mostConstraints) + " constraints.";
    }
    for (BlankingConstraint const& constraint : constraints) {
        if (dataSet.variableNumber(constraint.variable) == 0) {
            return "There is no such variable.";
        }
        if (!std::isfinite(constraint.limit)) {
            return "The limit of a constraint is a finite number.";
        }
    }
    return {};
}

std::vector<BlankingConstraint> ValueBlanking::inForce(DataSet const& dataSet) const
{
    std::vector<BlankingConstraint> found;
    for (BlankingConstraint const& constraint : constraints) {
        if (isOn && constraint.isActive && dataSet.variableNumber(constraint.variable) != 0) {
            found.push_back(constraint);
        }
    }
    return found;
}

bool operator==(BlankingConstraint const& a, BlankingConstraint const& b)
{
    bool const haveSameLimit = !(a.limit < b.limit) && !(a.limit > b.limit);
    return a.variable == b.variable && a.isAbove == b.isAbove && haveSameLimit && a.isActive == b.isActive;
}

bool operator==(ValueBlanking const& a, ValueBlanking const& b)
{
    return a.isOn == b.isOn && a.constraints == b.constraints;
}

std::shared_ptr<Blanking const> blankedBy(std::vector<ConstrainedValues> const& constraints, Zone const& zone)
{
    HiddenSlots cells(zone.valueCount(ValueLocation_CellCentered));
    HiddenSlots points(zone.pointCount());
    for (ConstrainedValues const& constrained : constraints) {
        bool const hasValues =
            constrained.values && constrained.values->size() >= zone.valueCount(constrained.location);
        if (!hasValues) {
            continue;
        }
        if (zone.isScattered && constrained.location == ValueLocation_Nodal) {
            hidePoints(constrained, points);
        } else {
            hideCells(constrained, zone, cells);
        }
    }
    if (cells.count() == 0 && points.count() == 0) {
        return zone.blanking;
    }
    return std::make_shared<Blanking>(zone, zone.blanking ? zone.blanking->marks() : Blanking::Marks(),
                                      Blanking::Slots{&points, &cells});
}

} // namespace veldraw::kernel
