#include "app/import/formats/surface/SurfaceReader.h"

#include "app/files/PathChecks.h"
#include "app/import/formats/surface/ObjCheck.h"
#include "app/import/formats/surface/PlyHeader.h"
#include "app/import/formats/surface/StlCheck.h"
#include "app/import/formats/vtkxml/WholeGrids.h"

#include <vtkPolyData.h>

#include <filesystem>

namespace veldraw::app {

namespace {

// VTK's reader drops what is no face where it has to give corners of faces points of their own.
std::vector<ImportedZone> readObj(ReadRequest const& request, ImportContext const& context)
{
    ObjContent const content = checkObj(request.path, context.progress);
    std::vector<std::string> remarks;
    if (!content.leftOut.empty())
        remarks.push_back("left out: " + content.leftOut);
    auto const object = readWholeFile(request, ReaderLimits::forFile(request.path, false), context, remarks);
    auto* const surface = vtkPolyData::SafeDownCast(object);
    bool const hasThem = surface && surface->GetNumberOfLines() + surface->GetNumberOfVerts() > 0;
    if (content.hasLinesOrPoints && !hasThem)
        remarks.emplace_back("left out: lines and points, beside faces whose corners have normals or texture "
                             "coordinates of their own");
    return zonesOfGrids(object, remarks, context);
}

} // namespace

std::vector<ImportedZone> SurfaceReader::read(std::string const& path, ImportContext const& context)
{
    ReadRequest request;
    request.what = ReadRequest::What::Format;
    request.path = std::filesystem::absolute(path).string();
    request.extension = extensionOf(path);
    if (request.extension == "obj")
        return readObj(request, context);
    if (request.extension == "stl")
        checkStl(path);
    else if (std::string const remark = checkPly(path); !remark.empty())
        context.remarks.push_back(remark);
    return zonesOfWholeFile(request, context);
}

} // namespace veldraw::app
