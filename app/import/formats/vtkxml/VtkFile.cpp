#include "app/import/formats/vtkxml/VtkFile.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/import/child/HandedObjects.h"
#include "app/import/formats/vtkxml/ArrayChoice.h"
#include "app/import/formats/vtkxml/BlockFacts.h"
#include "app/import/xml/XmlHeaderCheck.h"
#include "app/import/xml/XmlKind.h"

#include <vtkDataArraySelection.h>
#include <vtkNew.h>

#include <filesystem>

namespace veldraw::app {

namespace {

// The arrays that a reader has found, each switched on or off.
struct ArraySwitches
{
    explicit ArraySwitches(FoundArrays const& found)
    {
        for (std::string const& name : found.ofPoints)
            ofPoints->AddArray(name.c_str());
        for (std::string const& name : found.ofCells)
            ofCells->AddArray(name.c_str());
    }

    ReadChoice choice() const
    {
        ReadChoice result;
        result.ofPoints = switchedOn(*ofPoints);
        result.ofCells = switchedOn(*ofCells);
        return result;
    }

    static std::vector<std::string> switchedOn(vtkDataArraySelection& selection)
    {
        std::vector<std::string> names;
        for (int n = 0; n < selection.GetNumberOfArrays(); ++n) {
            if (selection.GetArraySetting(n) != 0)
                names.emplace_back(selection.GetArrayName(n));
        }
        return names;
    }

    vtkNew<vtkDataArraySelection> ofPoints;
    vtkNew<vtkDataArraySelection> ofCells;
};

// VTK crashes over texts where a structured grid has several pieces, and nobody wants them.
void leaveOut(std::vector<XmlHeaderCheck::Useless> const& arrays, ArraySwitches& switches,
              std::vector<std::string>& remarks)
{
    for (auto const& [ofPoints, name, reason] : arrays) {
        (ofPoints ? switches.ofPoints : switches.ofCells)->DisableArray(name.c_str());
        remarks.push_back("\"" + name + "\" " + reason + " and was left out");
    }
}

// Values that a piece lacks would be whatever stood in memory.
void leaveOutUneven(XmlArrayList const& list, ArraySwitches& switches, std::vector<std::string>& remarks)
{
    auto const leaveOutOf = [&](vtkDataArraySelection& selection, std::set<std::string> const& names) {
        for (std::string const& name : names) {
            if (selection.ArrayExists(name.c_str()))
                selection.DisableArray(name.c_str());
            remarks.push_back("\"" + name + "\" is not alike in all pieces of the file and was left out");
        }
    };
    leaveOutOf(*switches.ofPoints, list.unevenOfPoints());
    leaveOutOf(*switches.ofCells, list.unevenOfCells());
}

void remarkOnUnread(FoundArrays const& found, std::vector<std::string>& remarks)
{
    if (found.unreadFieldData > 0)
        remarks.push_back(std::to_string(found.unreadFieldData) + " of its field data were not read: at most " +
                          std::to_string(handover::mostFieldData) + " are, of known types");
}

ReadRequest requestFor(ReadRequest::What what, std::string const& path, std::string const& extension)
{
    std::set<std::string> const& ours = BlockFacts::names();
    ReadRequest request{what, std::filesystem::absolute(path).string(), extension, {ours.begin(), ours.end()}};
    request.fieldData.emplace_back(fielddata::list);
    return request;
}

ReadChoice choose(GridArrays const& arrays, ArraySwitches& switches, LoadingPlan& plan, DeferredArrays& deferred)
{
    leaveOutUneven(arrays.list(), switches, deferred.remarks);
    if (plan.deferral() != Deferral::Never || arrays.list().isReordered())
        ArrayChoice(*switches.ofPoints, *switches.ofCells, arrays, plan).run(deferred);
    ReadChoice choice = switches.choice();
    choice.points = !deferred.points;
    choice.cells = !deferred.cells;
    return choice;
}

XmlHeaderCheck checkedHeader(std::string const& path, bool mayDefer, kernel::Progress const& progress)
{
    XmlHeaderCheck check(path, static_cast<std::int64_t>(std::filesystem::file_size(path)), progress);
    if (mayDefer)
        check.leaveOutValues();
    check.run();
    return check;
}

// For reading a part of a file that was looked at before.
vtkSmartPointer<vtkDataObject> readPart(std::string const& path, std::string const& extension, ReadChoice const& choice,
                                        kernel::Progress& progress)
{
    auto const limits = ReaderLimits::forFile(path, XmlKind::of(path, progress).isCompressed);
    return objectOf(ReadingChild().read(
        requestFor(ReadRequest::What::XmlGrid, path, extension), limits, [&](FoundArrays const&) { return choice; },
        progress));
}

} // namespace

vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, ImportContext const& context,
                                           DeferredArrays& deferred)
{
    std::string const extension = extensionOf(path);
    XmlKind const kind = XmlKind::of(path, context.progress);
    if (!kind.isOf(extension))
        throw ImportError("it is no VTK XML file of the kind that ." + extension +
                          " stands for, or its start is damaged");
    bool const mayDefer = context.plan.deferral() != Deferral::Never;
    XmlHeaderCheck const check = checkedHeader(path, mayDefer, context.progress);
    if (!check.hasPoints())
        return nullptr;
    auto const choose = [&](FoundArrays const& found) {
        ArraySwitches switches(found);
        leaveOut(check.useless(), switches, deferred.remarks);
        remarkOnUnread(found, deferred.remarks);
        if (mayDefer || check.hasSeveralPieces())
            return app::choose(GridArrays(path, extension, context.progress), switches, context.plan, deferred);
        return switches.choice();
    };
    ReadResult const result =
        ReadingChild().read(requestFor(ReadRequest::What::XmlGrid, path, extension),
                            ReaderLimits::forFile(path, kind.isCompressed), choose, context.progress);
    for (std::string const& warning : result.data.warnings)
        context.remarks.push_back("VTK: " + warning);
    deferred.remarks.insert(deferred.remarks.end(), result.data.remarks.begin(), result.data.remarks.end());
    return objectOf(result);
}

vtkSmartPointer<vtkDataObject> readVtkFieldData(std::string const& path, ImportContext const& context)
{
    checkedHeader(path, false, context.progress);
    kernel::Progress part(context.progress, context.progress.total() / 100);
    auto const noChoice = [&](FoundArrays const& found) {
        remarkOnUnread(found, context.remarks);
        return ReadChoice();
    };
    return objectOf(ReadingChild().read(requestFor(ReadRequest::What::XmlFieldData, path, extensionOf(path)),
                                        ReaderLimits::forFile(path, XmlKind::of(path, part).isCompressed), noChoice,
                                        part));
}

vtkSmartPointer<vtkDataObject> readVtkArray(std::string const& path, std::string const& extension, XmlSection section,
                                            std::string const& name, kernel::Progress& progress)
{
    ReadChoice choice;
    choice.cells = false;
    choice.points = section == XmlSection::Points;
    if (section == XmlSection::PointData)
        choice.ofPoints = {name};
    if (section == XmlSection::CellData)
        choice.ofCells = {name};
    return readPart(path, extension, choice, progress);
}

vtkSmartPointer<vtkDataObject> readVtkCells(std::string const& path, kernel::Progress& progress)
{
    ReadChoice choice;
    choice.points = false;
    return readPart(path, "vtu", choice, progress);
}

} // namespace veldraw::app
