#include "kernel/operations/PointInterpolation.h"

#include "kernel/compute/SpatialOrder.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t unitsForALayout = 100000;
constexpr std::size_t valuesAtATime = 4096;
constexpr double hugeValue = 1e280;
constexpr double divisorOfHugeValues = 0x1p64;
constexpr int extremeExponent = 500; // squares of larger or smaller coordinates are not numbers of double precision
constexpr int largestExponent = 1023;

/// Factor for coordinates of extreme size. Large ones stay as large as their squares allow, since the distances of most points
/// may be far smaller.
double scaleFor(double largest)
{
    int const exponent = largest > 0.0 ? std::ilogb(largest) : 0;
    if (exponent > extremeExponent) {
        return std::ldexp(1.0, extremeExponent - exponent);
    }
    return exponent < -extremeExponent ? std::ldexp(1.0, std::min(-exponent, largestExponent)) : 1.0;
}

} // namespace

/// Variables whose values are at the same places, in the source zones and in the destination.
struct PointInterpolation::Layout
{
    std::vector<ValueLocation_e> sourceLocations;
    ValueLocation_e destinationLocation;
    std::vector<InterpolatedField*> fields;
};

PointInterpolation::PointInterpolation(UniqueId frame, NumberSet sources, int destination, NumberSet variables,
                                       NeighborChoice choice)
    : Interpolation(frame, std::move(sources), destination, std::move(variables))
    , m_choice(choice)
{
}

std::string PointInterpolation::reasonAgainst() const
{
    if (m_choice.selection != PtSelection_All && m_choice.count < 1) {
        return "The number of points must be at least 1.";
    }
    return Interpolation::reasonAgainst();
}

bool PointInterpolation::takesAll(std::int64_t sourcePoints) const
{
    std::int64_t const shares = m_choice.selection == PtSelection_Octant ? std::int64_t{1} << dimensions() : 1;
    return m_choice.selection == PtSelection_All || m_choice.count / shares >= sourcePoints;
}

std::string PointInterpolation::interpolate(Fields const& fields, Progress& progress)
{
    std::vector<Layout> const all = layouts(fields);
    progress.setTotal(progress.done() + unitsForALayout * static_cast<std::int64_t>(all.size()));
    for (Layout const& layout : all) {
        checkCount(layout, progress);
    }
    m_pointsLeftOut = 0;
    m_valuesLeftOut = 0;
    m_targetsLeftOut = 0;
    for (Layout const& layout : all) {
        Progress part(progress, unitsForALayout);
        work(layout, part);
    }
    std::string text = details();
    auto const add = [&text](std::int64_t count, std::string const& noun, char const* what) {
        text += count > 0 ? (text.empty() ? "" : " ") + counted(count, noun) + what : "";
    };
    add(m_pointsLeftOut, "source point", " left out: hidden or without a finite place.");
    add(m_valuesLeftOut, "source value", " left out: not finite.");
    add(m_targetsLeftOut, "point", " of the destination without a finite place left as before.");
    return text;
}

std::vector<PointInterpolation::Layout> PointInterpolation::layouts(Fields const& fields) const
{
    std::vector<Layout> all;
    for (auto const& field : fields) {
        std::vector<ValueLocation_e> locations;
        for (int const zone : sources()) {
            locations.push_back(dataSet().field(zone, field->variable())->location());
        }
        auto const isAlike = [&](Layout const& layout) {
            return layout.destinationLocation == field->location() && layout.sourceLocations == locations;
        };
        auto found = std::find_if(all.begin(), all.end(), isAlike);
        if (found == all.end()) {
            all.push_back({std::move(locations), field->location(), {}});
            found = all.end() - 1;
        }
        found->fields.push_back(field.get());
    }
    return all;
}

void PointInterpolation::addSources(Layout const& layout, SourcePoints& points) const
{
    auto location = layout.sourceLocations.begin();
    for (int const zone : sources()) {
        std::vector<std::shared_ptr<Buffer const>> buffers;
        for (InterpolatedField const* const field : layout.fields) {
            buffers.push_back(values(zone, field->variable()));
        }
        points.add(places(zone, *location++), std::move(buffers));
    }
}

/// Variables that have finite values at the same source points.
struct PointInterpolation::Group
{
    std::vector<bool> leftOut; ///< of the selected points; empty when none is
    std::vector<Task::Variable> variables;

    void takeAway(std::vector<std::uint32_t>& points, Progress const& progress) const
    {
        if (leftOut.empty()) {
            return;
        }
        std::size_t kept = 0;
        for (std::size_t at = 0; at < points.size(); ++at) {
            if (at % valuesAtATime == 0) {
                progress.check();
            }
            if (!leftOut[at]) {
                points[kept++] = points[at];
            }
        }
        points.resize(kept);
    }
};

/// Only where there are too many points are those counted that have values and are left when equal ones are merged.
void PointInterpolation::checkCount(Layout const& layout, Progress& progress)
{
    SourcePoints sources(dimensions());
    addSources(layout, sources);
    if (reasonAgainstPoints(sources.size()).empty()) {
        return;
    }
    SourcePoints::Selection const selected = sources.select(false, progress);
    sources.setScale(scaleFor(selected.largest));
    for (Group const& group : divide(layout, sources, selected.points, progress)) {
        std::vector<std::uint32_t> const noTargets;
        Task task(sources, sources, noTargets, 1.0);
        task.sourcePoints = selected.points;
        group.takeAway(task.sourcePoints, progress);
        Progress counting(progress, 0);
        task.mergeCoincidentPoints(counting);
        std::string const reason = reasonAgainstPoints(static_cast<std::int64_t>(task.sourcePoints.size()));
        if (!reason.empty()) {
            throw std::runtime_error(reason);
        }
    }
}

void PointInterpolation::work(Layout const& layout, Progress& progress)
{
    SourcePoints sourcePlaces(dimensions());
    addSources(layout, sourcePlaces);
    SourcePoints targetPlaces(dimensions());
    targetPlaces.add(places(destination(), layout.destinationLocation), {});
    SourcePoints::Selection sources = sourcePlaces.select(false, progress);
    SourcePoints::Selection targets = targetPlaces.select(true, progress);
    m_pointsLeftOut = std::max(m_pointsLeftOut, sources.leftOut);
    m_targetsLeftOut = std::max(m_targetsLeftOut, targets.leftOut);
    if (targets.points.empty()) {
        return;
    }
    double const scale = scaleFor(std::max(sources.largest, targets.largest));
    sourcePlaces.setScale(scale);
    targetPlaces.setScale(scale);
    {
        Progress sorting(progress, unitsForALayout / 10);
        sortInSpace(targetPlaces, targets.points, sorting);
    }
    std::vector<Group> const groups = divide(layout, sourcePlaces, sources.points, progress);
    for (Group const& group : groups) {
        Task task(sourcePlaces, targetPlaces, targets.points, scale);
        if (&group == &groups.back()) {
            task.sourcePoints = std::move(sources.points);
        } else {
            task.sourcePoints = sources.points;
        }
        Progress part(progress, unitsForALayout * 9 / 10 / static_cast<std::int64_t>(groups.size()));
        workOn(group, task, part);
    }
}

/// Estimates the variables of a group. @param task with all points, from which those that are left out are taken away
void PointInterpolation::workOn(Group const& group, Task& task, Progress& progress)
{
    std::vector<std::uint32_t>& points = task.sourcePoints;
    group.takeAway(points, progress);
    task.variables = group.variables;
    if (points.empty()) {
        int const variable = task.variables.front().field->variable();
        throw std::runtime_error("No source point has a finite value of the variable \"" +
                                 dataSet().variable(variable)->name + "\".");
    }
    estimate(task, progress);
}

std::vector<PointInterpolation::Group> PointInterpolation::divide(Layout const& layout, SourcePoints const& sources,
                                                                  std::vector<std::uint32_t> const& points,
                                                                  Progress const& progress)
{
    std::vector<Group> groups;
    std::vector<double> block(valuesAtATime);
    for (std::size_t position = 0; position < layout.fields.size(); ++position) {
        std::vector<bool> leftOut;
        double largest = 0.0;
        for (std::size_t first = 0; first < points.size(); first += valuesAtATime) {
            progress.check();
            std::size_t const count = std::min(valuesAtATime, points.size() - first);
            sources.gather(position, &points[first], count, block.data());
            for (std::size_t at = 0; at < count; ++at) {
                if (std::isfinite(block[at])) {
                    largest = std::max(largest, std::abs(block[at]));
                } else {
                    leftOut.resize(points.size());
                    leftOut[first + at] = true;
                    ++m_valuesLeftOut;
                }
            }
        }
        auto found = std::find_if(groups.begin(), groups.end(),
                                  [&leftOut](Group const& group) { return group.leftOut == leftOut; });
        if (found == groups.end()) {
            groups.push_back({std::move(leftOut), {}});
            found = groups.end() - 1;
        }
        found->variables.push_back(
            {position, layout.fields[position], largest > hugeValue ? divisorOfHugeValues : 1.0});
    }
    return groups;
}

CommandText PointInterpolation::withPoints(CommandText text) const
{
    static constexpr char const* selections[] = {"all", "nearest", "octant"};
    return text.word("selection", selections[m_choice.selection]).number("points", m_choice.count);
}

} // namespace veldraw::kernel
