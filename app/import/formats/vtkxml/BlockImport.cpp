#include "app/import/formats/vtkxml/BlockImport.h"

#include "app/files/ImportError.h"
#include "app/import/formats/vtkxml/CellLoader.h"
#include "app/import/formats/vtkxml/GridCoordinates.h"
#include "app/vtk/ArrayAdoption.h"

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
#include <iterator>

namespace veldraw::app {

namespace {

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

} // namespace

BlockImport::BlockImport(vtkDataSet& block, std::string const& name, DeferredArrays const& deferred,
                         std::vector<std::string>& remarks, kernel::Progress& progress)
    : m_block(block)
    , m_name(name)
    , m_pointCount(pointCountOf(block, deferred))
    , m_deferred(deferred)
    , m_remarks(remarks)
    , m_progress(progress, 0)
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
    addNotes();
    addCoordinates();
    addArrays();
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

void BlockImport::addNotes()
{
    FieldDataItems const& notes = m_facts.notes;
    m_result.zone->auxiliaryData = notes.items.data();
    m_result.notesOnDataSet = notes.ofDataSet.data();
    for (auto const& [variable, items] : notes.ofVariables)
        m_result.notesOnVariables[variable] = items.data();
    for (std::string const& text : notes.remarks())
        remark(text);
    if (!notes.others.empty())
        remark(remarkOnFieldData(notes.others));
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
        addCoordinate(axis, points.group(axis, m_pointCount, m_pointCount, {}, m_progress));
}

// Uniform and rectilinear grids store no points: each point gets coordinates of its own.
void BlockImport::addComputedCoordinates()
{
    for (int axis = 0; axis < 3; ++axis) {
        auto const loader = coordinateLoaderOf(m_block, axis);
        if (!loader)
            throw ImportError("its block \"" + m_name + "\" has not as many coordinates as its dimensions say");
        if (m_deferred.coordinates)
            addCoordinate(axis, std::make_shared<kernel::ShareGroup>(loader->type(), m_pointCount, loader));
        else
            addCoordinate(axis, std::make_shared<kernel::ShareGroup>(loader->load(m_progress)));
    }
}

void BlockImport::addCoordinate(int axis, std::shared_ptr<kernel::ShareGroup> values)
{
    std::string const& name = m_facts.coordinateNames[static_cast<std::size_t>(axis)];
    if (!name.empty())
        m_result.addField(name, kernel::Field(std::move(values), ValueLocation_Nodal));
}

void BlockImport::addArrays()
{
    std::vector<std::string> remarks;
    BlockArrays arrays({m_name, m_pointCount, cellCount(), m_cells, m_facts, m_progress}, m_result, remarks);
    arrays.addPointArrays(*m_block.GetPointData(), m_deferred.ofPoints);
    arrays.addCellArrays(*m_block.GetCellData(), m_deferred.ofCells);
    std::for_each(remarks.begin(), remarks.end(), [this](std::string const& text) { remark(text); });
    hide(arrays.marks());
}

// Cells that are left in the file bring what is hidden with them.
void BlockImport::hide(kernel::Blanking::Marks const& marks)
{
    if (!marks.ofPoints && !marks.ofCells)
        return;
    if (m_cellLoader)
        m_cellLoader->setMarks(marks);
    else
        m_result.zone->blanking = std::make_shared<kernel::Blanking>(*m_result.zone, marks);
}

std::int64_t BlockImport::cellCount() const
{
    return m_deferred.cells ? m_deferred.cells->count : m_block.GetNumberOfCells();
}

std::int64_t BlockImport::pointCountOf(vtkDataSet& block, DeferredArrays const& deferred)
{
    return deferred.points ? deferred.pointCount : block.GetNumberOfPoints();
}

void BlockImport::remark(std::string const& text)
{
    m_remarks.push_back("Zone \"" + m_name + "\": " + text);
}

} // namespace veldraw::app
