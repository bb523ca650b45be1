#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <vtkFieldData.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// What the field data of a block say about the zone: see importFile() for their names.
struct BlockFacts
{
    /// @param fieldData may be null
    static BlockFacts of(vtkFieldData* fieldData);

    std::optional<double> timeValue;
    std::optional<double> timeStep;
    std::optional<int> strand;
    std::string zoneName;
    ZoneType_e zoneType = ZoneType_Ordered;                      ///< a wish for the cells; Ordered for none
    std::array<std::string, 3> coordinateNames{{"X", "Y", "Z"}}; ///< empty: the coordinate is not a variable
    std::vector<std::string> variableNames;
};

/// Names of the field data.
namespace blockfact {
constexpr char const* timeValue = "TimeValue";
constexpr char const* timeStep = "TimeStep";
constexpr char const* strandId = "StrandId";
constexpr char const* zoneName = "ZoneName";
constexpr char const* zoneType = "ZoneType";
constexpr char const* coordinateNames = "CoordinateNames";
constexpr char const* variableNames = "VariableNames";
} // namespace blockfact

} // namespace veldraw::app
