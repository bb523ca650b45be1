#include "app/export/WholeDataSet.h"

namespace veldraw::app {

bool loadWholeDataSet(kernel::Session& session, kernel::DataSet& dataSet)
{
    kernel::NumberSet zones;
    kernel::NumberSet variables;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        if (dataSet.zone(zone)->isDeferred() && !session.loadDimensions(dataSet, zone))
            return false;
        for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
            if (dataSet.field(zone, variable)->isLoaded())
                continue;
            zones.insert(zone);
            variables.insert(variable);
        }
    }
    return zones.empty() || session.loadVariables(dataSet, zones, variables);
}

} // namespace veldraw::app
