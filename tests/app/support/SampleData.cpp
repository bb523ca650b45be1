#include "tests/app/support/SampleData.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace veldraw::tests {

using kernel::Buffer;
using kernel::Connectivity;
using kernel::DataSet;
using kernel::Field;
using kernel::Frame;
using kernel::LineMap;
using kernel::ShareGroup;
using kernel::Variable;
using kernel::Zone;

namespace {

using DataSetPtr = SampleData::DataSetPtr;

constexpr double pi = 3.14159265358979323846;

DataSetPtr emptySet(std::initializer_list<char const*> names)
{
    auto set = std::make_shared<DataSet>("sample");
    for (char const* const name : names)
        set->addVariable(std::make_shared<Variable>(name));
    return set;
}

std::shared_ptr<Zone> addZone(DataSet& set, std::string const& name, ZoneType_e type, std::int64_t i, std::int64_t j,
                              std::int64_t k)
{
    auto zone = std::make_shared<Zone>(name, type, i, j, k);
    set.addZone(zone);
    return zone;
}

// Connectivity that owns its arrays; every cell has the same number of corners.
std::shared_ptr<Connectivity const> cellsOf(std::vector<std::int64_t> indices, std::int64_t corners)
{
    struct Arrays
    {
        std::vector<std::int64_t> offsets;
        std::vector<std::int64_t> indices;
    };
    auto arrays = std::make_shared<Arrays>();
    arrays->indices = std::move(indices);
    auto const count = static_cast<std::int64_t>(arrays->indices.size()) / corners;
    for (std::int64_t n = 0; n <= count; ++n)
        arrays->offsets.push_back(n * corners);
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = count;
    cells->indexCount = count * corners;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->owner = arrays;
    return cells;
}

} // namespace

void SampleData::addField(Zone& zone, std::vector<double> const& values, ValueLocation_e location, int number)
{
    auto buffer = Buffer::allocate(FieldDataType_Double, static_cast<std::int64_t>(values.size()));
    for (std::size_t n = 0; n < values.size(); ++n)
        buffer->setValue(static_cast<std::int64_t>(n), values[n]);
    Field field(std::make_shared<ShareGroup>(buffer), location);
    if (number > 0) {
        zone.fields[static_cast<std::size_t>(number - 1)] = field;
        return;
    }
    for (Field& each : zone.fields)
        if (each.isPassive()) {
            each = field;
            return;
        }
}

DataSetPtr SampleData::block(int i, int j, int k)
{
    // A direction with a single point is at its start.
    auto const share = [](int n, int count) { return count > 1 ? n / (count - 1.0) : 0.0; };
    auto set = emptySet({"X", "Y", "Z", "p"});
    auto const zone = addZone(*set, "Block", ZoneType_Ordered, i, j, k);
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<double> p;
    for (int c = 0; c < k; ++c)
        for (int b = 0; b < j; ++b)
            for (int a = 0; a < i; ++a) {
                double const s = share(a, i);
                double const angle = 0.5 * pi * share(b, j);
                double const radius = 1.0 + share(c, k);
                x.push_back(2.0 * s);
                y.push_back(radius * std::cos(angle));
                z.push_back(radius * std::sin(angle));
                p.push_back(50.0 * s + 25.0 * (radius - 1.0) + 25.0 * share(b, j));
            }
    for (auto const* const values : {&x, &y, &z, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::sheet(int i, int j)
{
    auto set = emptySet({"X", "Y", "p"});
    auto const zone = addZone(*set, "Sheet", ZoneType_Ordered, i, j, 1);
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> p;
    for (int b = 0; b < j; ++b)
        for (int a = 0; a < i; ++a) {
            x.push_back(2.0 * a / (i - 1.0));
            y.push_back(b / (j - 1.0));
            p.push_back(-5.0 + 20.0 * a / (i - 1.0));
        }
    for (auto const* const values : {&x, &y, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::cellSheet(int i, int j)
{
    auto set = sheet(i, j);
    std::vector<double> p;
    for (int b = 0; b < j; ++b)
        for (int a = 0; a < i; ++a)
            p.push_back(a + 1 < i && b + 1 < j ? a + 1.0 : 1e9);
    addField(*set->zone(1), p, ValueLocation_CellCentered, 3);
    return set;
}

DataSetPtr SampleData::triangles(int rings)
{
    auto set = emptySet({"X", "Y", "p"});
    constexpr int spokes = 36;
    std::vector<double> x = {0.0};
    std::vector<double> y = {0.0};
    std::vector<double> p = {0.0};
    std::vector<std::int64_t> corners;
    for (int ring = 1; ring <= rings; ++ring)
        for (int spoke = 0; spoke < spokes; ++spoke) {
            double const angle = 2.0 * pi * spoke / spokes;
            double const radius = static_cast<double>(ring) / rings;
            x.push_back(radius * std::cos(angle));
            y.push_back(radius * std::sin(angle));
            p.push_back(radius);
            int const next = (spoke + 1) % spokes;
            int const outer = 1 + (ring - 1) * spokes;
            int const inner = outer - spokes;
            if (ring == 1) {
                corners.insert(corners.end(), {0, outer + spoke, outer + next});
                continue;
            }
            corners.insert(corners.end(), {inner + spoke, outer + spoke, outer + next});
            corners.insert(corners.end(), {inner + spoke, outer + next, inner + next});
        }
    auto const cells = cellsOf(corners, 3);
    auto const zone =
        addZone(*set, "Disc", ZoneType_FETriangle, static_cast<std::int64_t>(x.size()), cells->cellCount, 0);
    zone->connectivity = cells;
    for (auto const* const values : {&x, &y, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::bricks(int n)
{
    auto set = emptySet({"X", "Y", "Z", "p"});
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    std::vector<double> p;
    std::vector<std::int64_t> corners;
    int const m = n + 1;
    for (int c = 0; c < m; ++c)
        for (int b = 0; b < m; ++b)
            for (int a = 0; a < m; ++a) {
                x.push_back(static_cast<double>(a) / n);
                y.push_back(static_cast<double>(b) / n);
                z.push_back(static_cast<double>(c) / n);
                p.push_back(std::sin(3.0 * a / n) + std::cos(4.0 * b / n) * c / n);
                if (a == n || b == n || c == n)
                    continue;
                std::int64_t const first = a + m * (b + m * c);
                std::int64_t const above = first + m * m;
                corners.insert(corners.end(), {first, first + 1, first + 1 + m, first + m, above, above + 1,
                                               above + 1 + m, above + m});
            }
    auto const cells = cellsOf(corners, 8);
    auto const zone =
        addZone(*set, "Bricks", ZoneType_FEBrick, static_cast<std::int64_t>(x.size()), cells->cellCount, 0);
    zone->connectivity = cells;
    for (auto const* const values : {&x, &y, &z, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::prism()
{
    auto set = emptySet({"X", "Y", "Z"});
    struct Arrays
    {
        std::vector<std::int64_t> offsets = {0, 6};
        std::vector<std::int64_t> indices = {0, 1, 2, 3, 4, 5};
        std::vector<std::int64_t> faceOffsets = {0};
        std::vector<std::int64_t> faces = {5, 3, 0, 2, 1, 3, 3, 4, 5, 4, 0, 1, 4, 3, 4, 1, 2, 5, 4, 4, 2, 0, 3, 5};
    };
    auto arrays = std::make_shared<Arrays>();
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = 1;
    cells->indexCount = 6;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->faceOffsets = arrays->faceOffsets.data();
    cells->faceStream = arrays->faces.data();
    cells->faceStreamSize = static_cast<std::int64_t>(arrays->faces.size());
    cells->owner = arrays;
    auto const zone = addZone(*set, "Prism", ZoneType_FEPolyhedron, 6, 1, 5);
    zone->connectivity = cells;
    addField(*zone, {0.0, 1.0, 0.0, 0.0, 1.0, 0.0});
    addField(*zone, {0.0, 0.0, 1.0, 0.0, 0.0, 1.0});
    addField(*zone, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0});
    return set;
}

DataSetPtr SampleData::mixed()
{
    auto set = emptySet({"X", "Y", "Z"});
    struct Arrays
    {
        std::vector<std::int64_t> offsets = {0, 4, 7};
        std::vector<std::int64_t> indices = {0, 1, 2, 3, 4, 5, 6};
        std::vector<Connectivity::Shape> shapes = {Connectivity::Shape::Tetrahedron, Connectivity::Shape::Triangle};
    };
    auto arrays = std::make_shared<Arrays>();
    auto cells = std::make_shared<Connectivity>();
    cells->cellCount = 2;
    cells->indexCount = 7;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->shapes = arrays->shapes.data();
    cells->owner = arrays;
    auto const zone = addZone(*set, "Mixed", ZoneType_FEMixed, 7, 2, 0);
    zone->connectivity = cells;
    addField(*zone, {0.0, 1.0, 0.0, 0.0, 2.0, 3.0, 2.0});
    addField(*zone, {0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0});
    addField(*zone, {0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0});
    return set;
}

DataSetPtr SampleData::points(int count)
{
    auto set = emptySet({"X", "Y", "p"});
    auto const zone = addZone(*set, "Probes", ZoneType_Ordered, count, 1, 1);
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> p;
    for (int n = 0; n < count; ++n) {
        x.push_back(std::fmod(n * 0.618033988749895, 1.0));
        y.push_back(std::fmod(n * 0.754877666246693, 1.0));
        p.push_back(x.back() * y.back());
    }
    for (auto const* const values : {&x, &y, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::segments(int count)
{
    auto set = emptySet({"X", "Y", "p"});
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> p;
    std::vector<std::int64_t> corners;
    for (int n = 0; n <= count; ++n) {
        double const s = static_cast<double>(n) / count;
        x.push_back(s * std::cos(12.0 * s));
        y.push_back(s * std::sin(12.0 * s));
        p.push_back(s);
        if (n < count)
            corners.insert(corners.end(), {n, n + 1});
    }
    auto const cells = cellsOf(corners, 2);
    auto const zone =
        addZone(*set, "Spiral", ZoneType_FELineSeg, static_cast<std::int64_t>(x.size()), cells->cellCount, 0);
    zone->connectivity = cells;
    for (auto const* const values : {&x, &y, &p})
        addField(*zone, *values);
    return set;
}

DataSetPtr SampleData::waves(int count)
{
    auto set = emptySet({"t", "sine", "cosine"});
    auto const zone = addZone(*set, "Record", ZoneType_Ordered, count, 1, 1);
    std::vector<double> t;
    std::vector<double> sine;
    std::vector<double> cosine;
    for (int n = 0; n < count; ++n) {
        t.push_back(4.0 * pi * n / (count - 1.0));
        sine.push_back(std::sin(t.back()));
        cosine.push_back(std::cos(t.back()));
    }
    for (auto const* const values : {&t, &sine, &cosine})
        addField(*zone, *values);
    return set;
}

std::shared_ptr<Frame> SampleData::frame(std::string const& name, DataSetPtr const& dataSet, PlotType_e plotType)
{
    auto frame = std::make_shared<Frame>(name, kernel::Rectangle{0.0, 0.0, 11.0, 8.5});
    frame->dataSet = dataSet;
    frame->plotType = plotType;
    frame->axes2D = {dataSet->variable(1)->id, dataSet->variable(2)->id};
    frame->axes3D = {dataSet->variable(1)->id, dataSet->variable(2)->id, dataSet->variable(3)->id};
    frame->contourVariable = dataSet->variable(dataSet->variableCount())->id;
    return frame;
}

std::shared_ptr<Frame> SampleData::waveFrame(DataSetPtr const& dataSet)
{
    auto frame = SampleData::frame("Waves", dataSet, PlotType_XYLine);
    frame->lineMaps.clear();
    for (int const y : {2, 3}) {
        LineMap map;
        map.name = dataSet->variable(y)->name;
        map.zone = dataSet->zone(1)->id;
        map.xVariable = dataSet->variable(1)->id;
        map.yVariable = dataSet->variable(y)->id;
        frame->lineMaps.push_back(map);
    }
    return frame;
}

} // namespace veldraw::tests
