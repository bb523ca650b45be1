#include "app/reader/FormatReading.h"

#include "app/files/ImportError.h"
#include "app/reader/FormatModule.h"
#include "app/reader/ProgressSender.h"
#include "app/reader/ReadingErrors.h"

#include <vtkNew.h>

#include <dlfcn.h>
#include <filesystem>

namespace veldraw::app {

namespace {

// Loaded for good: the process ends soon enough.
ReadFormat* functionOfModule()
{
    auto const file = std::filesystem::read_symlink("/proc/self/exe").parent_path() / formatModuleFile;
    void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const function = module ? ::dlsym(module, readFormatName) : nullptr;
    if (!function)
        throw ImportError("\"" + file.string() + "\", which reads such files, cannot be loaded");
    return reinterpret_cast<ReadFormat*>(function);
}

} // namespace

vtkSmartPointer<vtkDataObject> readFormat(ReadRequest const& request, Channel& channel, VtkErrorCapture const& errors)
{
    static ReadFormat* const read = functionOfModule();
    vtkNew<ProgressSender> progress;
    progress->sendTo(channel);
    auto const data = vtkSmartPointer<vtkDataObject>::Take(read(request, *progress));
    throwOnError(errors, request.extension == "case" ? "/proc/self/fd/" : request.path);
    if (!data)
        throw ImportError("it contains no grid");
    return data;
}

} // namespace veldraw::app
