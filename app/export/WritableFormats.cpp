#include "app/export/WritableFormats.h"

#include "app/export/formats/table/TableWriter.h"
#include "app/export/formats/vtkxml/VtkXmlWriter.h"

namespace veldraw::app {

namespace {

template <typename FormatWriter>
std::unique_ptr<Writer> writerOf()
{
    return std::make_unique<FormatWriter>();
}

} // namespace

std::vector<WritableFormat> const& writableFormats()
{
    static std::vector<WritableFormat> const formats{
        {{"VTK XML, all zones", {"vtm"}}, writerOf<VtkXmlWriter>},
        {{"VTK XML, one ordered zone", {"vts"}}, writerOf<VtkXmlWriter>},
        {{"VTK XML, one finite-element zone", {"vtu"}}, writerOf<VtkXmlWriter>},
        {{"VTK XML, one zone of points, lines or faces", {"vtp"}}, writerOf<VtkXmlWriter>},
        {{"VTK XML, one uniform grid", {"vti"}}, writerOf<VtkXmlWriter>},
        {{"Comma-separated values", {"csv"}}, writerOf<TableWriter>},
        {{"Tab-separated values", {"tsv"}}, writerOf<TableWriter>},
    };
    return formats;
}

} // namespace veldraw::app
