#include "app/vtk/ZoneToVtk.h"

#include "app/vtk/CellShapes.h"
#include "app/vtk/DataTypes.h"
#include "app/vtk/JoinedArray.h"
#include "app/vtk/OrderedCells.h"
#include "app/vtk/PointsOfAxes.h"
#include "app/vtk/WrappedMemory.h"
#include "kernel/storage/ValueType.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkStructuredGrid.h>
#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnstructuredGrid.h>

#include <limits>
#include <stdexcept>

namespace veldraw::app {

namespace {

template <typename Array>
vtkSmartPointer<Array> wrappedIndices(std::int64_t const* indices, std::int64_t count,
                                      std::shared_ptr<void const> const& keeper)
{
    static_assert(sizeof(typename Array::ValueType) == sizeof(std::int64_t), "64-bit indices on both sides");
    vtkNew<Array> array;
    WrappedMemory::setUp(*array, indices, count, 1, keeper);
    return array;
}

vtkSmartPointer<vtkUnsignedCharArray> cellTypesOf(kernel::Zone const& zone, kernel::Connectivity const& cells)
{
    vtkNew<vtkUnsignedCharArray> types;
    types->SetNumberOfValues(cells.cellCount);
    for (std::int64_t c = 0; c < cells.cellCount; ++c)
        types->SetValue(c, vtkCellTypeOf(cells.shapes ? cells.shapes[c] : kernel::Connectivity::shapeOf(zone.type)));
    return types;
}

vtkSmartPointer<vtkDataSet> gridOfElements(kernel::Zone const& zone)
{
    vtkNew<vtkUnstructuredGrid> grid;
    if (!zone.connectivity)
        return grid;
    kernel::Connectivity const& cells = *zone.connectivity;
    vtkNew<vtkCellArray> cellArray;
    cellArray->SetData(wrappedIndices<vtkTypeInt64Array>(cells.offsets, cells.cellCount + 1, zone.connectivity),
                       wrappedIndices<vtkTypeInt64Array>(cells.indices, cells.indexCount, zone.connectivity));
    auto const types = cellTypesOf(zone, cells);
    if (cells.faceOffsets == nullptr) {
        grid->SetCells(types, cellArray);
        return grid;
    }
    grid->SetCells(types, cellArray,
                   wrappedIndices<vtkIdTypeArray>(cells.faceOffsets, cells.cellCount, zone.connectivity),
                   wrappedIndices<vtkIdTypeArray>(cells.faceStream, cells.faceStreamSize, zone.connectivity));
    return grid;
}

int gridDimension(std::int64_t points)
{
    if (points > std::numeric_limits<int>::max())
        throw std::length_error("a zone with more than 2147483647 points along an index cannot be shown or written");
    return static_cast<int>(points);
}

vtkSmartPointer<vtkDataSet> gridOfOrdered(kernel::Zone const& zone)
{
    vtkNew<vtkStructuredGrid> grid;
    grid->SetDimensions(gridDimension(zone.i), gridDimension(zone.j), gridDimension(zone.k));
    return grid;
}

FieldDataType_e commonTypeOf(std::vector<kernel::Field const*> const& fields)
{
    FieldDataType_e type = fields.front()->type();
    for (kernel::Field const* const field : fields)
        type = kernel::commonType(type, field->type());
    return type;
}

std::shared_ptr<kernel::Buffer const> converted(std::shared_ptr<kernel::Buffer const> const& values,
                                                FieldDataType_e type)
{
    if (values->type() == type)
        return values;
    auto const result = kernel::Buffer::allocate(type, values->size());
    for (std::int64_t n = 0; n < values->size(); ++n)
        result->setValue(n, values->value(n));
    return result;
}

std::string uniqueName(vtkDataSet& grid, std::string const& name)
{
    std::string result = name;
    for (int n = 2; grid.GetPointData()->HasArray(result.c_str()) || grid.GetCellData()->HasArray(result.c_str()); ++n)
        result = name + " (" + std::to_string(n) + ")";
    return result;
}

} // namespace

vtkSmartPointer<vtkDataArray> vtkArrayOfFields(kernel::Zone const& zone,
                                               std::vector<kernel::Field const*> const& fields, std::string const& name)
{
    ValueLocation_e const location = fields.front()->location();
    bool const orderedCells = zone.isOrdered() && location == ValueLocation_CellCentered;
    OrderedCells const cells(zone);
    std::int64_t const count = orderedCells ? cells.count() : zone.valueCount(location);
    FieldDataType_e const type = commonTypeOf(fields);
    std::vector<std::shared_ptr<kernel::Buffer const>> components;
    for (kernel::Field const* const field : fields) {
        if (!field->isLoaded())
            throw std::logic_error("the values of \"" + name + "\" are not loaded");
        std::shared_ptr<kernel::Buffer const> values =
            field->isPassive() ? kernel::Buffer::allocate(type, count) : field->group()->buffer();
        if (orderedCells && !field->isPassive() && !(cells.isPrefix() && values->isContiguous()))
            values = cells.compact(*values);
        components.push_back(converted(values, type));
    }
    auto array = joinedArray(components, count);
    array->SetName(name.c_str());
    return array;
}

vtkSmartPointer<vtkDataArray> vtkArrayOfField(kernel::Zone const& zone, kernel::Field const& field,
                                              std::string const& name)
{
    return vtkArrayOfFields(zone, {&field}, name);
}

vtkSmartPointer<vtkDataSet> vtkDataSetOfZone(kernel::DataSet const& dataSet, int zone, std::array<int, 3> const& axes,
                                             std::vector<int> const& variables)
{
    auto const source = dataSet.zone(zone);
    if (!source)
        return nullptr;
    auto const grid = source->isOrdered() ? gridOfOrdered(*source) : gridOfElements(*source);
    std::array<kernel::Field const*, 3> axisFields{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        axisFields[axis] = dataSet.field(zone, axes[axis]);
    vtkPointSet::SafeDownCast(grid)->SetPoints(pointsOfAxes(axisFields, source->pointCount()));
    for (int variable : variables) {
        kernel::Field const* const field = dataSet.field(zone, variable);
        if (!field)
            continue;
        auto const array = vtkArrayOfField(*source, *field, uniqueName(*grid, dataSet.variable(variable)->name));
        if (field->location() == ValueLocation_Nodal)
            grid->GetPointData()->AddArray(array);
        else
            grid->GetCellData()->AddArray(array);
    }
    return grid;
}

} // namespace veldraw::app
