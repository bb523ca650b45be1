#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::kernel {

/// Numbers of the zones and of the variables that a change of values touches.
struct ZonesAndVariables
{
    NumberSet zones;
    NumberSet variables;
};

/// The zones and variables of those fields of @p dataSet whose group @p isMeant accepts.
template <typename Predicate>
ZonesAndVariables fieldsWhere(DataSet const& dataSet, Predicate const& isMeant)
{
    ZonesAndVariables found;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
            Field const& field = *dataSet.field(zone, variable);
            if (!field.isPassive() && isMeant(field.group().get())) {
                found.zones.insert(zone);
                found.variables.insert(variable);
            }
        }
    }
    return found;
}

} // namespace veldraw::kernel
