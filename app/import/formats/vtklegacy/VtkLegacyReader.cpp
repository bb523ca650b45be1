#include "app/import/formats/vtklegacy/VtkLegacyReader.h"

#include "app/import/formats/vtklegacy/LegacyHeaderCheck.h"
#include "app/import/formats/vtkxml/WholeGrids.h"

#include <filesystem>

namespace veldraw::app {

std::vector<ImportedZone> VtkLegacyReader::read(std::string const& path, ImportContext const& context)
{
    checkLegacyHeader(path, static_cast<std::int64_t>(std::filesystem::file_size(path)), context.progress);
    ReadRequest request;
    request.what = ReadRequest::What::Legacy;
    request.path = std::filesystem::absolute(path).string();
    return zonesOfWholeFile(request, context);
}

} // namespace veldraw::app
