#include "app/import/formats/vtkxml/BlockArrays.h"

#include "app/files/ImportError.h"
#include "app/vtk/ArrayAdoption.h"
#include "app/vtk/OrderedCells.h"

#include <cstring>

namespace veldraw::app {

namespace {

bool areMarks(vtkDataArray& array)
{
    char const* const name = array.GetName();
    return name && std::strcmp(name, vtkDataSetAttributes::GhostArrayName()) == 0 &&
           array.GetDataType() == VTK_UNSIGNED_CHAR && array.GetNumberOfComponents() == 1;
}

std::vector<std::string> purposesOf(vtkDataArray const& array, vtkDataSetAttributes& attributes)
{
    std::vector<std::string> purposes;
    for (int n = 0; n < vtkDataSetAttributes::NUM_ATTRIBUTES; ++n) {
        if (attributes.GetAbstractAttribute(n) == &array)
            purposes.emplace_back(vtkDataSetAttributes::GetAttributeTypeAsString(n));
    }
    return purposes;
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

BlockArrays::BlockArrays(Block const& block, ImportedZone& zone, std::vector<std::string>& remarks)
    : m_block(block)
    , m_zone(zone)
    , m_remarks(remarks)
{
}

void BlockArrays::addPointArrays(vtkDataSetAttributes& read, std::vector<DeferredArray> const& deferred)
{
    inFileOrder(
        read, deferred,
        [&](vtkDataArray& array) {
            checkTuples(array, m_block.pointCount, "points");
            addPointArray(array, purposesOf(array, read));
        },
        [this](DeferredArray const& array) { addFields(array, m_block.pointCount, ValueLocation_Nodal, {}); });
}

void BlockArrays::addCellArrays(vtkDataSetAttributes& read, std::vector<DeferredArray> const& deferred)
{
    inFileOrder(
        read, deferred,
        [&](vtkDataArray& array) {
            checkTuples(array, m_block.cellCount, "cells");
            addCellArray(array, purposesOf(array, read));
        },
        [this](DeferredArray const& array) { addCellArray(array); });
}

void BlockArrays::remarkLeftOut(std::string const& array)
{
    m_remarks.push_back("cell values of scattered points left out: \"" + array + "\"");
}

void BlockArrays::addPointArray(vtkDataArray& array, Purposes const& purposes)
{
    if (areMarks(array))
        m_marks.ofPoints = adoptArray(array).components.front();
    else
        addFields(array, purposes, ValueLocation_Nodal);
}

// Scattered points have no cells: a vertex that is hidden hides its point.
void BlockArrays::takeCellMarks(vtkDataArray& marks)
{
    if (!m_zone.zone->isScattered) {
        m_marks.ofCells =
            adoptArray(m_block.cells.sameCells ? marks : *gathered(marks, m_block.cells.sources)).components.front();
        return;
    }
    if (!m_block.cells.cellsArePoints)
        return;
    auto const ofPoints = kernel::Buffer::allocate(FieldDataType_Byte, m_block.pointCount);
    for (std::int64_t point = 0; point < m_block.pointCount; ++point) {
        std::uint64_t const own = m_marks.ofPoints ? m_marks.ofPoints->bits(point) : 0;
        bool const isHidden =
            (static_cast<unsigned>(marks.GetComponent(point, 0)) & kernel::Blanking::hidingCellMarks) != 0;
        ofPoints->setBits(point, own | (isHidden ? kernel::Blanking::hiddenPoint : 0U));
    }
    m_marks.ofPoints = ofPoints;
}

void BlockArrays::addCellArray(vtkDataArray& array, Purposes const& purposes)
{
    if (areMarks(array)) {
        takeCellMarks(array);
        return;
    }
    if (m_zone.zone->isScattered && m_block.cells.cellsArePoints)
        addFields(array, purposes, ValueLocation_Nodal);
    else if (m_zone.zone->isScattered)
        remarkLeftOut(array.GetName() ? array.GetName() : "");
    else if (m_block.cells.sameCells)
        addFields(array, purposes, ValueLocation_CellCentered);
    else
        addFields(*gathered(array, m_block.cells.sources), purposes, ValueLocation_CellCentered);
}

void BlockArrays::addCellArray(DeferredArray const& array)
{
    std::int64_t const tuples = m_block.cellCount;
    kernel::Zone const& zone = *m_zone.zone;
    if (m_zone.zone->isScattered && m_block.cells.cellsArePoints) {
        addFields(array, tuples, ValueLocation_Nodal, {});
    } else if (m_zone.zone->isScattered) {
        remarkLeftOut(array.name);
    } else if (zone.isOrdered()) {
        addFields(array, tuples, ValueLocation_CellCentered,
                  [cells = OrderedCells(zone)](kernel::Buffer const& values) { return cells.expand(values); });
    } else if (m_block.cells.sameCells) {
        addFields(array, tuples, ValueLocation_CellCentered, {});
    } else {
        auto const sources = std::make_shared<std::vector<std::int64_t>>(m_block.cells.sources);
        addFields(array, tuples, ValueLocation_CellCentered,
                  [sources](kernel::Buffer const& values) { return gathered(values, *sources); });
    }
}

void BlockArrays::addFields(DeferredArray const& array, std::int64_t tuples, ValueLocation_e location,
                            DeferredArray::Arrangement const& arrange)
{
    if (!isKernelType(array.type))
        m_remarks.push_back("\"" + array.name + "\": " + conversionRemark(array.type));
    std::int64_t const size = m_zone.zone->isDeferred() ? tuples : m_zone.zone->valueCount(location);
    std::vector<kernel::Field> components;
    for (int component = 0; component < array.components; ++component)
        components.emplace_back(array.group(component, tuples, size, arrange, m_block.progress), location);
    m_zone.addArray(array.name, std::move(components), m_block.facts.variablesOf(location, array.name),
                    array.componentNames, array.purposes);
}

void BlockArrays::addFields(vtkDataArray& array, Purposes const& purposes, ValueLocation_e location)
{
    std::string const name = array.GetName() ? array.GetName() : "";
    m_block.progress.check();
    AdoptedArray adopted = adoptArray(array);
    if (!adopted.remark.empty())
        m_remarks.push_back("\"" + name + "\": " + adopted.remark);
    std::vector<kernel::Field> components;
    for (auto& values : adopted.components) {
        if (location == ValueLocation_CellCentered && m_zone.zone->isOrdered())
            values = OrderedCells(*m_zone.zone).expand(*values);
        components.emplace_back(std::make_shared<kernel::ShareGroup>(std::move(values)), location);
    }
    m_zone.addArray(name, std::move(components), m_block.facts.variablesOf(location, name), componentNamesOf(array),
                    purposes);
}

void BlockArrays::checkTuples(vtkDataArray& array, std::int64_t expected, char const* what) const
{
    if (array.GetNumberOfTuples() == expected)
        return;
    throw ImportError("\"" + std::string(array.GetName() ? array.GetName() : "") + "\" of its block \"" + m_block.name +
                      "\" has " + std::to_string(array.GetNumberOfTuples()) + " values for " +
                      std::to_string(expected) + " " + what);
}

} // namespace veldraw::app
