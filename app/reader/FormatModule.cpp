#include "app/reader/FormatModule.h"

#include "app/reader/ExodusReading.h"
#include "app/reader/ResultReading.h"
#include "app/reader/SurfaceReading.h"

#include <vtkSmartPointer.h>

namespace {

using namespace veldraw::app;

vtkSmartPointer<vtkDataObject> readByExtension(ReadRequest const& request, vtkCommand& progress)
{
    if (request.extension == "stl")
        return readStl(request.path, progress);
    if (request.extension == "ply")
        return readPly(request.path, progress);
    if (request.extension == "obj")
        return readObj(request.path, progress);
    if (request.extension == "case")
        return readEnSight(request, progress);
    if (request.extension == "exo")
        return readExodus(request, progress);
    if (request.extension == "foam")
        return readOpenFoam(request, progress);
    return nullptr;
}

} // namespace

extern "C" __attribute__((visibility("default"))) vtkDataObject*
veldrawReadFormat(veldraw::app::ReadRequest const& request, vtkCommand& progress)
{
    auto const data = readByExtension(request, progress);
    if (data)
        data->Register(nullptr);
    return data;
}
