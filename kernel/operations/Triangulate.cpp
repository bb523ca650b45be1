#include "kernel/operations/Triangulate.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/SystemMemory.h"
#include "kernel/base/Text.h"
#include "kernel/compute/DifferentPlaces.h"
#include "kernel/compute/LoopLines.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/mesh/PointMeans.h"
#include "kernel/operations/ReportText.h"
#include "kernel/storage/ValueType.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t mostNumbers = std::numeric_limits<std::uint32_t>::max() / 2;
constexpr double bytesOfPoint = 260;         // with the new cells, without values
constexpr double farthestCoordinate = 1e150; // squares of differences are numbers
constexpr std::size_t pointsBetweenChecks = 65536;

/// The cells of a zone of triangles, with their memory.
struct Triangles : Connectivity
{
    explicit Triangles(ZeroedArray<std::int64_t> numbers)
        : memory(std::move(numbers))
        , starts(memory.size() / 3 + 1)
    {
        for (std::size_t at = 0; at < starts.size(); ++at) {
            starts[at] = 3 * static_cast<std::int64_t>(at);
        }
        cellCount = static_cast<std::int64_t>(memory.size() / 3);
        indexCount = 3 * cellCount;
        offsets = starts.begin();
        indices = memory.begin();
    }

    ZeroedArray<std::int64_t> memory;
    ZeroedArray<std::int64_t> starts;
};

} // namespace

NumberSet Triangulate::allZones() const
{
    NumberSet zones = m_sources;
    zones.insert(m_boundaries.begin(), m_boundaries.end());
    return zones;
}

std::string Triangulate::reasonAgainst() const
{
    if (frame()->plotType != PlotType_Cartesian2D) {
        return "Only a 2D plot tells where points are in a plane.";
    }
    if (m_sources.empty()) {
        return "No source zones were given.";
    }
    if (char const* const reason = reasonAgainstZones(dataSet(), allZones())) {
        return reason;
    }
    if (!(m_keepFactor >= 0.0 && m_keepFactor <= 0.5)) {
        return "The triangle keep factor has to be between 0 and 0.5.";
    }
    for (std::size_t axis = 0; axis < 2; ++axis) {
        std::string reason = reasonAgainstAxis(axis);
        if (!reason.empty()) {
            return reason;
        }
    }
    for (int const zone : allZones()) {
        std::string reason = reasonAgainstZone(zone);
        if (!reason.empty()) {
            return reason;
        }
    }
    for (int const number : m_boundaries) {
        Zone const& zone = *dataSet().zone(number);
        std::string reason = zone.isDeferred() ? "" : reasonAgainstBoundary(zone);
        if (!reason.empty()) {
            return reason;
        }
    }
    return {};
}

std::string Triangulate::reasonAgainstZone(int zone) const
{
    if (!dataSet().zone(zone)->enabled) {
        return "The zone " + quoted(dataSet().zone(zone)->name) + " is disabled.";
    }
    std::string reason = reasonAgainstCoordinate(0, zone);
    return reason.empty() ? reasonAgainstCoordinate(1, zone) : reason;
}

/// Why a zone whose dimensions are known cannot be a boundary; empty when it can.
std::string Triangulate::reasonAgainstBoundary(Zone const& zone)
{
    bool const isLine = zone.isOrdered() && zone.dimensionality() == 1;
    return isLine ? "" : "The boundary zone " + quoted(zone.name) + " is not an ordered zone of one dimension.";
}

std::shared_ptr<DeferredLoad> Triangulate::needs()
{
    m_load = std::make_shared<DeferredLoad>(dataSet());
    for (int const zone : allZones()) {
        m_load->obey(frame()->valueBlanking, zone);
        m_load->addField(zone, frame()->axisVariables()[0]);
        m_load->addField(zone, frame()->axisVariables()[1]);
        bool const givesValues = m_includeBoundaryPoints || m_sources.count(zone) > 0;
        for (int variable = 1; givesValues && variable <= dataSet().variableCount(); ++variable) {
            m_load->addField(zone, variable);
        }
    }
    return m_load;
}

void Triangulate::compute(Progress& progress)
{
    auto const start = std::chrono::steady_clock::now();
    m_counts = {};
    m_points = {};
    m_fields.clear();
    collectZones();
    m_areMixed.assign(m_points.parts.size(), false);
    std::int64_t const points = m_points.firstCrossing();
    double const bytesOfValues = sizeof(double) * static_cast<double>(dataSet().variableCount());
    requireMemory((bytesOfPoint + bytesOfValues) * static_cast<double>(points));
    constexpr std::int64_t effort = 20; // of the triangles, beside that of a variable
    progress.setTotal(points * (effort + dataSet().variableCount()));
    std::optional<Progress> part;
    part.emplace(progress, effort * points);
    ZeroedArray<std::int64_t> corners = makeTriangles(*part);
    numberPoints(corners, progress);
    makeZone(std::move(corners));
    for (int variable = 1; variable <= dataSet().variableCount(); ++variable) {
        part.emplace(progress, points);
        m_fields.push_back(makeField(variable, *part));
    }
    countMade();
    m_report = m_counts.text(name(), secondsSince(start));
}

/// Numbers the points of all zones.
void Triangulate::collectZones()
{
    m_places.clear();
    std::int64_t end = 0;
    auto const coordinate = [this](int zone, std::size_t axis) {
        return m_load->valuesOf(*dataSet().field(zone, frame()->axisVariables()[axis]));
    };
    auto const add = [&](int number, bool isBoundary) {
        Zone const& zone = *dataSet().zone(number);
        ZoneDimensions const size = m_load->blankedDimensionsOf(zone);
        std::string const reason =
            isBoundary ? reasonAgainstBoundary({zone.name, zone.type, size.i, size.j, size.k}) : "";
        if (!reason.empty()) {
            throw std::runtime_error(reason);
        }
        m_places.emplace_back(zone.type, size,
                              ValuePlaces::Coordinates{coordinate(number, 0), coordinate(number, 1), nullptr}, 2,
                              ValueLocation_Nodal);
        std::int64_t const first = end;
        end += m_places.back().slotCount();
        if (end > mostNumbers) {
            throw std::runtime_error("More than " + std::to_string(mostNumbers) + " points cannot be triangulated.");
        }
        m_points.parts.push_back({number, isBoundary, static_cast<Number>(first), static_cast<Number>(end)});
    };
    for (int const zone : m_sources) {
        add(zone, false);
    }
    for (int const zone : m_boundaries) {
        add(zone, true);
    }
}

/// Reads where the points of a zone are, and adds the numbers of those that are not hidden to @p kept.
/// @param places receives the places of all points of the zone
void Triangulate::readZone(TriangulatedPoints::Part const& part, PlanePlace* places, std::vector<Number>& kept,
                           Progress const& progress)
{
    ValuePlaces const& source = m_places[static_cast<std::size_t>(&part - m_points.parts.data())];
    std::int64_t const count = part.end - part.first;
    std::vector<std::int64_t> misplaced(static_cast<std::size_t>(parallelChunkCount(count)));
    parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
        progress.check();
        for (std::int64_t slot = first; slot < last; ++slot) {
            source.read(slot, places[slot].data());
            bool const isPlace =
                std::abs(places[slot][0]) <= farthestCoordinate && std::abs(places[slot][1]) <= farthestCoordinate;
            misplaced[static_cast<std::size_t>(chunk)] += isPlace || source.isHidden(slot) ? 0 : 1;
        }
    });
    std::int64_t const wrong = std::accumulate(misplaced.begin(), misplaced.end(), std::int64_t{0});
    if (wrong > 0) {
        throw std::runtime_error("The zone " + quoted(dataSet().zone(part.zone)->name) + " has " +
                                 counted(wrong, "point") + " whose coordinates are not numbers up to 1e150.");
    }
    for (Number point = part.first; point < part.end; ++point) {
        if (point % pointsBetweenChecks == 0) {
            progress.check();
        }
        bool const isHidden = source.isHidden(point - part.first);
        m_counts.hidden += isHidden ? 1 : 0;
        if (!isHidden) {
            kept.push_back(point);
        }
    }
}

/// Triangulates. @return the numbers of the corners of all triangles
ZeroedArray<std::int64_t> Triangulate::makeTriangles(Progress& progress)
{
    PlaneTriangulation triangulation(progress);
    {
        ZeroedArray<PlanePlace> places(m_points.firstBoundary());
        std::vector<Number> order;
        order.reserve(places.size());
        for (TriangulatedPoints::Part const& part : m_points.parts) {
            if (!part.isBoundary) {
                readZone(part, places.begin() + part.first, order, progress);
            }
        }
        {
            Progress sorting(progress, progress.total() / 10);
            auto const all = static_cast<std::int64_t>(order.size());
            order = differentInSpace(places.begin(), std::move(order), sorting);
            m_counts.different = static_cast<std::int64_t>(order.size());
            m_counts.duplicates = all - m_counts.different;
        }
        Progress inserting(progress, progress.total() * 8 / 10);
        if (!triangulation.insertPoints(places.begin(), order, inserting)) {
            throw std::runtime_error(order.size() < 3 ? "The source zones have fewer than three different points."
                                                      : "The source points are all on one line.");
        }
    }
    addBoundaries(triangulation, progress);
    m_counts.cut = triangulation.cutOutside();
    if (triangulation.triangleCount() == 0) {
        throw std::runtime_error("Nothing is within the boundary.");
    }
    m_counts.slivers = triangulation.removeSlivers(m_keepFactor);
    if (triangulation.triangleCount() == 0) {
        throw std::runtime_error("A triangle keep factor of " + textOf(m_keepFactor) + " leaves no triangle.");
    }
    m_points.crossings = triangulation.crossings();
    ZeroedArray<std::int64_t> corners(static_cast<std::size_t>(3 * triangulation.triangleCount()));
    Progress writing(progress, progress.total() / 10);
    triangulation.writeTriangles(corners.begin(), writing);
    return corners;
}

void Triangulate::addBoundaries(PlaneTriangulation& triangulation, Progress const& progress)
{
    std::vector<std::vector<PlanePlace>> lines;
    std::vector<std::vector<Number>> numbers;
    m_points.mixes.resize(m_points.firstCrossing() - m_points.firstBoundary());
    for (TriangulatedPoints::Part const& part : m_points.parts) {
        if (part.isBoundary) {
            std::vector<PlanePlace> places(part.end - part.first);
            numbers.emplace_back();
            readZone(part, places.data(), numbers.back(), progress);
            lines.emplace_back();
            for (Number const point : numbers.back()) {
                lines.back().push_back(places[point - part.first]);
                m_points.mixes[point - m_points.firstBoundary()] = triangulation.mixAt(lines.back().back());
            }
        }
    }
    std::vector<bool> const areLoops = findLoops(lines);
    m_counts.boundaries = static_cast<std::int64_t>(lines.size());
    m_counts.closed = std::count(areLoops.begin(), areLoops.end(), true);
    for (std::size_t line = 0; line < lines.size(); ++line) {
        std::int64_t const known = triangulation.insertLine(lines[line], numbers[line], areLoops[line]);
        m_counts.duplicates += m_includeBoundaryPoints ? known : 0;
        m_counts.different += static_cast<std::int64_t>(lines[line].size()) - known;
    }
    triangulation.joinLines(m_points.firstCrossing());
}

/// Finds the points that triangles use, and gives the corners the numbers that these have in the new zone.
void Triangulate::numberPoints(ZeroedArray<std::int64_t>& corners, Progress const& progress)
{
    ZeroedArray<Number> indices(m_points.firstCrossing() + m_points.crossings.size()); // one more than the index
    for (std::size_t at = 0; at < corners.size(); ++at) {
        if (at % pointsBetweenChecks == 0) {
            progress.check();
        }
        indices[static_cast<std::size_t>(corners[at])] = 1;
    }
    for (Number point = 0; point < indices.size(); ++point) {
        if (point % pointsBetweenChecks == 0) {
            progress.check();
        }
        if (indices[point] > 0) {
            m_points.points.push_back(point);
            indices[point] = static_cast<Number>(m_points.points.size());
        }
    }
    parallelFor(static_cast<std::int64_t>(corners.size()), [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        std::for_each(corners.begin() + first, corners.begin() + last,
                      [&](std::int64_t& corner) { corner = indices[static_cast<std::size_t>(corner)] - 1; });
    });
}

void Triangulate::makeZone(ZeroedArray<std::int64_t> corners)
{
    auto const cells = std::make_shared<Triangles>(std::move(corners));
    m_zone = std::make_shared<Zone>("Triangulation", ZoneType_FETriangle,
                                    static_cast<std::int64_t>(m_points.points.size()), cells->cellCount, 0);
    m_zone->connectivity = cells;
    m_zone->fields.resize(static_cast<std::size_t>(dataSet().variableCount())); // those of their own come with the step
}

NewField Triangulate::makeField(int variable, Progress& progress)
{
    std::array<int, 3> const axes = frame()->axisVariables();
    int const axis = variable == axes[0] ? 0 : variable == axes[1] ? 1 : -1;
    std::vector<TriangulatedField::Values> values;
    std::optional<FieldDataType_e> type;
    FieldDataType_e passiveType = FieldDataType_Bit;
    for (TriangulatedPoints::Part const& part : m_points.parts) {
        Field const& field = *dataSet().field(part.zone, variable);
        bool const isGiven = !part.isBoundary || m_includeBoundaryPoints || axis >= 0;
        passiveType = commonType(passiveType, field.type());
        if (!isGiven || field.isPassive()) {
            values.push_back({nullptr, part.isBoundary && axis < 0});
            continue;
        }
        std::shared_ptr<Buffer const> buffer = m_load->valuesOf(field);
        if (field.location() == ValueLocation_CellCentered) {
            Zone const& zone = *dataSet().zone(part.zone);
            buffer = meansAtPoints(zone.type, m_load->blankedDimensionsOf(zone), *buffer, progress);
        }
        type = type ? commonType(*type, buffer->type()) : buffer->type();
        values.push_back({std::move(buffer), false});
    }
    for (std::size_t part = 0; part < values.size(); ++part) {
        m_areMixed[part] = m_areMixed[part] || (type && values[part].isMixed);
    }
    auto const position = static_cast<std::size_t>(variable - 1);
    if (!type) {
        return {position, Field(passiveType, ValueLocation_Nodal)};
    }
    auto const made = TriangulatedField(m_points, std::move(values), axis).make(*type, progress);
    return {position, Field(std::make_shared<ShareGroup>(made), ValueLocation_Nodal)};
}

/// Number of points of boundaries for which some values were interpolated.
std::int64_t Triangulate::mixedCount() const
{
    std::int64_t count = 0;
    for (std::size_t part = 0; part < m_areMixed.size(); ++part) {
        auto const before = [&](Number end) {
            return std::lower_bound(m_points.points.begin(), m_points.points.end(), end);
        };
        count += m_areMixed[part] ? before(m_points.parts[part].end) - before(m_points.parts[part].first) : 0;
    }
    return count;
}

void Triangulate::countMade()
{
    for (int const zone : m_sources) {
        m_counts.sources.push_back(dataSet().zone(zone)->name);
    }
    m_counts.keepFactor = m_keepFactor;
    m_counts.triangles = m_zone->cellCount();
    m_counts.points = m_zone->pointCount();
    m_counts.crossings = static_cast<std::int64_t>(m_points.crossings.size());
    m_counts.mixed = mixedCount();
}

std::shared_ptr<Change> Triangulate::makeChange(EventHub& events)
{
    std::vector<ZoneAddition::Copy> zones;
    zones.emplace_back(m_zone, std::move(m_fields));
    zones.back().ownBytes =
        (m_zone->connectivity->cellCount + m_zone->connectivity->indexCount) * std::int64_t{sizeof(std::int64_t)};
    return std::make_shared<ZoneAddition>(events, frame()->dataSet, std::move(zones));
}

CommandText Triangulate::command() const
{
    CommandText text = CommandText("triangulate").numbers("zones", m_sources);
    if (!m_boundaries.empty()) {
        text.numbers("boundaries", m_boundaries);
    }
    return text.flag("include-boundary-points", m_includeBoundaryPoints).real("keep-factor", m_keepFactor);
}

} // namespace veldraw::kernel
