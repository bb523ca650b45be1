#include "app/export/WritableFormats.h"

#include "app/export/formats/table/TableWriter.h"
#include "app/export/formats/vtkxml/MultiBlockWriter.h"
#include "app/export/formats/vtkxml/OneZoneWriter.h"

namespace veldraw::app {

namespace {

template <typename FormatWriter>
std::unique_ptr<Writer> make()
{
    return std::make_unique<FormatWriter>();
}

} // namespace

std::vector<WritableFormat> const& writableFormats()
{
    static std::vector<WritableFormat> const formats{
        {{"VTK XML, all zones", {"vtm"}}, make<MultiBlockWriter>},
        {{"VTK XML, one ordered zone", {"vts"}}, make<OneZoneWriter>},
        {{"VTK XML, one finite-element zone", {"vtu"}}, make<OneZoneWriter>},
        {{"VTK XML, one surface zone", {"vtp"}}, make<OneZoneWriter>},
        {{"VTK XML, one uniform grid", {"vti"}}, make<OneZoneWriter>},
        {{"Comma-separated values", {"csv"}}, make<TableWriter>},
        {{"Tab-separated values", {"tsv"}}, make<TableWriter>},
    };
    return formats;
}

} // namespace veldraw::app
