#include "app/import/child/HandedObjects.h"

#include "app/files/ImportError.h"
#include "app/vtk/VtkErrorCapture.h"
#include "app/vtk/WrappedMemory.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCompositeDataSet.h>
#include <vtkIdTypeArray.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkRectilinearGrid.h>
#include <vtkStringArray.h>
#include <vtkStructuredGrid.h>
#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnstructuredGrid.h>

namespace veldraw::app {

namespace {

using Kind = HandedGrid::Kind;
using Segments = std::vector<SharedSegment>;

int vtkTypeOfHanded(HandedArray::Type type)
{
    switch (type) {
    case HandedArray::Type::Bit:
        return VTK_BIT;
    case HandedArray::Type::Int8:
        return VTK_SIGNED_CHAR;
    case HandedArray::Type::UInt8:
        return VTK_UNSIGNED_CHAR;
    case HandedArray::Type::Int16:
        return VTK_SHORT;
    case HandedArray::Type::UInt16:
        return VTK_UNSIGNED_SHORT;
    case HandedArray::Type::Int32:
        return VTK_INT;
    case HandedArray::Type::UInt32:
        return VTK_UNSIGNED_INT;
    case HandedArray::Type::Int64:
        return VTK_LONG_LONG;
    case HandedArray::Type::UInt64:
        return VTK_UNSIGNED_LONG_LONG;
    case HandedArray::Type::Float32:
        return VTK_FLOAT;
    case HandedArray::Type::Id:
        return VTK_ID_TYPE;
    case HandedArray::Type::Float64:
    case HandedArray::Type::Text:
        break;
    }
    return VTK_DOUBLE;
}

void setUpNumbers(vtkDataArray& array, HandedArray const& handed, Segments const& segments)
{
    std::int64_t const values = handed.tuples * handed.components;
    if (values == 0) {
        array.SetNumberOfComponents(handed.components);
        return;
    }
    std::shared_ptr<void> const& memory = segments[handed.segment].memory;
    WrappedMemory::setUp(array, static_cast<char const*>(memory.get()) + handed.offset, values, handed.components,
                         memory);
}

template <typename Array>
vtkSmartPointer<Array> listOfHanded(HandedArray const& handed, Segments const& segments)
{
    vtkNew<Array> array;
    setUpNumbers(*array, handed, segments);
    return array;
}

vtkSmartPointer<vtkDataArray> numbersOfHanded(HandedArray const& handed, Segments const& segments)
{
    auto array = vtkSmartPointer<vtkDataArray>::Take(vtkDataArray::CreateDataArray(vtkTypeOfHanded(handed.type)));
    setUpNumbers(*array, handed, segments);
    return array;
}

vtkSmartPointer<vtkAbstractArray> textsOfHanded(HandedArray const& handed)
{
    vtkNew<vtkStringArray> array;
    array->SetNumberOfComponents(handed.components);
    for (std::string const& text : handed.texts)
        array->InsertNextValue(text);
    return array;
}

vtkSmartPointer<vtkAbstractArray> arrayOfHanded(HandedArray const& handed, Segments const& segments)
{
    vtkSmartPointer<vtkAbstractArray> array;
    if (handed.type == HandedArray::Type::Text)
        array = textsOfHanded(handed);
    else
        array = numbersOfHanded(handed, segments);
    array->SetName(handed.name.c_str());
    for (std::size_t n = 0; n < handed.componentNames.size(); ++n)
        array->SetComponentName(static_cast<vtkIdType>(n), handed.componentNames[n].c_str());
    return array;
}

void addHanded(vtkFieldData& to, std::vector<HandedArray> const& arrays, Segments const& segments)
{
    for (HandedArray const& array : arrays)
        to.AddArray(arrayOfHanded(array, segments));
}

void addHandedWithPurposes(vtkDataSetAttributes& to, std::vector<HandedArray> const& arrays, Segments const& segments)
{
    for (HandedArray const& array : arrays) {
        int const index = to.AddArray(arrayOfHanded(array, segments));
        for (int purpose = 0; purpose < vtkDataSetAttributes::NUM_ATTRIBUTES; ++purpose) {
            if ((array.purposes >> static_cast<unsigned int>(purpose)) % 2 == 1)
                to.SetActiveAttribute(index, purpose);
        }
    }
}

vtkSmartPointer<vtkDataSet> imageOfHanded(HandedGrid const& handed)
{
    vtkNew<vtkImageData> image;
    image->SetExtent(const_cast<int*>(handed.extent.data()));
    image->SetOrigin(handed.origin.data());
    image->SetSpacing(handed.spacing.data());
    image->SetDirectionMatrix(handed.direction.data());
    return image;
}

vtkSmartPointer<vtkDataSet> rectilinearOfHanded(HandedGrid const& handed, Segments const& segments)
{
    vtkNew<vtkRectilinearGrid> grid;
    grid->SetExtent(const_cast<int*>(handed.extent.data()));
    grid->SetXCoordinates(numbersOfHanded(handed.coordinates[0], segments));
    grid->SetYCoordinates(numbersOfHanded(handed.coordinates[1], segments));
    grid->SetZCoordinates(numbersOfHanded(handed.coordinates[2], segments));
    return grid;
}

vtkSmartPointer<vtkCellArray> cellsOfHanded(HandedCells const& handed, Segments const& segments)
{
    vtkNew<vtkCellArray> cells;
    cells->SetData(listOfHanded<vtkTypeInt64Array>(handed.offsets, segments),
                   listOfHanded<vtkTypeInt64Array>(handed.points, segments));
    return cells;
}

vtkSmartPointer<vtkDataSet> meshOfHanded(HandedGrid const& handed, Segments const& segments)
{
    vtkNew<vtkUnstructuredGrid> mesh;
    if (handed.cells.empty())
        return mesh;
    auto const types = listOfHanded<vtkUnsignedCharArray>(handed.cellTypes.front(), segments);
    auto const cells = cellsOfHanded(handed.cells.front(), segments);
    if (handed.faces.empty())
        mesh->SetCells(types, cells);
    else
        mesh->SetCells(types, cells, listOfHanded<vtkIdTypeArray>(handed.faces[0], segments),
                       listOfHanded<vtkIdTypeArray>(handed.faces[1], segments));
    return mesh;
}

vtkSmartPointer<vtkDataSet> surfaceOfHanded(HandedGrid const& handed, Segments const& segments)
{
    vtkNew<vtkPolyData> surface;
    surface->SetVerts(cellsOfHanded(handed.cells[0], segments));
    surface->SetLines(cellsOfHanded(handed.cells[1], segments));
    surface->SetPolys(cellsOfHanded(handed.cells[2], segments));
    surface->SetStrips(cellsOfHanded(handed.cells[3], segments));
    return surface;
}

vtkSmartPointer<vtkDataSet> structuredOfHanded(HandedGrid const& handed)
{
    vtkNew<vtkStructuredGrid> grid;
    grid->SetExtent(const_cast<int*>(handed.extent.data()));
    return grid;
}

vtkSmartPointer<vtkDataSet> shapeOfHanded(HandedGrid const& handed, Segments const& segments)
{
    switch (handed.kind) {
    case Kind::Image:
        return imageOfHanded(handed);
    case Kind::Rectilinear:
        return rectilinearOfHanded(handed, segments);
    case Kind::Structured:
        return structuredOfHanded(handed);
    case Kind::Mesh:
        return meshOfHanded(handed, segments);
    case Kind::Surface:
        break;
    }
    return surfaceOfHanded(handed, segments);
}

vtkSmartPointer<vtkDataSet> gridOfHanded(HandedGrid const& handed, Segments const& segments)
{
    auto grid = shapeOfHanded(handed, segments);
    if (auto* const pointSet = vtkPointSet::SafeDownCast(grid); pointSet && !handed.coordinates.empty()) {
        vtkNew<vtkPoints> points;
        points->SetData(numbersOfHanded(handed.coordinates.front(), segments));
        pointSet->SetPoints(points);
    }
    if (handed.time)
        grid->GetInformation()->Set(vtkDataObject::DATA_TIME_STEP(), *handed.time);
    addHandedWithPurposes(*grid->GetPointData(), handed.ofPoints, segments);
    addHandedWithPurposes(*grid->GetCellData(), handed.ofCells, segments);
    addHanded(*grid->GetFieldData(), handed.ofGrid, segments);
    return grid;
}

vtkSmartPointer<vtkDataObject> blockOfHanded(HandedBlock const& handed, Segments const& segments);

vtkSmartPointer<vtkDataObject> blocksOfHanded(HandedBlock const& handed, Segments const& segments)
{
    vtkNew<vtkMultiBlockDataSet> blocks;
    addHanded(*blocks->GetFieldData(), handed.ofBlocks, segments);
    blocks->SetNumberOfBlocks(static_cast<unsigned int>(handed.blocks.size()));
    for (unsigned int n = 0; n < blocks->GetNumberOfBlocks(); ++n) {
        blocks->SetBlock(n, blockOfHanded(handed.blocks[n], segments));
        if (handed.blocks[n].name)
            blocks->GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), handed.blocks[n].name->c_str());
    }
    return blocks;
}

vtkSmartPointer<vtkDataObject> blockOfHanded(HandedBlock const& handed, Segments const& segments)
{
    switch (handed.content) {
    case HandedBlock::Content::Nothing:
        return nullptr;
    case HandedBlock::Content::Grid:
        return gridOfHanded(*handed.grid, segments);
    case HandedBlock::Content::Blocks:
        return blocksOfHanded(handed, segments);
    case HandedBlock::Content::Other:
        break;
    }
    throw ImportError("it contains a " + handed.kind + ", which is no grid");
}

} // namespace

vtkSmartPointer<vtkDataObject> objectOf(ReadResult const& result)
{
    VtkErrorCapture const silence;
    return blockOfHanded(result.data.block, result.segments);
}

} // namespace veldraw::app
