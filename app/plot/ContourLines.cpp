#include "app/plot/ContourLines.h"

#include "app/plot/MixNumbers.h"
#include "kernel/base/Parallel.h"

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkStripper.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

using Meeting = CellCut::Meeting;

struct Piece
{
    Meeting from;
    Meeting to;
};

using PiecesByLevel = std::vector<std::vector<Piece>>;

// Where a level lies between two neighbouring corners. A corner right on it is one place, however many ways lead to it.
Meeting placeBetween(vtkIdType a, vtkIdType b, float const* values, float level)
{
    for (vtkIdType const corner : {a, b})
        if (!(values[corner] < level) && !(values[corner] > level))
            return {corner, corner};
    return {std::min(a, b), std::max(a, b)};
}

// The border of a polygon passes a level an even number of times; between two of them the line goes through the polygon.
void addPieces(vtkIdType const* corners, vtkIdType count, float const* values, float level,
               std::vector<Meeting>& passages, std::vector<Piece>& pieces)
{
    passages.clear();
    for (vtkIdType n = 0; n < count; ++n) {
        vtkIdType const here = corners[n];
        vtkIdType const next = corners[(n + 1) % count];
        if ((values[here] < level) != (values[next] < level))
            passages.push_back(placeBetween(here, next, values, level));
    }
    for (std::size_t n = 0; n + 1 < passages.size(); n += 2)
        if (!(passages[n] == passages[n + 1]))
            pieces.push_back({passages[n], passages[n + 1]});
}

PiecesByLevel piecesOf(vtkCellArray& polygons, float const* values, std::vector<float> const& levels)
{
    vtkIdType const count = polygons.GetNumberOfCells();
    std::vector<PiecesByLevel> parts(static_cast<std::size_t>(kernel::parallelChunkCount(count)),
                                     PiecesByLevel(levels.size()));
    kernel::parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t part) {
        auto const cells = vtk::TakeSmartPointer(polygons.NewIterator());
        std::vector<Meeting> passages;
        for (std::int64_t n = first; n < last; ++n) {
            vtkIdType size = 0;
            vtkIdType const* corners = nullptr;
            cells->GetCellAtId(n, size, corners);
            auto const isNumber = [values](vtkIdType corner) { return std::isfinite(values[corner]); };
            if (size < 3 || !std::all_of(corners, corners + size, isNumber))
                continue;
            auto const isBefore = [values](vtkIdType a, vtkIdType b) { return values[a] < values[b]; };
            auto const [low, high] = std::minmax_element(corners, corners + size, isBefore);
            auto level = std::upper_bound(levels.begin(), levels.end(), values[*low]);
            for (; level != levels.end() && *level <= values[*high]; ++level)
                addPieces(corners, size, values, *level, passages,
                          parts[static_cast<std::size_t>(part)][static_cast<std::size_t>(level - levels.begin())]);
        }
    });
    PiecesByLevel all(levels.size());
    for (PiecesByLevel const& part : parts)
        for (std::size_t n = 0; n < levels.size(); ++n)
            all[n].insert(all[n].end(), part[n].begin(), part[n].end());
    return all;
}

void addPoint(vtkPoints& points, Meeting const& place, vtkPoints& corners, float const* values, float level)
{
    double from[3];
    double to[3];
    corners.GetPoint(place.first, from);
    corners.GetPoint(place.second, to);
    double const before = static_cast<double>(level) - static_cast<double>(values[place.first]);
    double const whole = static_cast<double>(values[place.second]) - static_cast<double>(values[place.first]);
    double const share = place.first == place.second ? 0.0 : before / whole;
    points.InsertNextPoint(from[0] + share * (to[0] - from[0]), from[1] + share * (to[1] - from[1]),
                           from[2] + share * (to[2] - from[2]));
}

// The pieces of one level, joined to lines that are as long as possible.
vtkSmartPointer<vtkPolyData> joined(std::vector<Piece> const& pieces, vtkPoints& corners, float const* values,
                                    float level)
{
    MixNumbers numbers(2 * pieces.size());
    vtkNew<vtkCellArray> lines;
    for (Piece const& piece : pieces) {
        std::int64_t const from = numbers.of(piece.from);
        lines->InsertNextCell({from, numbers.of(piece.to)});
    }
    vtkNew<vtkPoints> points;
    for (Meeting const& place : numbers.places())
        addPoint(*points, place, corners, values, level);
    vtkNew<vtkPolyData> loose;
    loose->SetPoints(points);
    loose->SetLines(lines);
    vtkNew<vtkStripper> stripper;
    stripper->SetInputData(loose);
    stripper->SetMaximumLength(1000000);
    stripper->JoinContiguousSegmentsOn();
    stripper->Update();
    return stripper->GetOutput();
}

} // namespace

vtkSmartPointer<vtkPolyData> ContourLines::over(vtkPolyData& surface, vtkFloatArray& values,
                                                std::vector<float> const& levels)
{
    auto all = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> lines;
    vtkNew<vtkIntArray> levelOf;
    levelOf->SetName(levelName);
    float const* const numbers = values.GetNumberOfValues() > 0 ? values.GetPointer(0) : nullptr;
    PiecesByLevel const pieces = piecesOf(*surface.GetPolys(), numbers, levels);
    for (std::size_t n = 0; n < levels.size(); ++n) {
        if (pieces[n].empty())
            continue;
        auto const ofLevel = joined(pieces[n], *surface.GetPoints(), numbers, levels[n]);
        lines->Append(ofLevel->GetLines(), points->GetNumberOfPoints());
        points->InsertPoints(points->GetNumberOfPoints(), ofLevel->GetNumberOfPoints(), 0, ofLevel->GetPoints());
        while (levelOf->GetNumberOfValues() < lines->GetNumberOfCells())
            levelOf->InsertNextValue(static_cast<int>(n));
    }
    all->SetPoints(points);
    all->SetLines(lines);
    all->GetCellData()->AddArray(levelOf);
    return all;
}

} // namespace veldraw::app
