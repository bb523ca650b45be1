#include "app/reader/GridDescription.h"

#include "app/files/ImportError.h"
#include "app/handover/Utf8.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCompositeDataSet.h>
#include <vtkDataArray.h>
#include <vtkIdTypeArray.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkMatrix3x3.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkRectilinearGrid.h>
#include <vtkStringArray.h>
#include <vtkStructuredGrid.h>
#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <new>
#include <optional>

namespace veldraw::app {

namespace {

using Type = HandedArray::Type;

std::optional<Type> typeOf(vtkDataArray& array)
{
    switch (array.GetDataType()) {
    case VTK_BIT:
        return Type::Bit;
    case VTK_CHAR:
        return std::is_signed_v<char> ? Type::Int8 : Type::UInt8;
    case VTK_SIGNED_CHAR:
        return Type::Int8;
    case VTK_UNSIGNED_CHAR:
        return Type::UInt8;
    case VTK_SHORT:
        return Type::Int16;
    case VTK_UNSIGNED_SHORT:
        return Type::UInt16;
    case VTK_INT:
        return Type::Int32;
    case VTK_UNSIGNED_INT:
        return Type::UInt32;
    case VTK_LONG:
    case VTK_LONG_LONG:
        return array.GetDataTypeSize() == 8 ? Type::Int64 : Type::Int32;
    case VTK_UNSIGNED_LONG:
    case VTK_UNSIGNED_LONG_LONG:
        return array.GetDataTypeSize() == 8 ? Type::UInt64 : Type::UInt32;
    case VTK_FLOAT:
        return Type::Float32;
    case VTK_DOUBLE:
        return Type::Float64;
    case VTK_ID_TYPE:
        return Type::Id;
    default:
        return std::nullopt;
    }
}

std::string nameFrom(char const* text)
{
    return madeUtf8(text ? text : "", handover::longestName);
}

HandedArray describedArray(vtkAbstractArray& array)
{
    HandedArray result;
    result.name = nameFrom(array.GetName());
    result.components = array.GetNumberOfComponents();
    result.tuples = array.GetNumberOfTuples();
    for (int n = 0; array.HasAComponentName() && n < array.GetNumberOfComponents(); ++n)
        result.componentNames.push_back(nameFrom(array.GetComponentName(n)));
    return result;
}

HandedGrid::Kind kindOf(vtkDataSet& grid)
{
    if (vtkImageData::SafeDownCast(&grid))
        return HandedGrid::Kind::Image;
    if (vtkRectilinearGrid::SafeDownCast(&grid))
        return HandedGrid::Kind::Rectilinear;
    if (vtkStructuredGrid::SafeDownCast(&grid))
        return HandedGrid::Kind::Structured;
    return vtkPolyData::SafeDownCast(&grid) ? HandedGrid::Kind::Surface : HandedGrid::Kind::Mesh;
}

bool isKnown(vtkDataObject& data)
{
    return vtkImageData::SafeDownCast(&data) || vtkRectilinearGrid::SafeDownCast(&data) ||
           vtkStructuredGrid::SafeDownCast(&data) || vtkPolyData::SafeDownCast(&data) ||
           vtkUnstructuredGrid::SafeDownCast(&data);
}

void requireFew(vtkFieldData& arrays)
{
    if (static_cast<std::size_t>(arrays.GetNumberOfArrays()) > handover::mostArrays)
        throw ImportError("it has more than " + std::to_string(handover::mostArrays) + " arrays at one place");
}

std::uint32_t purposesOf(vtkAbstractArray const& array, vtkDataSetAttributes& attributes)
{
    std::uint32_t purposes = 0;
    for (int n = 0; n < vtkDataSetAttributes::NUM_ATTRIBUTES; ++n) {
        if (attributes.GetAbstractAttribute(n) == &array)
            purposes |= 1U << static_cast<unsigned int>(n);
    }
    return purposes;
}

void addImage(vtkImageData& image, HandedGrid& result)
{
    std::copy_n(image.GetExtent(), 6, result.extent.begin());
    std::copy_n(image.GetOrigin(), 3, result.origin.begin());
    std::copy_n(image.GetSpacing(), 3, result.spacing.begin());
    std::copy_n(image.GetDirectionMatrix()->GetData(), 9, result.direction.begin());
}

} // namespace

GridDescription::GridDescription(Channel& channel)
    : m_segments(channel)
{
}

HandedBlock GridDescription::describe(vtkDataObject* data)
{
    if (++m_blocks > handover::mostBlocks)
        throw ImportError("it has more than " + std::to_string(handover::mostBlocks) + " blocks");
    HandedBlock block;
    if (!data)
        return block;
    if (auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(data))
        return blocksOf(*blocks);
    if (!isKnown(*data)) {
        block.content = HandedBlock::Content::Other;
        block.kind = nameFrom(data->GetClassName());
        return block;
    }
    block.content = HandedBlock::Content::Grid;
    block.grid = gridOf(*vtkDataSet::SafeDownCast(data));
    return block;
}

HandedBlock GridDescription::blocksOf(vtkMultiBlockDataSet& blocks)
{
    HandedBlock result;
    result.content = HandedBlock::Content::Blocks;
    result.ofBlocks = arraysOf(*blocks.GetFieldData());
    for (unsigned int n = 0; n < blocks.GetNumberOfBlocks(); ++n) {
        result.blocks.push_back(describe(blocks.GetBlock(n)));
        if (blocks.HasMetaData(n) && blocks.GetMetaData(n)->Has(vtkCompositeDataSet::NAME()))
            result.blocks.back().name = nameFrom(blocks.GetMetaData(n)->Get(vtkCompositeDataSet::NAME()));
    }
    return result;
}

HandedGrid GridDescription::gridOf(vtkDataSet& grid)
{
    HandedGrid result;
    result.kind = kindOf(grid);
    vtkInformation* const information = grid.GetInformation();
    if (information && information->Has(vtkDataObject::DATA_TIME_STEP()))
        result.time = information->Get(vtkDataObject::DATA_TIME_STEP());
    addShape(grid, result);
    result.ofPoints = arraysOf(*grid.GetPointData());
    result.ofCells = arraysOf(*grid.GetCellData());
    result.ofGrid = arraysOf(*grid.GetFieldData());
    return result;
}

void GridDescription::addShape(vtkDataSet& grid, HandedGrid& result)
{
    if (auto* const image = vtkImageData::SafeDownCast(&grid))
        addImage(*image, result);
    if (auto* const rectilinear = vtkRectilinearGrid::SafeDownCast(&grid)) {
        std::copy_n(rectilinear->GetExtent(), 6, result.extent.begin());
        for (vtkDataArray* const positions :
             {rectilinear->GetXCoordinates(), rectilinear->GetYCoordinates(), rectilinear->GetZCoordinates()})
            result.coordinates.push_back(positions ? arrayOf(*positions) : HandedArray());
    }
    if (auto* const structured = vtkStructuredGrid::SafeDownCast(&grid))
        std::copy_n(structured->GetExtent(), 6, result.extent.begin());
    if (auto* const points = vtkPointSet::SafeDownCast(&grid))
        addPoints(*points, result);
    if (result.kind == HandedGrid::Kind::Mesh)
        addMeshCells(grid, result);
    if (result.kind == HandedGrid::Kind::Surface)
        addSurfaceCells(grid, result);
}

void GridDescription::addPoints(vtkPointSet& grid, HandedGrid& result)
{
    if (grid.GetPoints() && grid.GetPoints()->GetData())
        result.coordinates.push_back(arrayOf(*grid.GetPoints()->GetData()));
}

void GridDescription::addMeshCells(vtkDataSet& grid, HandedGrid& result)
{
    auto& mesh = *vtkUnstructuredGrid::SafeDownCast(&grid);
    if (!mesh.GetCells())
        return;
    result.cells.push_back(cellsOf(*mesh.GetCells()));
    HandedArray none;
    none.type = Type::UInt8;
    result.cellTypes.push_back(mesh.GetCellTypesArray() ? arrayOf(*mesh.GetCellTypesArray()) : none);
    if (mesh.GetFaces() && mesh.GetFaceLocations())
        result.faces = {arrayOf(*mesh.GetFaceLocations()), arrayOf(*mesh.GetFaces())};
}

void GridDescription::addSurfaceCells(vtkDataSet& grid, HandedGrid& result)
{
    auto& surface = *vtkPolyData::SafeDownCast(&grid);
    for (vtkCellArray* const cells : {surface.GetVerts(), surface.GetLines(), surface.GetPolys(), surface.GetStrips()})
        result.cells.push_back(cellsOf(*cells));
}

HandedCells GridDescription::cellsOf(vtkCellArray& cells)
{
    m_keepers.emplace_back(&cells);
    if (!cells.ConvertTo64BitStorage())
        throw std::bad_alloc();
    return {arrayOf(*cells.GetOffsetsArray64()), arrayOf(*cells.GetConnectivityArray64())};
}

HandedArray GridDescription::arrayOf(vtkAbstractArray& array)
{
    auto* const numbers = vtkDataArray::SafeDownCast(&array);
    if (numbers && typeOf(*numbers))
        return numbersOf(*numbers);
    HandedArray result = describedArray(array);
    result.type = Type::Text;
    auto* const texts = vtkStringArray::SafeDownCast(&array);
    for (vtkIdType n = 0; texts && n < texts->GetNumberOfValues(); ++n)
        result.texts.push_back(texts->GetValue(n));
    // Of other kinds nobody wants to know more than that they are there.
    if (result.tuples * result.components != static_cast<std::int64_t>(result.texts.size())) {
        result.components = 1;
        result.componentNames.clear();
        result.tuples = static_cast<std::int64_t>(result.texts.size());
    }
    return result;
}

HandedArray GridDescription::numbersOf(vtkDataArray& array)
{
    vtkSmartPointer<vtkDataArray> plain(&array);
    if (!array.HasStandardMemoryLayout()) {
        plain = vtkSmartPointer<vtkDataArray>::Take(vtkDataArray::CreateDataArray(array.GetDataType()));
        plain->DeepCopy(&array);
    }
    HandedArray result = describedArray(array);
    result.type = *typeOf(*plain);
    m_keepers.emplace_back(plain);
    m_segments.place(result, plain->GetVoidPointer(0),
                     bytesOf(result.type, static_cast<std::uint64_t>(plain->GetNumberOfValues())));
    return result;
}

std::vector<HandedArray> GridDescription::arraysOf(vtkDataSetAttributes& arrays)
{
    requireFew(arrays);
    std::vector<HandedArray> result;
    for (int n = 0; n < arrays.GetNumberOfArrays(); ++n) {
        vtkAbstractArray* const array = arrays.GetAbstractArray(n);
        auto* const numbers = vtkDataArray::SafeDownCast(array);
        if (!numbers || !typeOf(*numbers)) {
            m_remarks.push_back("\"" + nameFrom(array ? array->GetName() : "") + "\" has no numbers and was left out");
            continue;
        }
        std::uint32_t const purposes = purposesOf(*array, arrays);
        result.push_back(numbersOf(*numbers));
        result.back().purposes = purposes;
    }
    return result;
}

std::vector<HandedArray> GridDescription::arraysOf(vtkFieldData& arrays)
{
    requireFew(arrays);
    std::vector<HandedArray> result;
    for (int n = 0; n < arrays.GetNumberOfArrays(); ++n) {
        if (vtkAbstractArray* const array = arrays.GetAbstractArray(n))
            result.push_back(arrayOf(*array));
    }
    return result;
}

} // namespace veldraw::app
