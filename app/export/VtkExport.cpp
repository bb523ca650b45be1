#include "app/export/VtkExport.h"

#include "app/export/ExportError.h"
#include "app/export/GridConversion.h"
#include "app/export/UniqueNames.h"
#include "app/import/grids/BlockFacts.h"
#include "app/vtk/ProgressObserver.h"
#include "app/vtk/VtkErrorCapture.h"
#include "app/vtk/XmlNames.h"
#include "app/vtk/ZoneToVtk.h"

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
#include <stdexcept>

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

} // namespace

VtkExport::VtkExport(kernel::DataSet const& dataSet)
    : m_dataSet(dataSet)
    , m_names(uniqueVariableNames(dataSet))
{
}

std::string VtkExport::usualFormat(kernel::Zone const& zone)
{
    return zone.isOrdered() ? "vts" : "vtu";
}

void VtkExport::write(int zone, std::string const& format, std::string const& path, ExportProgress& progress) const
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
    observer->watch(*writer, [&progress](double fraction) { return progress.show(fraction); });
    bool const written = writer->Write() != 0;
    progress.check(1.0);
    if (!written || errors.hasErrors() || writer->GetErrorCode() != 0)
        throw ExportError(errors.hasErrors() ? errors.firstError()
                                             : "the file could not be written; the disk may be full");
}

vtkSmartPointer<vtkDataSet> VtkExport::gridOf(int zone) const
{
    std::array<int, 3> axes{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        axes[axis] = axisVariable(m_names, static_cast<char>('X' + axis));
    auto const grid = vtkDataSetOfZone(m_dataSet, zone, axes, {});
    int const pointType = vtkPointSet::SafeDownCast(grid)->GetPoints()->GetDataType();
    kernel::Zone const& source = *m_dataSet.zone(zone);
    std::vector<std::string> coordinateNames(3);
    for (int variable = 1; variable <= m_dataSet.variableCount(); ++variable) {
        kernel::Field const& field = *m_dataSet.field(zone, variable);
        if (field.isPassive())
            continue;
        std::string const& name = m_names[static_cast<std::size_t>(variable - 1)];
        auto const array = vtkArrayOfField(source, field, name);
        bool const nodal = field.location() == ValueLocation_Nodal;
        bool isCoordinate = false;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            // A coordinate of another type than the points' would come back changed: it is written as an array instead.
            bool const exact = axes[axis] == variable && nodal && array->GetDataType() == pointType;
            if (exact)
                coordinateNames[axis] = name;
            isCoordinate = isCoordinate || exact;
        }
        if (!isCoordinate && nodal)
            grid->GetPointData()->AddArray(array);
        else if (!isCoordinate)
            grid->GetCellData()->AddArray(array);
    }
    addFacts(*grid, source, coordinateNames);
    return grid;
}

void VtkExport::addFacts(vtkDataSet& grid, kernel::Zone const& zone,
                         std::vector<std::string> const& coordinateNames) const
{
    vtkFieldData& facts = *grid.GetFieldData();
    addNumber(facts, blockfact::timeValue, zone.solutionTime);
    if (zone.strand != kernel::staticStrand)
        addInteger(facts, blockfact::strandId, zone.strand);
    addInteger(facts, blockfact::zoneType, zone.type);
    addTexts(facts, blockfact::zoneName, {zone.name});
    addTexts(facts, blockfact::coordinateNames, coordinateNames);
    addTexts(facts, blockfact::variableNames, m_names);
}

} // namespace veldraw::app
