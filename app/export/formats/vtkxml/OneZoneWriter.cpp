#include "app/export/formats/vtkxml/OneZoneWriter.h"

#include "app/export/formats/vtkxml/ZoneFileWriter.h"
#include "app/files/PathChecks.h"

namespace veldraw::app {

void OneZoneWriter::write(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context)
{
    if (dataSet.zoneCount() != 1)
        throw ExportError("this format takes one zone, and there are " + std::to_string(dataSet.zoneCount()) +
                          "; .vtm takes them all");
    kernel::Progress ofZone(context.progress, workOf(*dataSet.zone(1)));
    ofZone.check();
    ZoneFileWriter(dataSet).write(1, extensionOf(path), context.files.add(path), ofZone);
}

} // namespace veldraw::app
