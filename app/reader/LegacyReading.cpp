#include "app/reader/LegacyReading.h"

#include "app/files/ImportError.h"
#include "app/handover/Utf8.h"
#include "app/reader/PlaceholderFile.h"
#include "app/reader/ProgressSender.h"
#include "app/reader/ReadingErrors.h"

#include <vtkFieldData.h>
#include <vtkGenericDataObjectReader.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkStringArray.h>

namespace veldraw::app {

namespace {

vtkSmartPointer<vtkDataObject> readPlainly(std::string const& path, Channel& channel, VtkErrorCapture const& errors)
{
    vtkNew<vtkGenericDataObjectReader> reader;
    vtkNew<ProgressSender> progress;
    progress->watch(*reader, channel);
    reader->SetFileName(path.c_str());
    reader->ReadAllScalarsOn();
    reader->ReadAllVectorsOn();
    reader->ReadAllNormalsOn();
    reader->ReadAllTensorsOn();
    reader->ReadAllColorScalarsOn();
    reader->ReadAllTCoordsOn();
    reader->ReadAllFieldsOn();
    reader->Update();
    throwOnError(errors, path);
    vtkSmartPointer<vtkDataObject> const data = reader->GetOutputDataObject(0);
    if (!data)
        throw ImportError("it contains no grid");
    return data;
}

bool hasZeroByte(vtkStringArray& texts)
{
    for (vtkIdType n = 0; n < texts.GetNumberOfValues(); ++n) {
        if (texts.GetValue(n).find('\0') != std::string::npos)
            return true;
    }
    return false;
}

void leaveOutBrokenTexts(vtkDataObject* data, std::vector<std::string>& remarks)
{
    if (!data)
        return;
    vtkFieldData& fieldData = *data->GetFieldData();
    for (int n = fieldData.GetNumberOfArrays() - 1; n >= 0; --n) {
        auto* const texts = vtkStringArray::SafeDownCast(fieldData.GetAbstractArray(n));
        if (!texts || !hasZeroByte(*texts))
            continue;
        remarks.push_back("the text of \"" + madeUtf8(texts->GetName() ? texts->GetName() : "") +
                          "\" has zero bytes and was left out");
        fieldData.RemoveArray(n);
    }
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(data);
    for (unsigned int n = 0; blocks && n < blocks->GetNumberOfBlocks(); ++n)
        leaveOutBrokenTexts(blocks->GetBlock(n), remarks);
}

vtkSmartPointer<vtkDataObject> readNumbers(std::string const& path, Channel& channel, VtkErrorCapture const& errors)
{
    for (int attempt = 0; attempt < PlaceholderFile::attempts; ++attempt) {
        auto const file = PlaceholderFile::of(path, attempt);
        if (!file)
            return readPlainly(path, channel, errors);
        auto const data = readPlainly(file->path(), channel, errors);
        if (file->restore(*data))
            return data;
    }
    throw ImportError("\"nan\" or \"inf\" stands in it where no number is");
}

} // namespace

vtkSmartPointer<vtkDataObject> readLegacy(std::string const& path, Channel& channel, VtkErrorCapture const& errors,
                                          std::vector<std::string>& remarks)
{
    auto const data = readNumbers(path, channel, errors);
    leaveOutBrokenTexts(data, remarks);
    return data;
}

} // namespace veldraw::app
