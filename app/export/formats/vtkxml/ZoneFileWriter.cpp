#include "app/export/formats/vtkxml/ZoneFileWriter.h"

#include "app/export/formats/vtkxml/AuxiliaryArrays.h"
#include "app/export/formats/vtkxml/GridConversion.h"
#include "app/export/writing/ExportError.h"
#include "app/export/writing/WriteReason.h"
#include "app/export/writing/Writer.h"
#include "app/import/formats/vtkxml/BlockFacts.h"
#include "app/import/zones/ImportedZone.h"
#include "app/vtk/DataTypes.h"
#include "app/vtk/JoinedArray.h"
#include "app/vtk/ProgressObserver.h"
#include "app/vtk/VtkErrorCapture.h"
#include "app/vtk/XmlNames.h"
#include "app/vtk/ZoneToVtk.h"
#include "kernel/base/Progress.h"

#include <vtkCellData.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>
#include <vtkStringArray.h>
#include <vtkXMLDataSetWriter.h>

#include <array>
#include <set>

namespace veldraw::app {

namespace {

void addNumber(vtkFieldData& facts, char const* name, double value)
{
    vtkNew<vtkDoubleArray> array;
    array->SetName(name);
    array->InsertNextValue(value);
    facts.AddArray(array);
}

void addInteger(vtkFieldData& facts, char const* name, int value)
{
    vtkNew<vtkIntArray> array;
    array->SetName(name);
    array->InsertNextValue(value);
    facts.AddArray(array);
}

void addTexts(vtkFieldData& facts, char const* name, std::vector<std::string> const& values)
{
    vtkNew<vtkStringArray> array;
    array->SetName(name);
    for (std::string const& value : values)
        array->InsertNextValue(value);
    facts.AddArray(array);
}

// The variable that is called as the axis, in either case; 0 if there is none.
int axisVariable(std::vector<std::string> const& names, char axis)
{
    for (char const letter : {axis, static_cast<char>(axis - 'A' + 'a')}) {
        for (std::size_t n = 0; n < names.size(); ++n) {
            if (names[n] == std::string(1, letter))
                return static_cast<int>(n) + 1;
        }
    }
    return 0;
}

void addMarks(vtkDataSetAttributes& attributes, std::shared_ptr<kernel::Buffer const> const& marks)
{
    if (!marks)
        return;
    auto const array = joinedArray({marks}, marks->size());
    array->SetName(vtkDataSetAttributes::GhostArrayName());
    attributes.AddArray(array);
}

void addMarks(vtkDataSet& grid, kernel::Zone const& zone)
{
    if (!zone.blanking)
        return;
    addMarks(*grid.GetPointData(), zone.blanking->marks().ofPoints);
    addMarks(*grid.GetCellData(), zone.blanking->marks().ofCells);
}

// VTK's number of a purpose, which is spelled as VTK does it; NUM_ATTRIBUTES for one that VTK does not know.
int attributeType(std::string const& purpose)
{
    int type = 0;
    while (type < vtkDataSetAttributes::NUM_ATTRIBUTES &&
           purpose != vtkDataSetAttributes::GetAttributeTypeAsString(type))
        ++type;
    return type;
}

} // namespace

ZoneFileWriter::ZoneFileWriter(kernel::DataSet const& dataSet, Notes notes)
    : m_dataSet(dataSet)
    , m_notes(notes)
    , m_names(uniqueVariableNames(dataSet))
    , m_plan(dataSet, m_names)
{
}

std::string ZoneFileWriter::pieceFormat(kernel::Zone const& zone)
{
    bool const isForPoly = zone.fileFormat == "vtp" || zone.isScattered;
    return isForPoly && fitsPolyData(zone) ? "vtp" : usualFormat(zone);
}

std::string ZoneFileWriter::usualFormat(kernel::Zone const& zone)
{
    return zone.isOrdered() ? "vts" : "vtu";
}

void ZoneFileWriter::write(int zone, std::string const& format, std::string const& path,
                           kernel::Progress& progress) const
{
    auto grid = gridOf(zone);
    kernel::Zone const& source = *m_dataSet.zone(zone);
    if (format == "vti")
        grid = asImageData(*grid);
    else if (format == "vtp")
        grid = asPolyData(*grid, source);
    else if (format != usualFormat(source))
        throw ExportError("zone \"" + source.name + "\" does not fit into this format; ." + usualFormat(source) +
                          " takes it");
    escapeArrayNames(*grid);
    VtkErrorCapture const errors;
    vtkNew<vtkXMLDataSetWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(grid);
    writer->SetDataModeToAppended();
    writer->EncodeAppendedDataOff();
    writer->SetCompressorTypeToNone();
    writer->SetHeaderTypeToUInt64();
    vtkNew<ProgressObserver> observer;
    observer->watch(*writer, progress);
    bool const written = writer->Write() != 0;
    if (observer->isInterrupted())
        throw kernel::Interrupted();
    // For the question: coordinates and cells come on top of the variables.
    if (!written || errors.hasErrors() || writer->GetErrorCode() != 0)
        throw ExportError(whyNotWritten(path, 2 * workOf(source)));
}

vtkSmartPointer<vtkDataSet> ZoneFileWriter::gridOf(int zone) const
{
    std::array<int, 3> axes{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        axes[axis] = axisVariable(m_names, static_cast<char>('X' + axis));
    auto const grid = vtkDataSetOfZone(m_dataSet, zone, axes, {});
    int const pointType = vtkPointSet::SafeDownCast(grid)->GetPoints()->GetDataType();
    kernel::Zone const& source = *m_dataSet.zone(zone);
    std::vector<std::string> coordinateNames(3);
    std::set<int> coordinates;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        kernel::Field const* const field = m_dataSet.field(zone, axes[axis]);
        // A coordinate of another type than the points' would come back changed: it is written as an array instead.
        if (!field || field->isPassive() || field->location() != ValueLocation_Nodal ||
            vtkTypeOf(field->type()) != pointType)
            continue;
        coordinateNames[axis] = m_names[static_cast<std::size_t>(axes[axis] - 1)];
        coordinates.insert(axes[axis]);
    }
    std::vector<PlannedArray> const arrays = m_plan.of(zone, coordinates);
    for (PlannedArray const& array : arrays)
        addArray(*grid, zone, array);
    addMarks(*grid, source);
    addFacts(*grid, source, coordinateNames);
    addArrayFacts(*grid, zone, arrays);
    return grid;
}

void ZoneFileWriter::addArray(vtkDataSet& grid, int zone, PlannedArray const& planned) const
{
    std::vector<kernel::Field const*> fields;
    for (int const variable : planned.variables)
        fields.push_back(m_dataSet.field(zone, variable));
    auto const array = vtkArrayOfFields(*m_dataSet.zone(zone), fields, planned.name);
    for (std::size_t n = 0; n < planned.componentNames.size(); ++n) {
        if (!planned.componentNames[n].empty())
            array->SetComponentName(static_cast<vtkIdType>(n), planned.componentNames[n].c_str());
    }
    bool const isNodal = fields.front()->location() == ValueLocation_Nodal;
    vtkDataSetAttributes& attributes = isNodal ? static_cast<vtkDataSetAttributes&>(*grid.GetPointData())
                                               : static_cast<vtkDataSetAttributes&>(*grid.GetCellData());
    attributes.AddArray(array);
    for (int const purpose : purposesOf(zone, planned))
        attributes.SetActiveAttribute(planned.name.c_str(), purpose);
}

// VTK's numbers of what the file of the zone named the array for; none for a part of an array.
std::vector<int> ZoneFileWriter::purposesOf(int zone, PlannedArray const& planned) const
{
    int const first = planned.variables.front();
    kernel::Variable const& variable = *m_dataSet.variable(first);
    ValueLocation_e const location = m_dataSet.field(zone, first)->location();
    std::size_t const whole = variable.sourceArray ? variable.sourceArray->variables.size() : 1;
    std::vector<int> result;
    if (planned.variables.size() != whole)
        return result;
    for (kernel::ActiveArray const& active : m_dataSet.zone(zone)->activeArrays) {
        int const type = attributeType(active.purpose);
        bool const isIt = active.variable == variable.id && active.location == location;
        if (isIt && type < vtkDataSetAttributes::NUM_ATTRIBUTES)
            result.push_back(type);
    }
    return result;
}

// Names of variables that a reader could not tell from the names of their arrays.
void ZoneFileWriter::addArrayFacts(vtkDataSet& grid, int zone, std::vector<PlannedArray> const& arrays) const
{
    std::vector<std::string> texts;
    for (PlannedArray const& array : arrays) {
        std::vector<std::string> names;
        bool areUsual = true;
        int const count = static_cast<int>(array.variables.size());
        for (int const variable : array.variables) {
            std::string const usual = componentName(array.name, static_cast<int>(names.size()), count);
            names.push_back(m_names[static_cast<std::size_t>(variable - 1)]);
            areUsual = areUsual && names.back() == usual;
        }
        if (areUsual)
            continue;
        bool const nodal = m_dataSet.field(zone, array.variables.front())->location() == ValueLocation_Nodal;
        texts.insert(texts.end(),
                     {nodal ? blockfact::ofPoints : blockfact::ofCells, array.name, std::to_string(count)});
        texts.insert(texts.end(), names.begin(), names.end());
    }
    if (!texts.empty())
        addTexts(*grid.GetFieldData(), blockfact::arrayVariables, texts);
}

void ZoneFileWriter::addFacts(vtkDataSet& grid, kernel::Zone const& zone,
                              std::vector<std::string> const& coordinateNames) const
{
    vtkFieldData& facts = *grid.GetFieldData();
    addNumber(facts, blockfact::timeValue, zone.solutionTime);
    if (zone.strand != kernel::staticStrand)
        addInteger(facts, blockfact::strandId, zone.strand);
    addInteger(facts, blockfact::zoneType, zone.type);
    if (zone.isScattered)
        addInteger(facts, blockfact::isScattered, 1);
    addTexts(facts, blockfact::zoneName, {zone.name});
    addTexts(facts, blockfact::coordinateNames, coordinateNames);
    addTexts(facts, blockfact::variableNames, m_names);
    AuxiliaryArrays notes(facts);
    notes.addItems(zone.auxiliaryData);
    if (m_notes == Notes::OfDataSet) {
        notes.addItemsOfDataSet(m_dataSet);
        notes.addItemsOfVariables(m_dataSet, m_names);
    }
    notes.addList();
}

} // namespace veldraw::app
