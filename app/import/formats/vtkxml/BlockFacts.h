#pragma once

#include "app/import/formats/vtkxml/FieldDataItems.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <vtkFieldData.h>

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::app {

/// What the field data of a block say about the zone:
///   - TimeValue (a number): the zone's solution time;
///   - StrandId (a number from 0): the zone's time strand;
///   - TimeStep (a number) without StrandId: the n-th block of each time step belongs to strand n, and the step is the
///     solution time where there is no TimeValue;
///   - ZoneName, ZoneType, IsScattered, CoordinateNames, VariableNames, ArrayVariables: written by our export, so that a
///     data set comes back as it was;
///   - all others: auxiliary data, as far as FieldDataItems takes them.
struct BlockFacts
{
    /// @param fieldData may be null
    static BlockFacts of(vtkFieldData* fieldData);

    /// Names of the field data that mean something; notes of a zone can have none of them as an array of their own.
    static std::set<std::string> const& names();

    std::optional<double> timeValue;
    std::optional<double> timeStep;
    std::optional<int> strand;
    std::string zoneName;
    ZoneType_e zoneType = ZoneType_Ordered;                      ///< a wish for the cells; Ordered for none
    bool isScattered = false;                                    ///< the points of an ordered zone are no curve
    std::array<std::string, 3> coordinateNames{{"X", "Y", "Z"}}; ///< empty: the coordinate is not a variable
    std::vector<std::string> variableNames;
    FieldDataItems notes; ///< of all other field data

    /// Names that the components of arrays have as variables, where these are not the usual ones.
    std::map<std::pair<ValueLocation_e, std::string>, std::vector<std::string>> arrayVariables;

    /// Those of one array, none for the usual ones.
    std::vector<std::string> variablesOf(ValueLocation_e location, std::string const& array) const;
};

/// Names of the field data.
namespace blockfact {
constexpr char const* timeValue = "TimeValue";
constexpr char const* timeStep = "TimeStep";
constexpr char const* strandId = "StrandId";
constexpr char const* zoneName = "ZoneName";
constexpr char const* zoneType = "ZoneType";
constexpr char const* isScattered = "IsScattered";
constexpr char const* coordinateNames = "CoordinateNames";
constexpr char const* variableNames = "VariableNames";

/// Texts, for each array one after the other: "PointData" or "CellData", its name, the number of its components, and the names of
/// their variables.
constexpr char const* arrayVariables = "ArrayVariables";
constexpr char const* ofPoints = "PointData";
constexpr char const* ofCells = "CellData";
} // namespace blockfact

} // namespace veldraw::app
