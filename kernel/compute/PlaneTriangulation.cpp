#include "kernel/compute/LinedTriangulation.h"
#include "kernel/compute/PlaneGeometry.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

using Face = plane::FaceHandle;
using plane::noNumber;
using Vertex = plane::VertexHandle;
using Number = PlaneTriangulation::Number;
using Triangulation = plane::LinedTriangulation;

plane::Kernel::Point_2 pointOf(PlanePlace const& place)
{
    return {place[0], place[1]};
}

PlanePlace placeOf(Vertex vertex)
{
    return {vertex->point().x(), vertex->point().y()};
}

double roundnessOf(Face face)
{
    return roundness(placeOf(face->vertex(0)), placeOf(face->vertex(1)), placeOf(face->vertex(2)));
}

PlaneTriangulation::Mix onlyOf(Vertex vertex)
{
    return {{vertex->info().value, vertex->info().value, vertex->info().value}, {1.0, 0.0, 0.0}};
}

/// What makes up a value at the place on an edge that is nearest to @p place. @param index of the corner across the edge
PlaneTriangulation::Mix mixOnEdge(PlanePlace const& place, Face face, int index)
{
    Vertex const from = face->vertex(Triangulation::ccw(index));
    Vertex const to = face->vertex(Triangulation::cw(index));
    double const share = nearestShare(place, placeOf(from), placeOf(to));
    return {{from->info().value, to->info().value, from->info().value}, {1.0 - share, share, 0.0}};
}

double distanceToEdge(PlanePlace const& place, Face face, int index)
{
    return distanceToLine(place, placeOf(face->vertex(Triangulation::ccw(index))),
                          placeOf(face->vertex(Triangulation::cw(index))));
}

} // namespace

class PlaneTriangulation::Implementation
{
public:
    explicit Implementation(Progress const& progress)
        : m_watch(progress)
        , m_triangulation(plane::Geometry(m_watch))
    {
    }

    bool insertPoints(PlanePlace const* places, std::vector<Number> const& order, Progress& progress);
    Mix mixAt(PlanePlace const& place);
    std::int64_t insertLine(std::vector<PlanePlace> const& places, std::vector<Number> const& numbers, bool isOfLoop);
    void joinLines(Number firstNew);
    std::vector<Crossing> const& crossings() const { return m_crossings; }
    std::int64_t cutOutside();
    std::int64_t removeSlivers(double keepFactor);
    std::int64_t triangleCount() const
    {
        return static_cast<std::int64_t>(m_triangulation.number_of_faces()) - m_taken;
    }
    void writeTriangles(std::int64_t* corners, Progress& progress) const;

private:
    void insertPoint(plane::PlainTriangulation& plain, PlanePlace const& place, Number number);
    Mix mixInside(PlanePlace const& place, Face face) const;
    Mix mixOutside(PlanePlace const& place, Face face) const;
    void mergeEqualEdges();
    void take(Face face);

    mutable Watch m_watch;
    BlockMemory m_memory; // is there longer than what is in it
    plane::UseOfBlocks m_use{m_memory};
    Triangulation m_triangulation;
    Face m_near; // where the next point is likely to be
    std::vector<Triangulation::Line> m_edges;
    std::vector<Crossing> m_crossings;
    bool m_hasLoops = false;
    std::int64_t m_taken = 0;
};

void PlaneTriangulation::Implementation::insertPoint(plane::PlainTriangulation& plain, PlanePlace const& place,
                                                     Number number)
{
    Vertex const vertex = plain.insert(pointOf(place), m_near);
    vertex->info().value = number;
    m_near = vertex->face();
}

/// In rounds, each of which goes through the whole plane: few points first, then eight times as many. So triangles are small where
/// the next point goes, however the points are spread (N. Amenta, S. Choi, G. Rote, 2003).
bool PlaneTriangulation::Implementation::insertPoints(PlanePlace const* places, std::vector<Number> const& order,
                                                      Progress& progress)
{
    auto const isOffTheLine = [&, turn = plane::Geometry(m_watch).orientation_2_object()](Number point) {
        return turn(pointOf(places[order[0]]), pointOf(places[order[1]]), pointOf(places[point])) != CGAL::COLLINEAR;
    };
    auto const third = order.size() < 3 ? order.end() : std::find_if(order.begin() + 2, order.end(), isOffTheLine);
    if (third == order.end()) {
        return false;
    }
    plane::PlainTriangulation plain{plane::Geometry(m_watch)};
    for (Number const point : {order[0], order[1], *third}) { // inserting is slow while all points are on a line
        insertPoint(plain, places[point], point);
    }
    progress.setTotal(static_cast<std::int64_t>(order.size()));
    constexpr std::size_t growth = 8;
    constexpr std::size_t fewest = 1000;
    std::size_t step = 1;
    while (order.size() / step > fewest) {
        step *= growth;
    }
    for (std::size_t before = 0; step > 0; before = step, step /= growth) {
        std::int64_t inserted = 0;
        for (std::size_t at = 0; at < order.size(); at += step) {
            // Points come from all over the memory.
            __builtin_prefetch(places + order[std::min(at + 8 * step, order.size() - 1)]);
            if (before == 0 || at % before != 0) {
                insertPoint(plain, places[order[at]], order[at]);
                ++inserted;
            }
            if (inserted == 512) {
                progress.advance(inserted);
                inserted = 0;
            }
        }
        progress.advance(inserted);
    }
    m_triangulation.swapPoints(plain);
    return true;
}

PlaneTriangulation::Mix PlaneTriangulation::Implementation::mixAt(PlanePlace const& place)
{
    Triangulation::Locate_type type{};
    int index = 0;
    Face const face = m_triangulation.locate(pointOf(place), type, index, m_near);
    m_near = face;
    switch (type) {
    case Triangulation::VERTEX:
        return onlyOf(face->vertex(index));
    case Triangulation::EDGE:
        return mixOnEdge(place, face, index);
    case Triangulation::FACE:
        return mixInside(place, face);
    default:
        return mixOutside(place, face);
    }
}

PlaneTriangulation::Mix PlaneTriangulation::Implementation::mixInside(PlanePlace const& place, Face face) const
{
    Mix mix{};
    std::array<PlanePlace, 3> corners{};
    for (int corner = 0; corner < 3; ++corner) {
        corners[static_cast<std::size_t>(corner)] = placeOf(face->vertex(corner));
        mix.points[static_cast<std::size_t>(corner)] = face->vertex(corner)->info().value;
    }
    mix.shares = cornerShares(place, corners);
    return mix;
}

/// From the edge of the hull that @p face is at, along the hull as long as its edges come nearer.
PlaneTriangulation::Mix PlaneTriangulation::Implementation::mixOutside(PlanePlace const& place, Face face) const
{
    auto const infinityOf = [this](Face outside) { return outside->index(m_triangulation.infinite_vertex()); };
    auto const distanceTo = [&](Face outside) {
        int const infinity = infinityOf(outside);
        return distanceToEdge(place, outside, infinity);
    };
    double least = distanceTo(face);
    for (bool const isForward : {true, false}) {
        while (true) {
            int const infinity = infinityOf(face);
            Face const next = face->neighbor(isForward ? Triangulation::ccw(infinity) : Triangulation::cw(infinity));
            double const found = distanceTo(next);
            if (!(found < least)) {
                break;
            }
            least = found;
            face = next;
        }
    }
    return mixOnEdge(place, face, infinityOf(face));
}

std::int64_t PlaneTriangulation::Implementation::insertLine(std::vector<PlanePlace> const& places,
                                                            std::vector<Number> const& numbers, bool isOfLoop)
{
    std::int64_t known = 0;
    Vertex before;
    for (std::size_t at = 0; at < places.size(); ++at) {
        Vertex const vertex = m_triangulation.insert(pointOf(places[at]), m_near);
        m_near = vertex->face();
        if (vertex->info().value == noNumber) {
            vertex->info().value = numbers[at];
        } else {
            ++known;
        }
        if (at > 0 && vertex != before) {
            m_edges.push_back({before, vertex, isOfLoop});
        }
        before = vertex;
    }
    m_hasLoops = m_hasLoops || isOfLoop;
    return known;
}

/// So that an edge that several lines have is inserted once.
void PlaneTriangulation::Implementation::mergeEqualEdges()
{
    using Line = Triangulation::Line;
    auto const endsOf = [](Line const& line) { return std::minmax({line.from->info().value, line.to->info().value}); };
    sortWatched(m_edges.begin(), m_edges.end(), m_watch,
                [&](Line const& a, Line const& b) { return endsOf(a) < endsOf(b); });
    std::vector<Line> merged;
    for (Line const& edge : m_edges) {
        m_watch.count();
        if (!merged.empty() && endsOf(merged.back()) == endsOf(edge)) {
            merged.back().isOfLoops = merged.back().isOfLoops != edge.isOfLoops;
        } else {
            merged.push_back(edge);
        }
    }
    m_edges.swap(merged);
}

void PlaneTriangulation::Implementation::joinLines(Number firstNew)
{
    mergeEqualEdges();
    for (Triangulation::Line const& edge : m_edges) {
        m_triangulation.insertLine(edge, [&](Vertex vertex, Triangulation::Line const& first) {
            vertex->info().value = firstNew + static_cast<Number>(m_crossings.size());
            PlanePlace const place = placeOf(vertex);
            m_crossings.push_back({place, first.from->info().value, first.to->info().value,
                                   nearestShare(place, placeOf(first.from), placeOf(first.to))});
        });
    }
    m_triangulation.forLoops(
        m_watch, [](Face face, int index) { face->info().isOfLoops[static_cast<std::size_t>(index)] = true; });
}

void PlaneTriangulation::Implementation::take(Face face)
{
    face->info().isTaken = true;
    ++m_taken;
}

/// Goes from outside through all triangles, in waves, and counts the loops on the way.
std::int64_t PlaneTriangulation::Implementation::cutOutside()
{
    if (!m_hasLoops) {
        return 0;
    }
    std::int64_t const before = m_taken;
    using Reached = std::vector<std::pair<Face, bool>>; // and whether within loops
    Reached wave{{m_triangulation.infinite_face(), false}};
    Reached next;
    wave.back().first->info().isReached = true;
    for (; !wave.empty(); wave.swap(next), next.clear()) {
        for (std::size_t at = 0; at < wave.size(); ++at) {
            constexpr std::size_t ahead = 8; // triangles are all over the memory
            for (int index = 0; index < 3 && at + ahead < wave.size(); ++index) {
                __builtin_prefetch(&*wave[at + ahead].first->neighbor(index));
            }
            m_watch.count();
            auto const [face, isWithin] = wave[at];
            if (!isWithin && !m_triangulation.is_infinite(face)) {
                take(face);
            }
            for (int index = 0; index < 3; ++index) {
                Face const neighbor = face->neighbor(index);
                if (!neighbor->info().isReached) {
                    neighbor->info().isReached = true;
                    next.emplace_back(neighbor, isWithin != face->info().isOfLoops[static_cast<std::size_t>(index)]);
                }
            }
        }
    }
    return m_taken - before;
}

std::int64_t PlaneTriangulation::Implementation::removeSlivers(double keepFactor)
{
    // Sides of equal length are no numbers that a computer has, and the largest factor is to keep them.
    double const least = keepFactor * (1 - 1e-12);
    std::int64_t const before = m_taken;
    std::vector<Face> gone;
    auto const start = m_triangulation.incident_faces(m_triangulation.infinite_vertex());
    auto outside = start;
    do {
        gone.push_back(outside);
    } while (++outside != start);
    while (!gone.empty()) {
        Face const face = gone.back();
        gone.pop_back();
        for (int index = 0; index < 3; ++index) {
            m_watch.count();
            Face const next = face->neighbor(index);
            bool const isOpen = !face->is_constrained(index) && !m_triangulation.is_infinite(next);
            if (isOpen && !next->info().isTaken && roundnessOf(next) < least) {
                take(next);
                gone.push_back(next);
            }
        }
    }
    return m_taken - before;
}

void PlaneTriangulation::Implementation::writeTriangles(std::int64_t* corners, Progress& progress) const
{
    progress.setTotal(triangleCount());
    std::int64_t done = 0;
    for (Face const face : m_triangulation.finite_face_handles()) {
        m_watch.count();
        if (face->info().isTaken) {
            continue;
        }
        for (int corner = 0; corner < 3; ++corner) {
            *corners++ = face->vertex(corner)->info().value;
        }
        if (++done % 512 == 0) {
            progress.advance(512);
        }
    }
}

PlaneTriangulation::PlaneTriangulation(Progress const& progress)
    : m_implementation(std::make_unique<Implementation>(progress))
{
}

PlaneTriangulation::~PlaneTriangulation() = default;

bool PlaneTriangulation::insertPoints(PlanePlace const* places, std::vector<Number> const& order, Progress& progress)
{
    return m_implementation->insertPoints(places, order, progress);
}

PlaneTriangulation::Mix PlaneTriangulation::mixAt(PlanePlace const& place)
{
    return m_implementation->mixAt(place);
}

std::int64_t PlaneTriangulation::insertLine(std::vector<PlanePlace> const& places, std::vector<Number> const& numbers,
                                            bool isOfLoop)
{
    return m_implementation->insertLine(places, numbers, isOfLoop);
}

void PlaneTriangulation::joinLines(Number firstNew)
{
    m_implementation->joinLines(firstNew);
}

std::vector<PlaneTriangulation::Crossing> const& PlaneTriangulation::crossings() const
{
    return m_implementation->crossings();
}

std::int64_t PlaneTriangulation::cutOutside()
{
    return m_implementation->cutOutside();
}

std::int64_t PlaneTriangulation::removeSlivers(double keepFactor)
{
    return m_implementation->removeSlivers(keepFactor);
}

std::int64_t PlaneTriangulation::triangleCount() const
{
    return m_implementation->triangleCount();
}

void PlaneTriangulation::writeTriangles(std::int64_t* corners, Progress& progress) const
{
    m_implementation->writeTriangles(corners, progress);
}

} // namespace veldraw::kernel
