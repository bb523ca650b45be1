#include "app/import/formats/exodus/ExodusReader.h"

#include "app/files/PlainText.h"
#include "app/import/formats/exodus/ExodusCheck.h"
#include "app/import/formats/vtkxml/WholeGrids.h"
#include "app/import/reading/Moments.h"

#include <vtkDataArray.h>
#include <vtkFieldData.h>
#include <vtkStringArray.h>

#include <filesystem>

namespace veldraw::app {

namespace {

ReadRequest requestFor(std::string const& path, std::string const& moment)
{
    ReadRequest request;
    request.what = ReadRequest::What::Format;
    request.path = std::filesystem::absolute(path).string();
    request.extension = "exo";
    request.text = moment;
    return request;
}

std::vector<double> timesIn(vtkDataObject* content)
{
    vtkDataArray* const times = content ? content->GetFieldData()->GetArray("Times") : nullptr;
    std::vector<double> result;
    for (vtkIdType n = 0; times && n < times->GetNumberOfTuples(); ++n)
        result.push_back(times->GetComponent(n, 0));
    return result;
}

void addLeftOut(vtkDataObject* content, std::vector<std::string>& remarks)
{
    auto* const names =
        content ? vtkStringArray::SafeDownCast(content->GetFieldData()->GetAbstractArray("LeftOut")) : nullptr;
    for (vtkIdType n = 0; names && n < names->GetNumberOfValues(); ++n)
        remarks.push_back("left out: " + asUtf8(names->GetValue(n)));
}

} // namespace

std::vector<ImportedZone> ExodusReader::read(std::string const& path, ImportContext const& context)
{
    auto const limits = ReaderLimits::forFile(path, checkExodus(path));
    std::vector<std::string> ofContent;
    kernel::Progress atOnce(context.progress, 0);
    ImportContext const unwatched{context.title, context.watch, context.plan, atOnce, context.remarks};
    auto const content = readWholeFile(requestFor(path, {}), limits, unwatched, ofContent);
    addLeftOut(content, context.remarks);
    return readMoments(path, timesIn(content), context, [&](std::size_t moment, ImportContext const& ofMoment) {
        std::vector<std::string> remarks;
        auto const object = readWholeFile(requestFor(path, std::to_string(moment)), limits, ofMoment, remarks);
        return zonesOfGrids(object, remarks, ofMoment);
    });
}

} // namespace veldraw::app
