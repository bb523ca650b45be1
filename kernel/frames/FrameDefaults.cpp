#include "kernel/frames/FrameDefaults.h"

#include "kernel/base/Text.h"
#include "kernel/data/TimeStrands.h"

#include <algorithm>
#include <initializer_list>
#include <optional>

namespace veldraw::kernel {

namespace {

using Axes = std::array<UniqueId, 3>;
using Names = std::initializer_list<char const*>;

std::string withoutUnit(std::string const& name)
{
    return name.substr(0, name.find_first_of("[({"));
}

/// The letters and digits of @p name before its unit, made small: "Velocity_X (m/s)" gives "velocityx".
std::string bareName(std::string const& name)
{
    std::string bare = lowered(withoutUnit(name));
    auto const isOther = [](char c) { return !((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')); };
    bare.erase(std::remove_if(bare.begin(), bare.end(), isOther), bare.end());
    return bare;
}

UniqueId variableNamed(DataSet const& dataSet, Names names)
{
    for (char const* wanted : names) {
        for (auto const& variable : dataSet.variables()) {
            if (bareName(variable->name) == wanted) {
                return variable->id;
            }
        }
    }
    return 0;
}

UniqueId idOf(DataSet const& dataSet, int number)
{
    std::shared_ptr<Variable> const variable = dataSet.variable(number);
    return variable ? variable->id : 0;
}

/// All 0 without both an X and a Y.
Axes axesByName(DataSet const& dataSet)
{
    UniqueId const x = variableNamed(dataSet, {"x", "coordinatex", "xcoordinate", "coordx", "pointsx", "points0"});
    UniqueId const y = variableNamed(dataSet, {"y", "coordinatey", "ycoordinate", "coordy", "pointsy", "points1"});
    if (x == 0 || y == 0) {
        return {};
    }
    return {x, y, variableNamed(dataSet, {"z", "coordinatez", "zcoordinate", "coordz", "pointsz", "points2"})};
}

Axes pickAxes(DataSet const& dataSet)
{
    Axes const named = axesByName(dataSet);
    return named[0] != 0 ? named : Axes{idOf(dataSet, 1), idOf(dataSet, 2), idOf(dataSet, 3)};
}

/// The first vector array of a file: variables called "something_X", "something_Y" and, if there is one, "something_Z".
Axes pickComponents(DataSet const& dataSet, Axes const& axes)
{
    for (auto const& variable : dataSet.variables()) {
        std::string const name = lowered(variable->name.substr(0, variable->name.find_first_of(" [({")));
        bool const isFirst = name.size() > 2 && name.compare(name.size() - 2, 2, "_x") == 0;
        if (!isFirst || variable->id == axes[0]) {
            continue;
        }
        std::string const stem = bareName(name.substr(0, name.size() - 2));
        std::string const second = stem + "y";
        std::string const third = stem + "z";
        if (UniqueId const v = variableNamed(dataSet, {second.c_str()})) {
            return {variable->id, v, variableNamed(dataSet, {third.c_str()})};
        }
    }
    return {};
}

Axes pickVector(DataSet const& dataSet, Axes const& axes)
{
    UniqueId const u = variableNamed(dataSet, {"u", "velocityx", "xvelocity", "velocity0", "velx", "vx"});
    UniqueId const v = variableNamed(dataSet, {"v", "velocityy", "yvelocity", "velocity1", "vely", "vy"});
    if (u == 0 || v == 0) {
        return pickComponents(dataSet, axes);
    }
    return {u, v, variableNamed(dataSet, {"w", "velocityz", "zvelocity", "velocity2", "velz", "vz"})};
}

UniqueId pickContour(DataSet const& dataSet, Axes const& axes)
{
    for (auto const& variable : dataSet.variables()) {
        if (variable->enabled && std::find(axes.begin(), axes.end(), variable->id) == axes.end()) {
            return variable->id;
        }
    }
    return idOf(dataSet, 1);
}

/// How far a variable goes over all zones; nothing where nobody can know yet.
std::optional<double> extentOf(DataSet const& dataSet, int variable)
{
    ValueRange whole;
    for (auto const& zone : dataSet.zones()) {
        ValueRange const part = zone->range(variable);
        if (!part.isValid()) {
            bool const isOpen = variable > 0 && !zone->fields[static_cast<std::size_t>(variable - 1)].isLoaded();
            if (isOpen) {
                return std::nullopt;
            }
            continue;
        }
        whole.min = whole.isValid() ? std::min(whole.min, part.min) : part.min;
        whole.max = whole.isValid() ? std::max(whole.max, part.max) : part.max;
        whole.state = part.state;
    }
    return whole.max - whole.min;
}

PlotType_e pickPlotType(DataSet const& dataSet, Axes const& axes)
{
    auto const& zones = dataSet.zones();
    if (zones.empty() || dataSet.variableCount() == 0) {
        return PlotType_Sketch;
    }
    auto const isLine = [](auto const& zone) {
        return zone->isOrdered() && !zone->isDeferred() && !zone->isScattered && zone->dimensionality() <= 1;
    };
    if (dataSet.variableCount() >= 2 && std::all_of(zones.begin(), zones.end(), isLine)) {
        return PlotType_XYLine;
    }
    auto const isVolume = [](auto const& zone) { return zone->dimensionality() == 3; };
    bool const inSpace = std::any_of(zones.begin(), zones.end(), isVolume);
    bool const hasDepth = extentOf(dataSet, dataSet.variableNumber(axes[2])).value_or(1.0) > 0.0;
    return inSpace || hasDepth ? PlotType_Cartesian3D : PlotType_Cartesian2D;
}

bool needsStretching(Frame const& frame)
{
    std::array<double, 3> lengths{};
    std::array<int, 3> const axes = frame.axisVariables();
    for (std::size_t n = 0; n < axes.size(); ++n) {
        lengths[n] = extentOf(*frame.dataSet, axes[n]).value_or(0.0);
    }
    return isMereLine(lengths);
}

} // namespace

void layOut(Frame& frame)
{
    if (!frame.dataSet) {
        return;
    }
    DataSet const& dataSet = *frame.dataSet;
    Axes const axes = pickAxes(dataSet);
    std::vector<double> const times = solutionTimes(dataSet);
    std::vector<LineMap> lineMaps;
    if (dataSet.zoneCount() > 0 && dataSet.variableCount() > 0) {
        lineMaps.push_back(defaultLineMap(dataSet, 1));
    }
    frame.vector = pickVector(dataSet, axes);
    frame.contourVariable = pickContour(dataSet, axes);
    frame.plotType = pickPlotType(dataSet, axes);
    frame.axes3D = axes;
    frame.axes2D = {axes[0], axes[1]};
    frame.lineMaps = std::move(lineMaps);
    frame.solutionTime = times.empty() ? 0.0 : times.front();
    frame.cuts.clear();
    frame.valueBlanking = {};
    frame.stretchAxes = needsStretching(frame);
}

void layOutIfFresh(Frame& frame)
{
    if (frame.plotType == PlotType_Sketch && frame.axes3D == decltype(frame.axes3D){}) {
        layOut(frame);
    }
}

std::array<int, 3> coordinatesByName(DataSet const& dataSet)
{
    std::array<int, 3> numbers{};
    Axes const axes = axesByName(dataSet);
    std::transform(axes.begin(), axes.end(), numbers.begin(),
                   [&dataSet](UniqueId id) { return dataSet.variableNumber(id); });
    return numbers;
}

int timeByName(DataSet const& dataSet)
{
    return dataSet.variableNumber(variableNamed(dataSet, {"time", "solutiontime", "timevalue", "physicaltime"}));
}

int timeByLetter(DataSet const& dataSet)
{
    for (auto const& variable : dataSet.variables()) {
        bool const isSmall = withoutUnit(variable->name).find('T') == std::string::npos;
        if (isSmall && bareName(variable->name) == "t") {
            return dataSet.variableNumber(variable->id);
        }
    }
    return 0;
}

bool isMereLine(std::array<double, 3> lengths)
{
    constexpr double thinnest = 500.0; // about two pixels
    constexpr double noise = 1e12;     // what is thinner is the rounding of a line
    std::sort(lengths.begin(), lengths.end());
    return lengths[2] > thinnest * lengths[1] && lengths[2] < noise * lengths[1];
}

LineMap defaultLineMap(DataSet const& dataSet, std::size_t number)
{
    LineMap map;
    map.name = "Map " + std::to_string(number);
    std::shared_ptr<Zone> const zone = dataSet.zone(1);
    map.zone = zone ? zone->id : 0;
    map.xVariable = idOf(dataSet, 1);
    map.yVariable = idOf(dataSet, dataSet.variableCount() > 1 ? 2 : 1);
    return map;
}

} // namespace veldraw::kernel
