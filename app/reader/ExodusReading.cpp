#include "app/reader/ExodusReading.h"

#include "app/reader/ExodusFile.h"

#include <vtkDoubleArray.h>
#include <vtkExodusIIReader.h>
#include <vtkFieldData.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkPointSet.h>
#include <vtkPoints.h>
#include <vtkStreamingDemandDrivenPipeline.h>
#include <vtkStringArray.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <string>
#include <vector>

namespace veldraw::app {

namespace {

constexpr auto timesKey = &vtkStreamingDemandDrivenPipeline::TIME_STEPS;

std::vector<double> timesIn(vtkExodusIIReader& reader)
{
    vtkInformation& information = *reader.GetOutputInformation(0);
    if (reader.GetNumberOfTimeSteps() == 0 || !information.Has(timesKey()))
        return {};
    double const* const times = information.Get(timesKey());
    return {times, times + information.Length(timesKey())};
}

void addTexts(std::vector<std::string> const& values, char const* name, vtkFieldData& to)
{
    vtkNew<vtkStringArray> texts;
    texts->SetName(name);
    for (std::string const& value : values)
        texts->InsertNextValue(value);
    to.AddArray(texts);
}

std::vector<std::string> leftOutOf(vtkExodusIIReader& reader)
{
    std::vector<std::string> names;
    for (auto const& [type, what] :
         {std::pair{vtkExodusIIReader::SIDE_SET, "side set"}, std::pair{vtkExodusIIReader::NODE_SET, "node set"},
          std::pair{vtkExodusIIReader::EDGE_SET, "edge set"}, std::pair{vtkExodusIIReader::FACE_SET, "face set"},
          std::pair{vtkExodusIIReader::ELEM_SET, "element set"}}) {
        for (int n = 0; n < reader.GetNumberOfObjects(type); ++n) {
            char const* const name = reader.GetObjectName(type, n);
            names.push_back(what + std::string(" \"") + (name ? name : "") + "\"");
        }
    }
    for (int n = 0; n < reader.GetNumberOfObjectArrays(vtkExodusIIReader::GLOBAL); ++n)
        names.push_back(std::string("global variable ") + reader.GetObjectArrayName(vtkExodusIIReader::GLOBAL, n));
    return names;
}

vtkSmartPointer<vtkDataObject> contentOf(vtkExodusIIReader& reader)
{
    vtkNew<vtkMultiBlockDataSet> result;
    vtkNew<vtkDoubleArray> times;
    times->SetName("Times");
    for (double const time : timesIn(reader))
        times->InsertNextValue(time);
    result->GetFieldData()->AddArray(times);
    addTexts(leftOutOf(reader), "LeftOut", *result->GetFieldData());
    return result;
}

void wantAllVariables(vtkExodusIIReader& reader)
{
    for (int const type : {vtkExodusIIReader::NODAL, vtkExodusIIReader::ELEM_BLOCK, vtkExodusIIReader::FACE_BLOCK,
                           vtkExodusIIReader::EDGE_BLOCK}) {
        for (int n = 0; n < reader.GetNumberOfObjects(type); ++n)
            reader.SetObjectStatus(type, n, 1);
        for (int n = 0; n < reader.GetNumberOfObjectArrays(type); ++n)
            reader.SetObjectArrayStatus(type, n, 1);
    }
    reader.GenerateObjectIdCellArrayOff(); // each block has one number, which is in its field data
}

void putOnAxis(vtkMultiBlockDataSet& blocks)
{
    for (unsigned int n = 0; n < blocks.GetNumberOfBlocks(); ++n) {
        vtkDataObject* const block = blocks.GetBlock(n);
        if (auto* const inside = vtkMultiBlockDataSet::SafeDownCast(block))
            putOnAxis(*inside);
        auto* const grid = vtkPointSet::SafeDownCast(block);
        vtkPoints* const points = grid ? grid->GetPoints() : nullptr;
        for (vtkIdType point = 0; points && point < points->GetNumberOfPoints(); ++point)
            points->SetPoint(point, points->GetPoint(point)[0], 0.0, 0.0);
    }
}

// The title of the file would stand with each block, with the end of its line.
void takeTitle(vtkMultiBlockDataSet& blocks, std::string& title)
{
    for (unsigned int n = 0; n < blocks.GetNumberOfBlocks(); ++n) {
        vtkDataObject* const block = blocks.GetBlock(n);
        if (auto* const inside = vtkMultiBlockDataSet::SafeDownCast(block))
            takeTitle(*inside, title);
        else if (block) {
            auto* const texts = vtkStringArray::SafeDownCast(block->GetFieldData()->GetAbstractArray("Title"));
            if (texts && texts->GetNumberOfValues() > 0)
                title = texts->GetValue(0);
            block->GetFieldData()->RemoveArray("Title");
        }
    }
}

} // namespace

// Points stay where the file has them: displacements are a variable like any other.
vtkSmartPointer<vtkDataObject> readExodus(ReadRequest const& request, vtkCommand& progress)
{
    vtkNew<vtkExodusIIReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetFileName(request.path.c_str());
    reader->ApplyDisplacementsOff();
    reader->UpdateInformation();
    if (request.text.empty())
        return contentOf(*reader);
    wantAllVariables(*reader);
    std::size_t moment = 0;
    std::from_chars(request.text.data(), request.text.data() + request.text.size(), moment);
    std::vector<double> const times = timesIn(*reader);
    ExodusFile const file(request.path);
    std::string const fault = file.faultAt(moment < times.size() ? static_cast<int>(moment) + 1 : 0);
    if (!fault.empty()) {
        vtkErrorWithObjectMacro(reader, << fault);
        return nullptr;
    }
    if (moment < times.size())
        reader->UpdateTimeStep(times[moment]);
    else
        reader->Update();
    vtkSmartPointer<vtkMultiBlockDataSet> const blocks = reader->GetOutput();
    if (file.isOnAxis())
        putOnAxis(*blocks);
    std::string title;
    takeTitle(*blocks, title);
    title.erase(title.find_last_not_of(" \n") + 1);
    if (!title.empty())
        addTexts({title}, "Title", *blocks->GetFieldData());
    return blocks;
}

} // namespace veldraw::app
