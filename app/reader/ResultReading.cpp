#include "app/reader/ResultReading.h"

#include "app/handover/Descriptor.h"

#include <vtkGenericEnSightReader.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>

#include <fcntl.h>
#include <filesystem>
#include <new>
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

} // namespace veldraw::app
