#include "tests/app/support/ExodusSamples.h"

#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkCompositeDataSet.h>
#include <vtkDoubleArray.h>
#include <vtkExodusIIWriter.h>
#include <vtkInformation.h>
#include <vtkInformationVector.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkMultiBlockDataSetAlgorithm.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkStreamingDemandDrivenPipeline.h>
#include <vtkUnstructuredGrid.h>
#include <vtk_netcdf.h>

#include <vector>

namespace veldraw::tests {

namespace {

vtkSmartPointer<vtkDoubleArray> emptyArray(char const* name, int components)
{
    auto const result = vtkSmartPointer<vtkDoubleArray>::New();
    result->SetName(name);
    result->SetNumberOfComponents(components);
    return result;
}

void addCells(int block, int points, vtkUnstructuredGrid& grid)
{
    for (vtkIdType i = 0; i + 1 < points; ++i) {
        vtkIdType const n = points;
        vtkIdType const brick[8] = {i, i + 1, i + 1 + n, i + n, i + 2 * n, i + 1 + 2 * n, i + 1 + 3 * n, i + 3 * n};
        vtkIdType const tetrahedron[4] = {i, i + 1, i + n, i + 2 * n};
        if (block == 0)
            grid.InsertNextCell(VTK_HEXAHEDRON, 8, brick);
        else
            grid.InsertNextCell(VTK_TETRA, 4, tetrahedron);
    }
}

vtkSmartPointer<vtkUnstructuredGrid> blockAt(int block, int points, int moment)
{
    auto const grid = vtkSmartPointer<vtkUnstructuredGrid>::New();
    vtkNew<vtkPoints> places;
    places->SetDataTypeToDouble();
    auto const temperature = emptyArray("temp", 1);
    auto const velocity = emptyArray("vel", 3);
    for (int n = 0; n < 4 * points; ++n) {
        int const i = n % points;
        int const j = n / points % 2;
        int const k = n / points / 2;
        places->InsertNextPoint(i + 10 * block, j, k);
        temperature->InsertNextValue(100 * block + i + 10 * j + 20 * k + moment);
        velocity->InsertNextTuple3(i + 10 * block, 2 * j, 3 * k + moment);
    }
    grid->SetPoints(places);
    addCells(block, points, *grid);
    auto const quality = emptyArray("quality", 1);
    for (int c = 0; c + 1 < points; ++c)
        quality->InsertNextValue(c - moment);
    grid->GetPointData()->AddArray(temperature);
    grid->GetPointData()->AddArray(velocity);
    grid->GetCellData()->AddArray(quality);
    return grid;
}

/// Has the two blocks at each moment.
class BlocksInTime : public vtkMultiBlockDataSetAlgorithm
{
public:
    static BlocksInTime* New();
    vtkTypeMacro(BlocksInTime, vtkMultiBlockDataSetAlgorithm)

        int moments = 0;
    int points = 0;

protected:
    BlocksInTime() { SetNumberOfInputPorts(0); }

    int RequestInformation(vtkInformation*, vtkInformationVector**, vtkInformationVector* output) override
    {
        std::vector<double> times;
        for (int n = 0; n < moments; ++n)
            times.push_back(0.5 * n);
        double const range[2] = {0.0, 0.5 * (moments - 1)};
        vtkInformation& information = *output->GetInformationObject(0);
        if (moments == 0)
            return 1;
        information.Set(vtkStreamingDemandDrivenPipeline::TIME_STEPS(), times.data(), moments);
        information.Set(vtkStreamingDemandDrivenPipeline::TIME_RANGE(), range, 2);
        return 1;
    }

    int RequestData(vtkInformation*, vtkInformationVector**, vtkInformationVector* output) override
    {
        vtkInformation& information = *output->GetInformationObject(0);
        auto* const key = vtkStreamingDemandDrivenPipeline::UPDATE_TIME_STEP();
        double const time = information.Has(key) ? information.Get(key) : 0.0;
        auto* const blocks = vtkMultiBlockDataSet::GetData(output);
        for (unsigned int n = 0; n < 2; ++n) {
            blocks->SetBlock(n, blockAt(static_cast<int>(n), points, static_cast<int>(2 * time)));
            blocks->GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), n == 0 ? "bricks" : "tets");
        }
        blocks->GetInformation()->Set(vtkDataObject::DATA_TIME_STEP(), time);
        return 1;
    }
};

vtkStandardNewMacro(BlocksInTime)

} // namespace

void writeExodus(std::string const& path, int moments, int points)
{
    vtkNew<BlocksInTime> blocks;
    blocks->moments = moments;
    blocks->points = points;
    vtkNew<vtkExodusIIWriter> writer;
    writer->SetInputConnection(blocks->GetOutputPort());
    writer->SetFileName(path.c_str());
    writer->WriteAllTimeStepsOn();
    writer->SetStoreDoubles(1);
    writer->WriteOutBlockIdArrayOff();
    writer->WriteOutGlobalNodeIdArrayOff();
    writer->WriteOutGlobalElementIdArrayOff();
    writer->Write();
}

void addNodeSetAndGlobal(std::string const& path)
{
    int file = 0;
    int dimensions[5] = {}; // sets, nodes of the first, variables, moments, letters of a name
    int variables[5] = {};
    ::nc_open(path.c_str(), NC_WRITE, &file);
    ::nc_redef(file);
    ::nc_def_dim(file, "num_node_sets", 1, &dimensions[0]);
    ::nc_def_dim(file, "num_nod_ns1", 2, &dimensions[1]);
    ::nc_def_dim(file, "num_glo_var", 1, &dimensions[2]);
    ::nc_inq_dimid(file, "time_step", &dimensions[3]);
    ::nc_inq_dimid(file, "len_name", &dimensions[4]);
    ::nc_def_var(file, "ns_status", NC_INT, 1, &dimensions[0], &variables[0]);
    ::nc_def_var(file, "ns_prop1", NC_INT, 1, &dimensions[0], &variables[1]);
    ::nc_put_att_text(file, variables[1], "name", 2, "ID");
    ::nc_def_var(file, "node_ns1", NC_INT, 1, &dimensions[1], &variables[2]);
    int const ofName[2] = {dimensions[2], dimensions[4]};
    ::nc_def_var(file, "name_glo_var", NC_CHAR, 2, ofName, &variables[3]);
    int const ofValues[2] = {dimensions[3], dimensions[2]};
    ::nc_def_var(file, "vals_glo_var", NC_DOUBLE, 2, ofValues, &variables[4]);
    ::nc_enddef(file);
    int const numbers[4] = {1, 7, 1, 2};
    ::nc_put_var_int(file, variables[0], numbers);
    ::nc_put_var_int(file, variables[1], numbers + 1);
    ::nc_put_var_int(file, variables[2], numbers + 2);
    std::size_t const start[2] = {0, 0};
    std::size_t const letters[2] = {1, 6};
    ::nc_put_vara_text(file, variables[3], start, letters, "energy");
    ::nc_close(file);
}

void setNodeOfCell(std::string const& path, int node)
{
    int file = 0;
    int variable = 0;
    std::size_t const place[2] = {1, 2};
    ::nc_open(path.c_str(), NC_WRITE, &file);
    ::nc_inq_varid(file, "connect1", &variable);
    ::nc_put_var1_int(file, variable, place, &node);
    ::nc_close(file);
}

} // namespace veldraw::tests
