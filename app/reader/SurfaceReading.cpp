#include "app/reader/SurfaceReading.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>
#include <vtkNew.h>
#include <vtkOBJReader.h>
#include <vtkPLYReader.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSTLReader.h>
#include <vtkStringArray.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace veldraw::app {

namespace {

constexpr char const* solids = "STLSolidLabeling";

// Blanks at the end stand there by mistake.
std::vector<std::string> linesOf(char const* text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text ? text : "");
    for (std::string line; std::getline(stream, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        lines.push_back(line);
    }
    return lines;
}

/// Takes the triangles of each solid out of a surface of all; points that several have in common, each gets.
class SolidSplit
{
public:
    SolidSplit(vtkPolyData& all, vtkDataArray& labels)
        : m_all(all)
        , m_labels(labels)
        , m_newPoints(static_cast<std::size_t>(all.GetNumberOfPoints()), -1)
    {
    }

    vtkSmartPointer<vtkPolyData> solid(int label)
    {
        vtkNew<vtkPoints> points;
        points->SetDataType(m_all.GetPoints()->GetDataType());
        vtkNew<vtkCellArray> triangles;
        std::vector<vtkIdType> taken;
        vtkCellArray& cells = *m_all.GetPolys();
        for (vtkIdType cell = 0; cell < cells.GetNumberOfCells(); ++cell) {
            if (static_cast<int>(m_labels.GetComponent(cell, 0)) != label)
                continue;
            vtkIdType const* corners = nullptr;
            vtkIdType count = 0;
            cells.GetCellAtId(cell, count, corners);
            triangles->InsertNextCell(static_cast<int>(count));
            for (vtkIdType n = 0; n < count; ++n)
                triangles->InsertCellPoint(pointFor(corners[n], *points, taken));
        }
        for (vtkIdType const point : taken)
            m_newPoints[static_cast<std::size_t>(point)] = -1;
        auto result = vtkSmartPointer<vtkPolyData>::New();
        result->SetPoints(points);
        result->SetPolys(triangles);
        return result;
    }

private:
    vtkIdType pointFor(vtkIdType old, vtkPoints& points, std::vector<vtkIdType>& taken)
    {
        vtkIdType& point = m_newPoints[static_cast<std::size_t>(old)];
        if (point < 0) {
            point = points.InsertNextPoint(m_all.GetPoint(old));
            taken.push_back(old);
        }
        return point;
    }

    vtkPolyData& m_all;
    vtkDataArray& m_labels;
    std::vector<vtkIdType> m_newPoints; // of a solid, -1 for none
};

vtkSmartPointer<vtkDataObject> asSolids(vtkPolyData& all, std::vector<std::string> const& names)
{
    vtkDataArray* const labels = all.GetCellData()->GetArray(solids);
    bool const hasLabels =
        labels && labels->GetNumberOfTuples() > 0 && labels->GetNumberOfTuples() == all.GetNumberOfPolys();
    int const last = hasLabels ? static_cast<int>(labels->GetRange()[1]) : 0;
    if (last == 0 && (names.empty() || names.front().empty())) {
        all.GetCellData()->RemoveArray(solids);
        return &all;
    }
    vtkNew<vtkMultiBlockDataSet> blocks;
    SolidSplit split(all, hasLabels ? *labels : *all.GetPoints()->GetData());
    for (int label = 0; label <= last; ++label) {
        auto const n = static_cast<unsigned int>(label);
        blocks->SetBlock(n, last > 0 ? split.solid(label).Get() : &all);
        if (n < names.size() && !names[n].empty())
            blocks->GetMetaData(n)->Set(vtkCompositeDataSet::NAME(), names[n].c_str());
    }
    all.GetCellData()->RemoveArray(solids);
    return blocks.Get();
}

void addText(std::vector<std::string> const& values, char const* name, vtkFieldData& to)
{
    vtkNew<vtkStringArray> texts;
    texts->SetName(name);
    for (std::string const& value : values)
        texts->InsertNextValue(value);
    to.AddArray(texts);
}

// As our export says which variables the components of an array are.
void nameColours(vtkFieldData& arrays, char const* location, std::vector<std::string>& list)
{
    for (char const* const name : {"RGB", "RGBA"}) {
        vtkAbstractArray* const colours = arrays.GetAbstractArray(name);
        if (!colours)
            continue;
        std::vector<std::string> const channels{"red", "green", "blue", "alpha"};
        int const count = std::min(colours->GetNumberOfComponents(), 4);
        list.insert(list.end(), {location, name, std::to_string(count)});
        list.insert(list.end(), channels.begin(), channels.begin() + count);
    }
}

} // namespace

vtkSmartPointer<vtkDataObject> readStl(std::string const& path, vtkCommand& progress)
{
    vtkNew<vtkSTLReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetFileName(path.c_str());
    reader->ScalarTagsOn();
    reader->Update();
    vtkPolyData* const all = reader->GetOutput();
    if (!all->GetPoints() || all->GetNumberOfPolys() == 0)
        return all;
    return asSolids(*all,
                    reader->GetBinaryHeader() == nullptr ? linesOf(reader->GetHeader()) : std::vector<std::string>());
}

vtkSmartPointer<vtkDataObject> readPly(std::string const& path, vtkCommand& progress)
{
    vtkNew<vtkPLYReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetFileName(path.c_str());
    reader->Update();
    vtkSmartPointer<vtkPolyData> const surface = reader->GetOutput();
    std::vector<std::string> variables;
    nameColours(*surface->GetPointData(), "PointData", variables);
    nameColours(*surface->GetCellData(), "CellData", variables);
    if (!variables.empty())
        addText(variables, "ArrayVariables", *surface->GetFieldData());
    return surface;
}

vtkSmartPointer<vtkDataObject> readObj(std::string const& path, vtkCommand& progress)
{
    vtkNew<vtkOBJReader> reader;
    reader->AddObserver(vtkCommand::ProgressEvent, &progress);
    reader->SetFileName(path.c_str());
    reader->Update();
    return reader->GetOutput();
}

} // namespace veldraw::app
