#include "app/import/grids/BlockImport.h"

#include "app/import/ImportError.h"
#include "app/import/grids/CellLoader.h"
#include "app/import/grids/GridCoordinates.h"
#include "app/vtk/ArrayAdoption.h"
#include "app/vtk/OrderedCells.h"

#include <vtkCellData.h>
#include <vtkDataObject.h>
#include <vtkImageData.h>
#include <vtkInformation.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>
#include <vtkRectilinearGrid.h>
#include <vtkStructuredGrid.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace veldraw::app {

namespace {

kernel::Field makeField(std::shared_ptr<kernel::Buffer> values, ValueLocation_e location)
{
    return kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(values)), location);
}

bool orderedDimensions(vtkDataSet& block, int dimensions[3])
{
    if (auto* const image = vtkImageData::SafeDownCast(&block))
        image->GetDimensions(dimensions);
    else if (auto* const rectilinear = vtkRectilinearGrid::SafeDownCast(&block))
        rectilinear->GetDimensions(dimensions);
    else if (auto* const structured = vtkStructuredGrid::SafeDownCast(&block))
        structured->GetDimensions(dimensions);
    else
        return false;
    return true;
}

bool areMarks(vtkDataArray& array)
{
    char const* const name = array.GetName();
    return name && std::strcmp(name, vtkDataSetAttributes::GhostArrayName()) == 0 &&
           array.GetDataType() == VTK_UNSIGNED_CHAR && array.GetNumberOfComponents() == 1;
}

std::vector<std::string> componentNamesOf(vtkDataArray& array)
{
    std::vector<std::string> names;
    for (int n = 0; array.HasAComponentName() && n < array.GetNumberOfComponents(); ++n) {
        char const* const name = array.GetComponentName(n);
        names.emplace_back(name ? name : "");
    }
    return names;
}

// Extension of the files that such a block stands in.
char const* formatOf(vtkDataSet& block)
{
    switch (block.GetDataObjectType()) {
    case VTK_POLY_DATA:
        return "vtp";
    case VTK_UNSTRUCTURED_GRID:
        return "vtu";
    case VTK_STRUCTURED_GRID:
        return "vts";
    case VTK_RECTILINEAR_GRID:
        return "vtr";
    default:
        return "vti";
    }
}

vtkSmartPointer<vtkDataArray> gathered(vtkDataArray& array, std::vector<std::int64_t> const& sources)
{
    auto result = vtkSmartPointer<vtkDataArray>::Take(array.NewInstance());
    result->SetName(array.GetName());
    result->SetNumberOfComponents(array.GetNumberOfComponents());
    result->SetNumberOfTuples(static_cast<vtkIdType>(sources.size()));
    for (std::size_t cell = 0; cell < sources.size(); ++cell)
        result->SetTuple(static_cast<vtkIdType>(cell), sources[cell], &array);
    return result;
}

std::shared_ptr<kernel::Buffer> gathered(kernel::Buffer const& values, std::vector<std::int64_t> const& sources)
{
    auto result = kernel::Buffer::allocate(values.type(), static_cast<std::int64_t>(sources.size()));
    for (std::size_t cell = 0; cell < sources.size(); ++cell)
        result->setBits(static_cast<std::int64_t>(cell), values.bits(sources[cell]));
    return result;
}

// Arrays that have been read and arrays that have not, one after the other as the file has them.
template <typename AddRead, typename AddDeferred>
void inFileOrder(vtkDataSetAttributes& read, std::vector<DeferredArray> const& deferred, AddRead const& addRead,
                 AddDeferred const& addDeferred)
{
    auto next = deferred.begin();
    int position = 0;
    for (int n = 0; n < read.GetNumberOfArrays(); ++n) {
        vtkDataArray* const array = read.GetArray(n);
        if (!array)
            continue;
        for (; next != deferred.end() && next->position <= position; ++next, ++position)
            addDeferred(*next);
        addRead(*array);
        ++position;
    }
    for (; next != deferred.end(); ++next)
        addDeferred(*next);
}

} // namespace

BlockImport::BlockImport(vtkDataSet& block, std::string const& name, DeferredArrays const& deferred,
                         std::vector<std::string>& remarks)
    : m_block(block)
    , m_name(name)
    , m_pointCount(pointCountOf(block, deferred))
    , m_deferred(deferred)
    , m_remarks(remarks)
    , m_facts(BlockFacts::of(block.GetFieldData()))
{
    if (!m_facts.zoneName.empty())
        m_name = m_facts.zoneName;
}

ImportedZone BlockImport::run()
{
    makeZone();
    for (std::string const& text : m_deferred.remarks)
        remark(text);
    addCoordinates();
    addPointArrays();
    addCellArrays();
    finishBlanking();
    return std::move(m_result);
}

void BlockImport::makeZone()
{
    int dimensions[3] = {0, 0, 0};
    if (orderedDimensions(m_block, dimensions)) {
        if (std::any_of(std::begin(dimensions), std::end(dimensions), [](int count) { return count < 1; }))
            throw ImportError("its block \"" + m_name + "\" has an extent that ends before it starts");
        m_result.zone =
            std::make_shared<kernel::Zone>(m_name, ZoneType_Ordered, dimensions[0], dimensions[1], dimensions[2]);
        m_result.zone->isScattered = m_facts.isScattered && m_result.zone->dimensionality() <= 1;
    } else if (m_deferred.cells) {
        m_cellLoader = std::make_shared<CellLoader>(*m_deferred.cells, m_facts.zoneType);
        m_result.zone = std::make_shared<kernel::Zone>(m_name, m_cellLoader->zoneType(), -1, -1, -1);
        m_result.zone->dimensionsLoader = m_cellLoader;
    } else {
        makeMesh();
    }
    kernel::Zone& zone = *m_result.zone;
    zone.fileFormat = formatOf(m_block);
    m_result.variableNames = m_facts.variableNames;
    m_result.timeStep = m_facts.timeStep;
    zone.strand = m_facts.strand.value_or(kernel::staticStrand);
    zone.solutionTime = m_facts.timeValue.value_or(m_facts.timeStep.value_or(0.0));
    vtkInformation* const information = m_block.GetInformation();
    if (!m_facts.timeValue && information && information->Has(vtkDataObject::DATA_TIME_STEP()))
        zone.solutionTime = information->Get(vtkDataObject::DATA_TIME_STEP());
}

void BlockImport::makeMesh()
{
    m_cells = importCells(m_block, m_pointCount, m_facts.zoneType);
    for (std::string const& text : m_cells.remarks)
        remark(text);
    auto const& cells = m_cells.connectivity;
    m_result.zone = std::make_shared<kernel::Zone>(m_name, m_cells.zoneType, m_pointCount, cells ? cells->cellCount : 1,
                                                   cells ? m_cells.faceCount : 1);
    m_result.zone->connectivity = cells;
    m_result.zone->isScattered = m_result.zone->isOrdered();
}

void BlockImport::addCoordinates()
{
    auto* const points = vtkPointSet::SafeDownCast(&m_block);
    if (!points)
        addComputedCoordinates();
    else if (m_result.zone->isOrdered() && m_pointCount != m_result.zone->pointCount())
        throw ImportError("its block \"" + m_name + "\" has not as many points as its dimensions say");
    else if (m_deferred.points)
        addDeferredPoints(*m_deferred.points);
    else
        addPointCoordinates(*points->GetPoints()->GetData());
}

void BlockImport::addPointCoordinates(vtkDataArray& points)
{
    AdoptedArray const adopted = adoptArray(points);
    if (adopted.components.size() != 3)
        throw ImportError("its block \"" + m_name + "\" has points without three coordinates");
    if (!adopted.remark.empty())
        remark("coordinates: " + adopted.remark);
    for (int axis = 0; axis < 3; ++axis)
        addCoordinate(axis, std::make_shared<kernel::ShareGroup>(adopted.components[static_cast<std::size_t>(axis)]));
}

void BlockImport::addDeferredPoints(DeferredArray const& points)
{
    if (!isKernelType(points.type))
        remark("coordinates: " + conversionRemark(points.type));
    for (int axis = 0; axis < 3; ++axis)
        addCoordinate(axis, deferredGroup(points, axis, m_pointCount, ValueLocation_Nodal, {}));
}

// Uniform and rectilinear grids store no points: each point gets coordinates of its own.
void BlockImport::addComputedCoordinates()
{
    for (int axis = 0; axis < 3; ++axis) {
        auto const loader = coordinateLoaderOf(m_block, axis);
        if (!loader)
            throw ImportError("its block \"" + m_name + "\" has not as many coordinates as its dimensions say");
        kernel::Progress progress;
        if (m_deferred.coordinates)
            addCoordinate(axis, std::make_shared<kernel::ShareGroup>(loader->type(), m_pointCount, loader));
        else
            addCoordinate(axis, std::make_shared<kernel::ShareGroup>(loader->load(progress)));
    }
}

void BlockImport::addCoordinate(int axis, std::shared_ptr<kernel::ShareGroup> values)
{
    std::string const& name = m_facts.coordinateNames[static_cast<std::size_t>(axis)];
    if (!name.empty())
        m_result.addField(name, kernel::Field(std::move(values), ValueLocation_Nodal));
}

void BlockImport::addPointArrays()
{
    inFileOrder(
        *m_block.GetPointData(), m_deferred.ofPoints,
        [this](vtkDataArray& array) {
            checkTuples(array, m_pointCount, "points");
            addPointArray(array);
        },
        [this](DeferredArray const& array) { addFields(array, m_pointCount, ValueLocation_Nodal, {}); });
}

void BlockImport::addCellArrays()
{
    inFileOrder(
        *m_block.GetCellData(), m_deferred.ofCells,
        [this](vtkDataArray& array) {
            checkTuples(array, cellCount(), "cells");
            addCellArray(array);
        },
        [this](DeferredArray const& array) { addCellArray(array); });
}

void BlockImport::remarkLeftOut(std::string const& name)
{
    remark("cell values of scattered points left out: \"" + name + "\"");
}

void BlockImport::addPointArray(vtkDataArray& array)
{
    if (areMarks(array))
        m_marks.ofPoints = adoptArray(array).components.front();
    else
        addFields(array, ValueLocation_Nodal);
}

// Scattered points have no cells: a vertex that is hidden hides its point.
void BlockImport::takeCellMarks(vtkDataArray& marks)
{
    if (!m_result.zone->isScattered) {
        m_marks.ofCells = adoptArray(m_cells.sameCells ? marks : *gathered(marks, m_cells.sources)).components.front();
        return;
    }
    if (!m_cells.cellsArePoints)
        return;
    auto const ofPoints = kernel::Buffer::allocate(FieldDataType_Byte, m_pointCount);
    for (std::int64_t point = 0; point < m_pointCount; ++point) {
        std::uint64_t const own = m_marks.ofPoints ? m_marks.ofPoints->bits(point) : 0;
        bool const isHidden =
            (static_cast<unsigned>(marks.GetComponent(point, 0)) & kernel::Blanking::hidingCellMarks) != 0;
        ofPoints->setBits(point, own | (isHidden ? kernel::Blanking::hiddenPoint : 0U));
    }
    m_marks.ofPoints = ofPoints;
}

// Cells that are left in the file bring it with them.
void BlockImport::finishBlanking()
{
    if (!m_marks.ofPoints && !m_marks.ofCells)
        return;
    if (m_cellLoader)
        m_cellLoader->setMarks(m_marks);
    else
        m_result.zone->blanking = std::make_shared<kernel::Blanking>(*m_result.zone, m_marks);
}

void BlockImport::addCellArray(vtkDataArray& array)
{
    if (areMarks(array)) {
        takeCellMarks(array);
        return;
    }
    if (m_result.zone->isScattered && m_cells.cellsArePoints)
        addFields(array, ValueLocation_Nodal);
    else if (m_result.zone->isScattered)
        remarkLeftOut(array.GetName() ? array.GetName() : "");
    else if (m_cells.sameCells)
        addFields(array, ValueLocation_CellCentered);
    else
        addFields(*gathered(array, m_cells.sources), ValueLocation_CellCentered);
}

void BlockImport::addCellArray(DeferredArray const& array)
{
    std::int64_t const tuples = cellCount();
    kernel::Zone const& zone = *m_result.zone;
    if (m_result.zone->isScattered && m_cells.cellsArePoints) {
        addFields(array, tuples, ValueLocation_Nodal, {});
    } else if (m_result.zone->isScattered) {
        remarkLeftOut(array.name);
    } else if (zone.isOrdered()) {
        addFields(array, tuples, ValueLocation_CellCentered,
                  [cells = OrderedCells(zone)](kernel::Buffer const& values) { return cells.expand(values); });
    } else if (m_cells.sameCells) {
        addFields(array, tuples, ValueLocation_CellCentered, {});
    } else {
        auto const sources = std::make_shared<std::vector<std::int64_t>>(m_cells.sources);
        addFields(array, tuples, ValueLocation_CellCentered,
                  [sources](kernel::Buffer const& values) { return gathered(values, *sources); });
    }
}

void BlockImport::addFields(DeferredArray const& array, std::int64_t tuples, ValueLocation_e location,
                            ArrangedLoader::Arrange const& arrange)
{
    if (!isKernelType(array.type))
        remark("\"" + array.name + "\": " + conversionRemark(array.type));
    std::vector<kernel::Field> components;
    for (int component = 0; component < array.components; ++component)
        components.emplace_back(deferredGroup(array, component, tuples, location, arrange), location);
    m_result.addArray(array.name, std::move(components), m_facts.variablesOf(location, array.name),
                      array.componentNames);
}

std::shared_ptr<kernel::ShareGroup> BlockImport::deferredGroup(DeferredArray const& array, int component,
                                                               std::int64_t tuples, ValueLocation_e location,
                                                               ArrangedLoader::Arrange const& arrange) const
{
    std::shared_ptr<kernel::ValueLoader> loader = array.makeLoader(component, tuples);
    if (arrange)
        loader = std::make_shared<ArrangedLoader>(loader, arrange);
    std::int64_t const size = m_result.zone->isDeferred() ? tuples : m_result.zone->valueCount(location);
    auto group = std::make_shared<kernel::ShareGroup>(kernelTypeOf(array.type), size, loader);
    if (array.isMapped) {
        kernel::Progress progress;
        group->setLoaded(loader->load(progress));
    }
    return group;
}

std::int64_t BlockImport::cellCount() const
{
    return m_deferred.cells ? m_deferred.cells->count : m_block.GetNumberOfCells();
}

std::int64_t BlockImport::pointCountOf(vtkDataSet& block, DeferredArrays const& deferred)
{
    return deferred.points ? deferred.pointCount : block.GetNumberOfPoints();
}

void BlockImport::addFields(vtkDataArray& array, ValueLocation_e location)
{
    std::string const name = array.GetName() ? array.GetName() : "";
    AdoptedArray adopted = adoptArray(array);
    if (!adopted.remark.empty())
        remark("\"" + name + "\": " + adopted.remark);
    std::vector<kernel::Field> components;
    for (auto& values : adopted.components) {
        if (location == ValueLocation_CellCentered && m_result.zone->isOrdered())
            values = OrderedCells(*m_result.zone).expand(*values);
        components.push_back(makeField(std::move(values), location));
    }
    m_result.addArray(name, std::move(components), m_facts.variablesOf(location, name), componentNamesOf(array));
}

void BlockImport::checkTuples(vtkDataArray& array, std::int64_t expected, char const* what) const
{
    if (array.GetNumberOfTuples() == expected)
        return;
    throw ImportError("\"" + std::string(array.GetName() ? array.GetName() : "") + "\" of its block \"" + m_name +
                      "\" has " + std::to_string(array.GetNumberOfTuples()) + " values for " +
                      std::to_string(expected) + " " + what);
}

void BlockImport::remark(std::string const& text)
{
    m_remarks.push_back("Zone \"" + m_name + "\": " + text);
}

} // namespace veldraw::app
