// Reads a legacy VTK file and writes it again as VTK XML, in a process of its own: the legacy readers do not survive damaged
// files, and whoever wants the data should.
//
// usage: veldraw_legacy_reader FILE FOLDER MEGABYTES SECONDS      (limits: memory for the data, processor time)
// Writes FOLDER/data.vt? and tells "progress 0.5", "warning TEXT" and "error TEXT" on standard output.

#include "app/vtk/VtkErrorCapture.h"
#include "app/vtk/XmlNames.h"

#include <vtkCommand.h>
#include <vtkCompositeDataSet.h>
#include <vtkDataSet.h>
#include <vtkFieldData.h>
#include <vtkGenericDataObjectReader.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkStringArray.h>
#include <vtkXMLDataSetWriter.h>
#include <vtkXMLMultiBlockDataWriter.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

class ProgressPrinter : public vtkCommand
{
public:
    static ProgressPrinter* New() { return new ProgressPrinter; }

    void Execute(vtkObject* caller, unsigned long, void*) override
    {
        if (auto* const algorithm = vtkAlgorithm::SafeDownCast(caller))
            std::printf("progress %g\n", algorithm->GetProgress());
    }
};

void limit(int resource, rlim_t most)
{
    rlimit const limits{most, most};
    ::setrlimit(static_cast<__rlimit_resource>(resource), &limits);
}

// What the program takes up before it reads anything, in bytes.
rlim_t addressSpace()
{
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

std::string read(vtkGenericDataObjectReader& reader, std::string const& path)
{
    veldraw::app::VtkErrorCapture const errors;
    vtkNew<ProgressPrinter> progress;
    reader.AddObserver(vtkCommand::ProgressEvent, progress);
    reader.SetFileName(path.c_str());
    reader.ReadAllScalarsOn();
    reader.ReadAllVectorsOn();
    reader.ReadAllNormalsOn();
    reader.ReadAllTensorsOn();
    reader.ReadAllColorScalarsOn();
    reader.ReadAllTCoordsOn();
    reader.ReadAllFieldsOn();
    reader.Update();
    for (std::string const& warning : errors.warnings())
        std::printf("warning %s\n", warning.c_str());
    return errors.firstError();
}

std::string write(vtkXMLWriter& writer, vtkDataObject& data, std::string const& path)
{
    veldraw::app::VtkErrorCapture const errors;
    writer.SetFileName(path.c_str());
    writer.SetInputDataObject(&data);
    writer.SetDataModeToAppended();
    writer.EncodeAppendedDataOff();
    writer.SetCompressorTypeToNone();
    writer.SetHeaderTypeToUInt64();
    bool const written = writer.Write() != 0 && writer.GetErrorCode() == 0;
    return written || errors.hasErrors() ? errors.firstError() : "the temporary file could not be written";
}

std::string extensionFor(vtkDataSet& grid)
{
    switch (grid.GetDataObjectType()) {
    case VTK_STRUCTURED_POINTS:
    case VTK_IMAGE_DATA:
        return "vti";
    case VTK_RECTILINEAR_GRID:
        return "vtr";
    case VTK_STRUCTURED_GRID:
        return "vts";
    case VTK_POLY_DATA:
        return "vtp";
    default:
        return "vtu";
    }
}

bool hasZeroByte(vtkStringArray& texts)
{
    for (vtkIdType n = 0; n < texts.GetNumberOfValues(); ++n) {
        if (texts.GetValue(n).find('\0') != std::string::npos)
            return true;
    }
    return false;
}

// In VTK XML a text ends at its first zero byte, and the next one would begin there.
void leaveOutBrokenTexts(vtkFieldData& data)
{
    for (int n = data.GetNumberOfArrays() - 1; n >= 0; --n) {
        auto* const texts = vtkStringArray::SafeDownCast(data.GetAbstractArray(n));
        if (!texts || !hasZeroByte(*texts))
            continue;
        std::printf("warning the text of \"%s\" has zero bytes and was left out\n",
                    veldraw::app::xmlEscaped(texts->GetName() ? texts->GetName() : "").c_str());
        data.RemoveArray(n);
    }
}

void prepare(vtkDataSet& grid)
{
    leaveOutBrokenTexts(*grid.GetFieldData());
    veldraw::app::escapeArrayNames(grid);
}

void prepare(vtkMultiBlockDataSet& blocks)
{
    leaveOutBrokenTexts(*blocks.GetFieldData());
    veldraw::app::escapeArrayNames(*blocks.GetFieldData());
    for (unsigned int n = 0; n < blocks.GetNumberOfBlocks(); ++n) {
        if (blocks.HasMetaData(n) && blocks.GetMetaData(n)->Has(vtkCompositeDataSet::NAME())) {
            std::string const name = blocks.GetMetaData(n)->Get(vtkCompositeDataSet::NAME());
            blocks.GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), veldraw::app::xmlEscaped(name).c_str());
        }
        if (auto* const grid = vtkDataSet::SafeDownCast(blocks.GetBlock(n)))
            prepare(*grid);
        else if (auto* const inner = vtkMultiBlockDataSet::SafeDownCast(blocks.GetBlock(n)))
            prepare(*inner);
    }
}

std::string convert(std::string const& path, std::string const& folder)
{
    vtkNew<vtkGenericDataObjectReader> reader;
    std::string const problem = read(*reader, path);
    if (!problem.empty())
        return "it is damaged, incomplete or of another kind (" + problem + ")";
    vtkDataObject* const data = reader->GetOutputDataObject(0);
    if (auto* const grid = vtkDataSet::SafeDownCast(data)) {
        if (grid->GetNumberOfPoints() == 0)
            return "it has no points";
        prepare(*grid);
        vtkNew<vtkXMLDataSetWriter> writer;
        return write(*writer, *grid, folder + "/data." + extensionFor(*grid));
    }
    if (auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(data)) {
        prepare(*blocks);
        vtkNew<vtkXMLMultiBlockDataWriter> writer;
        return write(*writer, *blocks, folder + "/data.vtm");
    }
    return data ? "it contains a " + std::string(data->GetClassName()) + ", which is no grid" : "it contains no grid";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::fprintf(stderr, "usage: veldraw_legacy_reader FILE FOLDER MEGABYTES SECONDS\n");
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    ::prctl(PR_SET_PDEATHSIG, 9); // not to go on when nobody waits any more
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, std::strtoul(argv[4], nullptr, 10));
    limit(RLIMIT_AS, addressSpace() + (std::strtoul(argv[3], nullptr, 10) << 20));
    std::string problem;
    try {
        problem = convert(argv[1], argv[2]);
    } catch (std::bad_alloc const&) {
        problem = "there is not enough memory for it";
    } catch (std::exception const& error) {
        problem = error.what();
    }
    if (!problem.empty())
        std::printf("error %s\n", problem.c_str());
    return problem.empty() ? 0 : 1;
}
