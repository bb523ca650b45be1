#include "python/ArrayImport.h"

#include "app/import/zones/DataSetOfZones.h"
#include "kernel/base/SystemMemory.h"
#include "python/ArrayLayout.h"
#include "python/Failure.h"

#include <array>
#include <optional>
#include <pybind11/stl.h>
#include <vector>

namespace py = pybind11;

namespace veldraw::python {

namespace {

constexpr long long mostExactInDouble = 1LL << 53;

std::string shapeText(py::array const& array)
{
    return py::repr(array.attr("shape")).cast<std::string>();
}

/// A name that mistakes are told by: "p" of "Wing".
std::string placeText(std::string const& variable, std::string const& zone)
{
    return '"' + variable + "\" of \"" + zone + '"';
}

py::array numbersOf(py::handle value, std::string const& place)
{
    py::module_ const numpy = py::module_::import("numpy");
    if (py::isinstance(value, numpy.attr("ma").attr("MaskedArray")))
        throw Failure(place + " is masked; fill the gaps first.");
    py::array array = numpy.attr("asarray")(value);
    if (array.ndim() < 1 || array.ndim() > 3)
        throw Failure(place + " has " + std::to_string(array.ndim()) + " dimensions; 1 to 3 are possible.");
    if (array.size() == 0)
        throw Failure(place + " has no values.");
    return array;
}

/// The type that whole numbers of many digits are stored with. @throws Failure where a value would change
FieldDataType_e wideType(py::array const& array, std::string const& place)
{
    py::int_ const most(mostExactInDouble);
    py::object const least = py::int_(array.attr("min")());
    py::object const largest = py::int_(array.attr("max")());
    if (least < py::int_(-mostExactInDouble) || largest > most)
        throw Failure(place + " has whole numbers of more digits than can be kept.");
    return FieldDataType_Double;
}

FieldDataType_e typeFor(py::array const& array, std::string const& place)
{
    char const kind = array.dtype().kind();
    py::ssize_t const bytes = array.itemsize();
    if (kind == 'f' && bytes <= 8)
        return bytes == 8 ? FieldDataType_Double : FieldDataType_Float;
    if (kind == 'b' || (kind == 'u' && bytes == 1))
        return FieldDataType_Byte;
    if (kind == 'i' && bytes <= 2)
        return FieldDataType_Int16;
    if ((kind == 'i' && bytes == 4) || (kind == 'u' && bytes == 2))
        return FieldDataType_Int32;
    if (kind == 'i' || kind == 'u')
        return wideType(array, place);
    throw Failure(place + " has values of the type " + py::str(array.dtype()).cast<std::string>() +
                  "; real numbers of at most 64 bits are possible.");
}

bool fits(py::array const& array, ArrayLayout const& layout)
{
    return std::vector<py::ssize_t>(array.shape(), array.shape() + array.ndim()) == layout.shape;
}

kernel::Field fieldOf(py::array const& array, kernel::Zone const& zone, std::string const& place)
{
    for (ValueLocation_e const location : {ValueLocation_Nodal, ValueLocation_CellCentered}) {
        ArrayLayout const layout = layoutOf(zone, location);
        if (!fits(array, layout))
            continue;
        FieldDataType_e const type = typeFor(array, place);
        std::int64_t const slots = zone.valueCount(location);
        kernel::requireMemory(static_cast<double>(kernel::Buffer::bytesOf(type, slots)));
        auto const buffer = kernel::Buffer::allocate(type, slots);
        py::module_::import("numpy").attr("copyto")(writableViewOf(buffer, layout), array, "unsafe");
        return {std::make_shared<kernel::ShareGroup>(buffer), location};
    }
    auto const shape = [&zone](ValueLocation_e location) {
        return py::repr(py::tuple(py::cast(layoutOf(zone, location).shape))).cast<std::string>();
    };
    throw Failure(place + " has the shape " + shapeText(array) + "; values at points have " +
                  shape(ValueLocation_Nodal) + ", at cells " + shape(ValueLocation_CellCentered) + '.');
}

struct CellKind
{
    char const* name;
    ZoneType_e type;
    py::ssize_t corners;
};

constexpr CellKind cellKinds[] = {{"lines", ZoneType_FELineSeg, 2},
                                  {"triangles", ZoneType_FETriangle, 3},
                                  {"quads", ZoneType_FEQuad, 4},
                                  {"tetrahedra", ZoneType_FETetra, 4},
                                  {"bricks", ZoneType_FEBrick, 8}};

CellKind const& kindCalled(std::string const& name, std::string const& zone)
{
    std::string names;
    for (CellKind const& kind : cellKinds) {
        if (name == kind.name)
            return kind;
        names += (names.empty() ? "" : ", ") + std::string(kind.name);
    }
    throw Failure("The cells of \"" + zone + "\" cannot be \"" + name + "\"; they can be: " + names + '.');
}

struct CellArrays
{
    std::vector<std::int64_t> offsets;
    std::vector<std::int64_t> indices;
};

std::shared_ptr<kernel::Connectivity const> connectivityOf(py::array const& given, CellKind const& kind,
                                                           std::int64_t points, std::string const& zone)
{
    char const type = given.dtype().kind();
    if ((type != 'i' && type != 'u') || given.ndim() != 2 || given.shape(1) != kind.corners || given.size() == 0)
        throw Failure("The cells of \"" + zone + "\" are to be whole numbers, " + std::to_string(kind.corners) +
                      " in each row; they have the type " + py::str(given.dtype()).cast<std::string>() +
                      " and the shape " + shapeText(given) + '.');
    if (py::object(given.attr("min")()) < py::int_(0) || py::object(given.attr("max")()) >= py::int_(points))
        throw Failure("The cells of \"" + zone + "\" have points beyond 0 to " + std::to_string(points - 1) + '.');
    auto const arrays = std::make_shared<CellArrays>();
    auto const wide = py::array_t<std::int64_t, py::array::c_style | py::array::forcecast>(given);
    arrays->indices.assign(wide.data(), wide.data() + wide.size());
    for (py::ssize_t cell = 0; cell <= wide.shape(0); ++cell)
        arrays->offsets.push_back(cell * kind.corners);
    auto const made = std::make_shared<kernel::Connectivity>();
    made->cellCount = wide.shape(0);
    made->indexCount = wide.size();
    made->offsets = arrays->offsets.data();
    made->indices = arrays->indices.data();
    made->owner = arrays;
    return made;
}

std::shared_ptr<kernel::Zone> orderedZone(std::string const& name, py::array const& first)
{
    std::array<std::int64_t, 3> points{1, 1, 1};
    for (py::ssize_t dimension = 0; dimension < first.ndim(); ++dimension)
        points[static_cast<std::size_t>(dimension)] = first.shape(dimension);
    return std::make_shared<kernel::Zone>(name, ZoneType_Ordered, points[0], points[1], points[2]);
}

std::shared_ptr<kernel::Zone> zoneWithCells(std::string const& name, py::array const& first, py::handle given)
{
    if (!py::isinstance<py::sequence>(given) || py::isinstance<py::str>(given) || py::len(given) != 2)
        throw py::type_error("cells takes for each zone what they are and an array: (\"triangles\", array)");
    if (first.ndim() != 1)
        throw Failure("Arrays of \"" + name + "\", which has cells, have one dimension.");
    auto const pair = py::reinterpret_borrow<py::sequence>(given);
    CellKind const& kind = kindCalled(py::str(pair[0]).cast<std::string>(), name);
    py::array const points = py::module_::import("numpy").attr("asarray")(pair[1]);
    auto const cells = connectivityOf(points, kind, first.shape(0), name);
    auto zone = std::make_shared<kernel::Zone>(name, kind.type, first.shape(0), cells->cellCount, 0);
    zone->connectivity = cells;
    return zone;
}

app::ImportedZone zoneOf(std::string const& name, py::handle given, std::optional<py::object> const& cells)
{
    if (!py::isinstance<py::dict>(given) || py::len(given) == 0)
        throw py::type_error("The zone \"" + name + "\" takes arrays by the names of variables: {\"X\": x, \"p\": p}");
    app::ImportedZone made;
    for (auto const& [key, value] : py::reinterpret_borrow<py::dict>(given)) {
        std::string const variable = py::str(key).cast<std::string>();
        std::string const place = placeText(variable, name);
        py::array const array = numbersOf(value, place);
        if (!made.zone)
            made.zone = cells ? zoneWithCells(name, array, *cells) : orderedZone(name, array);
        // A dimension of 1 at the end counts for nothing.
        std::vector<py::ssize_t> shape(array.shape(), array.shape() + array.ndim());
        while (shape.size() > 1 && shape.back() == 1 &&
               shape.size() > layoutOf(*made.zone, ValueLocation_Nodal).shape.size())
            shape.pop_back();
        made.addField(variable, fieldOf(array.attr("reshape")(shape).cast<py::array>(), *made.zone, place));
    }
    return made;
}

} // namespace

std::shared_ptr<kernel::DataSet> dataSetOfArrays(py::dict const& zones, py::dict const& cells, std::string const& title)
{
    if (zones.empty())
        throw Failure("No zone is given.");
    for (auto const& each : cells)
        if (!zones.contains(each.first))
            throw Failure("There are cells for \"" + py::str(each.first).cast<std::string>() + "\", but no such zone.");
    std::vector<app::ImportedZone> made;
    for (auto const& [name, arrays] : zones) {
        std::optional<py::object> ofZone;
        if (cells.contains(name))
            ofZone = py::reinterpret_borrow<py::object>(cells[name]);
        made.push_back(zoneOf(py::str(name).cast<std::string>(), arrays, ofZone));
    }
    return app::dataSetOf(std::move(made), title);
}

} // namespace veldraw::python
