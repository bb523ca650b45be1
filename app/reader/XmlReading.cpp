#include "app/reader/XmlReading.h"

#include "app/files/ImportError.h"
#include "app/handover/Nonsense.h"
#include "app/reader/CheckedMeshReader.h"
#include "app/reader/CheckedValuesReader.h"
#include "app/reader/FieldDataLimit.h"
#include "app/reader/InlineValuesReader.h"
#include "app/reader/PartialReader.h"
#include "app/reader/ProgressSender.h"
#include "app/reader/ReadingErrors.h"
#include "app/reader/TalkativeReader.h"

#include <vtkDataArraySelection.h>
#include <vtkNew.h>
#include <vtkXMLImageDataReader.h>
#include <vtkXMLMultiBlockDataReader.h>
#include <vtkXMLPolyDataReader.h>
#include <vtkXMLRectilinearGridReader.h>
#include <vtkXMLStructuredGridReader.h>

namespace veldraw::app {

namespace {

template <typename Reader>
using WholeReader = TalkativeReader<LimitedFieldDataReader<InlineValuesReader<CheckedValuesReader<Reader>>>>;

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

vtkSmartPointer<vtkXMLReader> readerFor(std::string const& extension)
{
    if (extension == "vti")
        return vtkSmartPointer<WholeReader<vtkXMLImageDataReader>>::New();
    if (extension == "vtr")
        return vtkSmartPointer<WholeReader<vtkXMLRectilinearGridReader>>::New();
    if (extension == "vts")
        return vtkSmartPointer<PartialReader<WholeReader<vtkXMLStructuredGridReader>>>::New();
    if (extension == "vtu")
        return vtkSmartPointer<PartialReader<WholeReader<CheckedMeshReader>>>::New();
    if (extension == "vtp")
        return vtkSmartPointer<PartialReader<WholeReader<vtkXMLPolyDataReader>>>::New();
    throw ImportError("files of this kind (." + extension + ") cannot be read");
}

int unreadFieldDataOf(vtkXMLReader& reader)
{
    auto const* const limit = dynamic_cast<FieldDataLimit*>(&reader);
    return limit ? limit->unread() : 0;
}

std::vector<std::string> namesIn(vtkDataArraySelection& selection)
{
    std::vector<std::string> names;
    for (int n = 0; n < selection.GetNumberOfArrays(); ++n)
        names.emplace_back(selection.GetArrayName(n) ? selection.GetArrayName(n) : "");
    return names;
}

void choose(vtkDataArraySelection& selection, std::vector<std::string> const& names)
{
    selection.DisableAllArrays();
    for (std::string const& name : names)
        selection.EnableArray(name.c_str());
}

ReadChoice askForChoice(vtkXMLReader& reader, Channel& channel)
{
    FoundArrays found;
    found.ofPoints = namesIn(*reader.GetPointDataArraySelection());
    found.ofCells = namesIn(*reader.GetCellDataArraySelection());
    found.unreadFieldData = unreadFieldDataOf(reader);
    channel.send(Message::Kind::Found, found.asBytes());
    auto const answer = channel.receive(-1);
    if (!answer || answer->kind != Message::Kind::Choice)
        throw Nonsense("no choice");
    return ReadChoice::fromBytes(answer->content);
}

void follow(ReadChoice const& choice, vtkXMLReader& reader)
{
    choose(*reader.GetPointDataArraySelection(), choice.ofPoints);
    choose(*reader.GetCellDataArraySelection(), choice.ofCells);
    auto* const parts = dynamic_cast<GridParts*>(&reader);
    if (parts && !choice.points)
        parts->leaveOutPoints();
    if (parts && !choice.cells)
        parts->leaveOutCells();
}

// The first look at a file goes through all of its text.
void open(vtkXMLReader& reader, ReadRequest const& request, ProgressSender& progress, Channel& channel)
{
    if (auto* const limit = dynamic_cast<FieldDataLimit*>(&reader))
        limit->alwaysRead(request.fieldData);
    reader.SetFileName(request.path.c_str());
    progress.watch(reader, channel);
    reader.UpdateInformation();
}

vtkSmartPointer<vtkDataObject> read(vtkXMLReader& reader, VtkErrorCapture const& errors)
{
    reader.Update();
    throwOnError(errors, reader.GetFileName());
    vtkSmartPointer<vtkDataObject> const result = reader.GetOutputDataObject(0);
    if (!result)
        throw ImportError("it contains no grid");
    return result;
}

} // namespace

vtkSmartPointer<vtkDataObject> readXmlGrid(ReadRequest const& request, Channel& channel, VtkErrorCapture const& errors)
{
    auto const reader = readerFor(request.extension);
    if (!reader->CanReadFile(request.path.c_str()))
        throw ImportError("it is no VTK XML file of the kind that ." + request.extension +
                          " stands for, or its start is damaged");
    vtkNew<ProgressSender> progress;
    open(*reader, request, *progress, channel);
    throwOnError(errors, request.path);
    follow(askForChoice(*reader, channel), *reader);
    return read(*reader, errors);
}

vtkSmartPointer<vtkDataObject> readXmlFieldData(ReadRequest const& request, Channel& channel,
                                                VtkErrorCapture const& errors)
{
    auto const reader = vtkSmartPointer<WholeReader<BesidePiecesReader>>::New();
    vtkNew<ProgressSender> progress;
    open(*reader, request, *progress, channel);
    throwOnError(errors, request.path);
    askForChoice(*reader, channel);
    return read(*reader, errors);
}

} // namespace veldraw::app
