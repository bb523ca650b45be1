// Zones that are copied, turned and mirrored.
#include "kernel/data/AxialDuplication.h"
#include "kernel/data/FieldReflection.h"
#include "kernel/data/FieldReplacement.h"
#include "kernel/data/FieldRotation.h"
#include "kernel/data/MemoryDemand.h"
#include "kernel/data/UnturnedVectors.h"
#include "kernel/data/ZoneAddition.h"
#include "kernel/frames/RefusalReasons.h"
#include "kernel/frames/SessionGuard.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace veldraw::kernel {

namespace {

/// Why these variables cannot be turned, null when they can.
char const* reasonAgainstVariables(DataSet const& dataSet, SpatialVariables const& variables)
{
    constexpr char const* unassigned[] = {"The X axis has no variable.", "The Y axis has no variable.",
                                          "The Z axis has no variable."};
    NumberSet numbers;
    std::size_t count = 0;
    for (std::size_t component = 0; component < variables.dimensions(); ++component) {
        if (variables.coordinates[component] == 0) {
            return unassigned[component];
        }
        numbers.insert(variables.coordinates[component]);
        ++count;
        if (variables.hasVector) {
            numbers.insert(variables.vector[component]);
            ++count;
        }
    }
    if (*numbers.begin() < 1 || *numbers.rbegin() > dataSet.variableCount()) {
        return noVariable;
    }
    return numbers.size() == count ? nullptr : "The spatial and vector variables must be unique.";
}

/// Why zones cannot be turned like this, null when they can.
char const* reasonAgainstRotation(DataSet const& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                                  RotationAxis const& axis)
{
    char const* reason = reasonAgainstZones(dataSet, zones);
    if (reason == nullptr) {
        reason = reasonAgainstVariables(dataSet, variables);
    }
    if (reason != nullptr) {
        return reason;
    }
    if (!axis.isValid()) {
        return "The axis needs an origin and a direction.";
    }
    bool const leavesPlane = axis.direction[0] != 0.0 || axis.direction[1] != 0.0;
    return leavesPlane && !variables.isThreeD ? "A plane can only be turned about an axis along Z." : nullptr;
}

char const* reasonAgainstSpread(DataSet const& dataSet, NumberSet const& zones, AxialCopies const& copies)
{
    if (!std::isfinite(copies.angle) || !std::isfinite(copies.offset)) {
        return "The angle must be a finite number.";
    }
    if (copies.count < 1) {
        return "At least one copy must be made.";
    }
    std::int64_t const zoneCount = dataSet.zoneCount() + static_cast<std::int64_t>(zones.size()) * copies.count;
    return zoneCount > std::numeric_limits<int>::max() ? "There would be too many zones." : nullptr;
}

/// What is to be loaded before zones can be turned.
std::shared_ptr<DeferredLoad> loadForRotation(DataSet const& dataSet, NumberSet const& zones,
                                              SpatialVariables const& variables, Rotation const& rotation)
{
    auto load = std::make_shared<DeferredLoad>(dataSet);
    for (int const zone : zones) {
        for (std::size_t component = 0; component < variables.dimensions(); ++component) {
            if (rotation.involves(component)) {
                load->addField(zone, variables.coordinates[component]);
            }
            if (rotation.involves(component) && variables.hasVector) {
                load->addField(zone, variables.vector[component]);
            }
        }
    }
    return load;
}

/// Prepares the zones, then computes them. @throws what either throws
std::vector<FieldReplacement::ZonePart> transform(DataSet const& dataSet, NumberSet const& zones,
                                                  FieldTransformation& transformation, Progress& progress)
{
    std::vector<FieldReplacement::ZonePart> parts;
    double const available = availableMemory(); // asked before: small storage is in use as soon as it is there
    for (int const number : zones) {
        progress.check();
        std::shared_ptr<Zone> const zone = dataSet.zone(number);
        parts.push_back({zone, transformation.prepare(*zone)});
        requireMemory(static_cast<double>(transformation.bytes()), available);
    }
    progress.setTotal(progress.done() + transformation.work());
    transformation.compute(progress);
    return parts;
}

/// One-based numbers of the variables that have new fields.
NumberSet variablesOf(std::vector<FieldReplacement::ZonePart> const& parts)
{
    NumberSet variables;
    for (FieldReplacement::ZonePart const& part : parts) {
        for (NewField const& field : part.fields) {
            variables.insert(static_cast<int>(field.position) + 1);
        }
    }
    return variables;
}

/// Those of @p zones that have new fields. @param parts one for each zone, in their order
NumberSet zonesOf(std::vector<FieldReplacement::ZonePart> const& parts, NumberSet const& zones)
{
    NumberSet changed;
    auto part = parts.begin();
    for (int const zone : zones) {
        if (!(part++)->fields.empty()) {
            changed.insert(changed.end(), zone);
        }
    }
    return changed;
}

/// The variables that are turned, those along the axis included.
NumberSet turnedVariables(SpatialVariables const& variables)
{
    NumberSet turned;
    for (std::size_t component = 0; component < variables.dimensions(); ++component) {
        turned.insert(variables.coordinates[component]);
        turned.insert(variables.hasVector ? variables.vector[component] : 0);
    }
    return turned;
}

/// The frame's coordinates and vector.
NumberSet mirroredAsAWhole(Frame const& frame)
{
    NumberSet variables;
    for (char const assignment : {'X', 'Y', 'Z', 'U', 'V', 'W'}) {
        variables.insert(frame.variableNumber(assignment));
    }
    return variables;
}

/// What an operation leaves as it is though it is a vector or a tensor; empty when there is no such thing.
std::string remarkOnVectors(char const* operation, DataSet const& dataSet, NumberSet const& zones,
                            NumberSet const& turned, std::size_t dimensions)
{
    std::string list;
    for (std::string const& name : unturnedVectors(dataSet, zones, turned, dimensions)) {
        list += (list.empty() ? "\"" : ", \"") + name + "\"";
    }
    return list.empty() ? list
                        : std::string(operation) + ": vectors and tensors that were left as they are: " + list +
                              ". Only the frame's vector is transformed.";
}

/// The variables that a mirror changes; empty, with a reason, when it cannot.
NumberSet mirroredVariables(Frame const& frame, char coordinate, char const*& reason)
{
    bool const isAxis = coordinate >= 'X' && coordinate <= 'Z';
    int const mirrored = isAxis ? frame.variableNumber(coordinate) : 0;
    if (mirrored == 0) {
        reason = isAxis ? "The axis has no variable." : "There is no such axis.";
        return {};
    }
    int const component = frame.variableNumber(static_cast<char>('U' + (coordinate - 'X')));
    std::array<int, 3> const axes = frame.axisVariables();
    if (component != 0 && component != mirrored && std::count(axes.begin(), axes.end(), component) > 0) {
        reason = "The spatial and vector variables must be unique.";
        return {};
    }
    NumberSet variables{mirrored, component};
    variables.erase(0);
    return variables;
}

} // namespace

bool Session::duplicateZones(DataSet& dataSet, NumberSet const& zones)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstZones(dataSet, zones) : notShown;
        if (reason != nullptr) {
            return refuse(reason);
        }
        std::vector<ZoneAddition::Copy> copies;
        copies.reserve(zones.size());
        for (int const zone : zones) {
            copies.emplace_back(shown->zone(zone));
        }
        m_history.perform("Create Duplicate Zone", std::make_shared<ZoneAddition>(m_events, shown, std::move(copies)));
        return true;
    });
}

bool Session::rotateZones(DataSet& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                          RotationAxis const& axis, double degrees)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* const reason = shown ? reasonAgainstRotation(dataSet, zones, variables, axis) : notShown;
        if (reason != nullptr || !std::isfinite(degrees)) {
            return refuse(reason != nullptr ? reason : "The angle must be a finite number.");
        }
        std::string remarks =
            remarkOnVectors("Axial Rotation", *shown, zones, turnedVariables(variables), variables.dimensions());
        auto const load = loadForRotation(dataSet, zones, variables, Rotation(axis, degrees));
        std::vector<FieldReplacement::ZonePart> parts;
        auto const work = [&](Progress& progress) {
            FieldRotation rotation(variables, Rotation(axis, degrees));
            rotation.setDeferred(*load);
            parts = transform(*shown, zones, rotation, progress);
        };
        performOperation("Axial Rotation", load, work, [&]() -> std::shared_ptr<Change> {
            NumberSet const changed = variablesOf(parts);
            if (changed.empty()) {
                remarks.clear();
                return nullptr;
            }
            StateChangeEvent event{StateChange_ValuesAltered, zonesOf(parts, zones), changed, {}, 0};
            return std::make_shared<FieldReplacement>(m_events, std::move(parts), std::move(event));
        });
        remark(remarks);
        return true;
    });
}

bool Session::duplicateZonesAxially(DataSet& dataSet, NumberSet const& zones, SpatialVariables const& variables,
                                    RotationAxis const& axis, AxialCopies const& copies)
{
    return guarded(*this, [&] {
        std::shared_ptr<DataSet> const shown = owned(dataSet);
        char const* reason = shown ? reasonAgainstRotation(dataSet, zones, variables, axis) : notShown;
        if (reason == nullptr) {
            reason = reasonAgainstSpread(dataSet, zones, copies);
        }
        if (reason != nullptr) {
            return refuse(reason);
        }
        std::string const remarks =
            remarkOnVectors("Axial Duplication", *shown, zones, turnedVariables(variables), variables.dimensions());
        constexpr long double anyAngle = 1; // the copies may turn by different ones
        auto const load = loadForRotation(dataSet, zones, variables, Rotation(axis, anyAngle));
        std::optional<AxialDuplication> duplication;
        auto const work = [&](Progress& progress) {
            duplication.emplace(dataSet, zones, variables, axis, copies);
            duplication->setDeferred(*load);
            duplication->run(progress);
        };
        performOperation("Axial Duplication", load, work,
                         [&] { return std::make_shared<ZoneAddition>(m_events, shown, duplication->takeCopies()); });
        remark(remarks);
        return true;
    });
}

bool Session::mirrorZones(UniqueId frame, NumberSet const& zones, char coordinate)
{
    return guarded(*this, [&] {
        std::shared_ptr<Frame> const found = this->frame(frame);
        std::shared_ptr<DataSet> const shown = found ? found->dataSet : nullptr;
        char const* reason = shown ? reasonAgainstZones(*shown, zones) : "There is no data set.";
        NumberSet const variables = reason == nullptr ? mirroredVariables(*found, coordinate, reason) : NumberSet();
        if (reason != nullptr) {
            return refuse(reason);
        }
        std::string const remarks = remarkOnVectors("Create Mirror Zone", *shown, zones, mirroredAsAWhole(*found),
                                                    found->variableNumber('Z') != 0 ? 3 : 2);
        auto const load = std::make_shared<DeferredLoad>(*shown);
        for (int const zone : zones) {
            for (int const variable : variables) {
                load->addField(zone, variable);
            }
        }
        std::vector<ZoneAddition::Copy> copies;
        auto const work = [&](Progress& progress) {
            copies.clear();
            FieldReflection reflection(variables);
            reflection.setDeferred(*load);
            for (FieldReplacement::ZonePart& part : transform(*shown, zones, reflection, progress)) {
                copies.emplace_back(std::move(part.zone), std::move(part.fields));
            }
        };
        performOperation("Create Mirror Zone", load, work,
                         [&] { return std::make_shared<ZoneAddition>(m_events, shown, std::move(copies)); });
        remark(remarks);
        return true;
    });
}

void Session::remark(std::string const& text) noexcept
{
    try {
        if (m_remarkListener && !text.empty()) {
            m_remarkListener(text);
        }
    } catch (...) {
        return; // what has been done is done, whether somebody could be told of it or not
    }
}

} // namespace veldraw::kernel
