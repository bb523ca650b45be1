#include "tools/samples/SampleFiles.h"

#include <vtkNew.h>
#include <vtkXMLDataSetWriter.h>
#include <vtkXMLMultiBlockDataWriter.h>

#include <stdexcept>

namespace veldraw::samples {

namespace {

void write(vtkXMLWriter& writer, vtkDataObject& data, std::string const& path)
{
    writer.SetFileName(path.c_str());
    writer.SetInputDataObject(&data);
    writer.SetDataModeToAppended();
    writer.EncodeAppendedDataOff();
    writer.SetCompressorTypeToNone();
    writer.SetHeaderTypeToUInt64();
    if (writer.Write() == 0 || writer.GetErrorCode() != 0)
        throw std::runtime_error("cannot write " + path);
}

} // namespace

void writeGrid(vtkDataSet& grid, std::string const& path)
{
    vtkNew<vtkXMLDataSetWriter> writer;
    write(*writer, grid, path);
}

void writeBlocks(vtkDataObject& blocks, std::string const& path)
{
    vtkNew<vtkXMLMultiBlockDataWriter> writer;
    write(*writer, blocks, path);
}

vtkSmartPointer<vtkFloatArray> floats(char const* name, int components, vtkIdType tuples)
{
    auto array = vtkSmartPointer<vtkFloatArray>::New();
    array->SetName(name);
    array->SetNumberOfComponents(components);
    array->SetNumberOfTuples(tuples);
    return array;
}

} // namespace veldraw::samples
