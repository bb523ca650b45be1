#include "app/reader/ResultReading.h"

#include "app/handover/Descriptor.h"

#include <vtkCompositeDataSet.h>
#include <vtkDoubleArray.h>
#include <vtkFieldData.h>
#include <vtkGenericEnSightReader.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkOpenFOAMReader.h>

#include <charconv>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

std::string textFor(ReadRequest const& request, int folder)
{
    std::string text;
    for (char const c : request.text) {
        if (c == ReadRequest::folderMark)
            text += std::to_string(folder) + "/";
        else
            text += c;
    }
    return text;
}

// A file without a name. @throws std::bad_alloc
void write(Descriptor const& file, std::string const& text)
{
    for (std::size_t at = 0; at < text.size();) {
        ssize_t const written = ::write(file.number(), text.data() + at, text.size() - at);
        if (written <= 0)
            throw std::bad_alloc();
        at += static_cast<std::size_t>(written);
    }
}

std::optional<double> numberIn(std::string const& text)
{
    double number = 0.0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional<double>(number) : std::nullopt;
}

bool has(vtkDoubleArray& times, double time)
{
    for (vtkIdType n = 0; n < times.GetNumberOfValues(); ++n) {
        if (!(times.GetValue(n) < time) && !(times.GetValue(n) > time))
            return true;
    }
    return false;
}

// Patches of two regions may have one name.
void nameByRegion(vtkMultiBlockDataSet& blocks, std::string const& region)
{
    for (unsigned int n = 0; n < blocks.GetNumberOfBlocks(); ++n) {
        vtkInformation* const about = blocks.GetMetaData(n);
        char const* const known = about->Get(vtkCompositeDataSet::NAME());
        std::string const name = known ? known : "";
        auto* const inside = vtkMultiBlockDataSet::SafeDownCast(blocks.GetBlock(n));
        if (inside)
            nameByRegion(*inside, name == "boundary" || name == "lagrangian" ? region : region + name + "/");
        else
            about->Set(vtkCompositeDataSet::NAME(), (region + name).c_str());
    }
    blocks.GetFieldData()->RemoveArray("CasePath"); // is known to who asked
}

} // namespace

// VTK's reader takes the text and all others from the folder of open files: names there have no blanks, which it would trip over.
vtkSmartPointer<vtkDataObject> readEnSight(ReadRequest const& request, vtkCommand& progress)
{
    auto const parent = std::filesystem::path(request.path).parent_path();
    Descriptor const folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Descriptor const file(::memfd_create("case", MFD_CLOEXEC));
    if (!file.isOpen())
        throw std::bad_alloc();
    write(file, textFor(request, folder.number()));
    vtkNew<vtkGenericEnSightReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetCaseFileName(("/proc/self/fd/" + std::to_string(file.number())).c_str());
    reader->ReadAllVariablesOn();
    reader->Update();
    return reader->GetOutput();
}

vtkSmartPointer<vtkDataObject> readOpenFoam(ReadRequest const& request, vtkCommand& progress)
{
    vtkNew<vtkOpenFOAMReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetFileName(request.path.c_str());
    reader->CreateCellToPointOff();
    reader->DecomposePolyhedraOff();
    reader->SkipZeroTimeOff();
    reader->UpdateInformation();
    reader->EnableAllPatchArrays();
    reader->EnableAllCellArrays();
    reader->EnableAllPointArrays();
    reader->EnableAllLagrangianArrays();
    if (auto const time = numberIn(request.text)) {
        if (!has(*reader->GetTimeValues(), *time))
            return nullptr;
        reader->SetTimeValue(*time);
    }
    reader->Update();
    nameByRegion(*reader->GetOutput(), {});
    return reader->GetOutput();
}

} // namespace veldraw::app
