#include "app/import/formats/vtkxml/VtkFile.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/import/formats/vtkxml/ArrayChoice.h"
#include "app/import/formats/vtkxml/CheckedMeshReader.h"
#include "app/import/formats/vtkxml/FieldDataLimit.h"
#include "app/import/formats/vtkxml/InlineValuesReader.h"
#include "app/import/formats/vtkxml/InterruptibleReader.h"
#include "app/import/formats/vtkxml/PartialReader.h"
#include "app/import/xml/XmlHeaderCheck.h"
#include "app/vtk/ProgressObserver.h"
#include "app/vtk/VtkErrorCapture.h"
#include "kernel/base/Progress.h"

#include <vtkAlgorithm.h>
#include <vtkDataArraySelection.h>
#include <vtkSmartPointer.h>
#include <vtkXMLImageDataReader.h>
#include <vtkXMLMultiBlockDataReader.h>
#include <vtkXMLPolyDataReader.h>
#include <vtkXMLRectilinearGridReader.h>
#include <vtkXMLStructuredGridReader.h>

#include <filesystem>
#include <new>

namespace veldraw::app {

namespace {

template <typename Reader>
using WholeReader = InterruptibleReader<LimitedFieldDataReader<InlineValuesReader<Reader>>>;

using MeshReader = PartialReader<WholeReader<CheckedMeshReader>>;

// Of a multi-block file it reads nothing but what stands beside the pieces.
class BesidePiecesReader : public vtkXMLMultiBlockDataReader
{
public:
    BesidePiecesReader(BesidePiecesReader const&) = delete;
    BesidePiecesReader& operator=(BesidePiecesReader const&) = delete;

protected:
    BesidePiecesReader() = default;

    void ReadXMLData() override { this->ReadFieldData(); }

    // Else it would open all pieces.
    int FillMetaData(vtkCompositeDataSet*, vtkXMLDataElement*, std::string const&, unsigned int&) override { return 1; }
};

vtkSmartPointer<vtkXMLReader> xmlReader(std::string const& extension)
{
    if (extension == "vti")
        return vtkSmartPointer<WholeReader<vtkXMLImageDataReader>>::New();
    if (extension == "vtr")
        return vtkSmartPointer<WholeReader<vtkXMLRectilinearGridReader>>::New();
    if (extension == "vts")
        return vtkSmartPointer<PartialReader<WholeReader<vtkXMLStructuredGridReader>>>::New();
    if (extension == "vtu")
        return vtkSmartPointer<MeshReader>::New();
    if (extension == "vtp")
        return vtkSmartPointer<PartialReader<WholeReader<vtkXMLPolyDataReader>>>::New();
    return nullptr;
}

void throwOnError(VtkErrorCapture const& errors)
{
    std::string const reason = errors.firstError();
    if (errors.hasErrors())
        throw ImportError("it is damaged, incomplete or of another kind" +
                          (reason.empty() ? reason : " (" + reason + ")"));
}

vtkSmartPointer<ProgressObserver> observe(vtkAlgorithm& reader, kernel::Progress& progress)
{
    auto observer = vtkSmartPointer<ProgressObserver>::New();
    observer->watch(reader, progress);
    return observer;
}

// The first look at a file goes through all of its text.
void updateInformation(vtkAlgorithm& reader, ProgressObserver const& observer)
{
    reader.UpdateInformation();
    if (observer.isInterrupted())
        throw kernel::Interrupted();
}

vtkSmartPointer<vtkDataObject> run(vtkAlgorithm& reader, VtkErrorCapture const& errors,
                                   ProgressObserver const& observer)
{
    reader.Update();
    if (observer.isInterrupted())
        throw kernel::Interrupted();
    throwOnError(errors);
    vtkSmartPointer<vtkDataObject> const result = reader.GetOutputDataObject(0);
    if (!result)
        throw ImportError("it contains no grid");
    return result;
}

// VTK crashes over texts where a structured grid has several pieces, and nobody wants them.
void leaveOut(std::vector<XmlHeaderCheck::Useless> const& arrays, vtkXMLReader& reader,
              std::vector<std::string>& remarks)
{
    for (auto const& [ofPoints, name, reason] : arrays) {
        auto* const selection = ofPoints ? reader.GetPointDataArraySelection() : reader.GetCellDataArraySelection();
        selection->DisableArray(name.c_str());
        remarks.push_back("\"" + name + "\" " + reason + " and was left out");
    }
}

// Values that a piece lacks would be whatever stood in memory.
void leaveOutUneven(XmlArrayList const& list, vtkXMLReader& reader, std::vector<std::string>& remarks)
{
    auto const leaveOutOf = [&](vtkDataArraySelection& selection, std::set<std::string> const& names) {
        for (std::string const& name : names) {
            if (selection.ArrayExists(name.c_str()))
                selection.DisableArray(name.c_str());
            remarks.push_back("\"" + name + "\" is not alike in all pieces of the file and was left out");
        }
    };
    leaveOutOf(*reader.GetPointDataArraySelection(), list.unevenOfPoints());
    leaveOutOf(*reader.GetCellDataArraySelection(), list.unevenOfCells());
}

void remarkOnUnread(vtkXMLReader& reader, std::vector<std::string>& remarks)
{
    auto const* const limit = dynamic_cast<FieldDataLimit*>(&reader);
    if (limit && limit->unread() > 0)
        remarks.push_back(std::to_string(limit->unread()) + " of its field data were not read: at most " +
                          std::to_string(FieldDataLimit::mostArrays) + " are, of known types");
}

void chooseArrays(GridArrays const& arrays, vtkXMLReader& reader, LoadingPlan& plan, DeferredArrays& deferred)
{
    leaveOutUneven(arrays.list(), reader, deferred.remarks);
    if (plan.deferral() == Deferral::Never && !arrays.list().isReordered())
        return;
    ArrayChoice(reader, arrays, plan).run(deferred);
    auto* const parts = dynamic_cast<GridParts*>(&reader);
    if (deferred.points && parts)
        parts->leaveOutPoints();
    if (deferred.cells && parts)
        parts->leaveOutCells();
}

vtkSmartPointer<vtkDataObject> readXml(vtkXMLReader& reader, std::string const& path, VtkErrorCapture const& errors,
                                       ImportContext const& context, DeferredArrays& deferred)
{
    bool const mayDefer = context.plan.deferral() != Deferral::Never;
    std::string const extension = extensionOf(path);
    if (!reader.CanReadFile(path.c_str()))
        throw ImportError("it is no VTK XML file of the kind that ." + extension +
                          " stands for, or its start is damaged");
    XmlHeaderCheck check(path, static_cast<std::int64_t>(std::filesystem::file_size(path)));
    if (mayDefer)
        check.leaveOutValues();
    check.run();
    if (!check.hasPoints())
        return nullptr;
    reader.SetFileName(path.c_str());
    auto const observer = observe(reader, context.progress);
    updateInformation(reader, *observer);
    throwOnError(errors);
    leaveOut(check.useless(), reader, deferred.remarks);
    remarkOnUnread(reader, deferred.remarks);
    if (mayDefer || check.hasSeveralPieces())
        chooseArrays(GridArrays(path, extension), reader, context.plan, deferred);
    return run(reader, errors, *observer);
}

// For reading a part of a file that was looked at before: no array is chosen.
vtkSmartPointer<ProgressObserver> openWithoutArrays(vtkXMLReader& reader, std::string const& path,
                                                    kernel::Progress& progress)
{
    reader.SetFileName(path.c_str());
    auto const observer = observe(reader, progress);
    updateInformation(reader, *observer);
    reader.GetPointDataArraySelection()->DisableAllArrays();
    reader.GetCellDataArraySelection()->DisableAllArrays();
    return observer;
}

} // namespace

vtkSmartPointer<vtkDataObject> readVtkFile(std::string const& path, ImportContext const& context,
                                           DeferredArrays& deferred)
{
    VtkErrorCapture const errors;
    try {
        auto const reader = xmlReader(extensionOf(path));
        if (!reader)
            throw ImportError("files of this kind (." + extensionOf(path) + ") cannot be read");
        auto const result = readXml(*reader, path, errors, context, deferred);
        for (std::string const& warning : errors.warnings())
            context.remarks.push_back("VTK: " + warning);
        return result;
    } catch (std::bad_alloc const&) {
        throw ImportError("there is not enough memory for it");
    } catch (std::length_error const&) {
        throw ImportError("there is not enough memory for it");
    }
}

vtkSmartPointer<vtkDataObject> readVtkArray(std::string const& path, std::string const& extension, XmlSection section,
                                            std::string const& name, kernel::Progress& progress)
{
    VtkErrorCapture const errors;
    auto const reader = xmlReader(extension);
    auto const observer = openWithoutArrays(*reader, path, progress);
    if (section == XmlSection::PointData)
        reader->GetPointDataArraySelection()->EnableArray(name.c_str());
    if (section == XmlSection::CellData)
        reader->GetCellDataArraySelection()->EnableArray(name.c_str());
    if (auto* const parts = dynamic_cast<GridParts*>(reader.Get())) {
        parts->leaveOutCells();
        if (section != XmlSection::Points)
            parts->leaveOutPoints();
    }
    return run(*reader, errors, *observer);
}

vtkSmartPointer<vtkDataObject> readVtkCells(std::string const& path, kernel::Progress& progress)
{
    VtkErrorCapture const errors;
    auto const reader = vtkSmartPointer<MeshReader>::New();
    auto const observer = openWithoutArrays(*reader, path, progress);
    reader->leaveOutPoints();
    return run(*reader, errors, *observer);
}

vtkSmartPointer<vtkDataObject> readVtkFieldData(std::string const& path, ImportContext const& context)
{
    VtkErrorCapture const errors;
    try {
        XmlHeaderCheck(path, static_cast<std::int64_t>(std::filesystem::file_size(path))).run();
        auto const reader = vtkSmartPointer<WholeReader<BesidePiecesReader>>::New();
        reader->SetFileName(path.c_str());
        kernel::Progress part(context.progress, context.progress.total() / 100);
        auto const observer = observe(*reader, part);
        updateInformation(*reader, *observer);
        throwOnError(errors);
        remarkOnUnread(*reader, context.remarks);
        return run(*reader, errors, *observer);
    } catch (std::bad_alloc const&) {
        throw ImportError("there is not enough memory for it");
    } catch (std::length_error const&) {
        throw ImportError("there is not enough memory for it");
    }
}

} // namespace veldraw::app
