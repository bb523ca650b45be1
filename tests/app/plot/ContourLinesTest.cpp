// Lines of equal values over surfaces: where they lie, that they do not miss a polygon, and that they hang together.
#include "app/plot/ContourLines.h"

#include <vtkCellArray.h>
#include <vtkCellArrayIterator.h>
#include <vtkCellData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

using app::ContourLines;

namespace {

constexpr vtkIdType pointsInRow = 141; // points; 19,600 squares, which is more than one thread's share

/// Squares, or triangles, over the unit square, with a value at each point.
class Sheet
{
public:
    Sheet(bool ofTriangles, std::function<double(double, double)> const& value)
    {
        vtkNew<vtkPoints> points;
        vtkNew<vtkCellArray> cells;
        for (vtkIdType n = 0; n < pointsInRow * pointsInRow; ++n) {
            double const x = static_cast<double>(n % pointsInRow) / (pointsInRow - 1);
            double const y = static_cast<double>(n / pointsInRow) / (pointsInRow - 1);
            points->InsertNextPoint(x, y, 0.25);
            m_values->InsertNextValue(static_cast<float>(value(x, y)));
        }
        for (vtkIdType row = 0; row + 1 < pointsInRow; ++row)
            for (vtkIdType n = row * pointsInRow; n < row * pointsInRow + pointsInRow - 1; ++n)
                if (ofTriangles) {
                    cells->InsertNextCell({n, n + 1, n + pointsInRow + 1});
                    cells->InsertNextCell({n, n + pointsInRow + 1, n + pointsInRow});
                } else {
                    cells->InsertNextCell({n, n + 1, n + pointsInRow + 1, n + pointsInRow});
                }
        m_surface->SetPoints(points);
        m_surface->SetPolys(cells);
    }

    vtkSmartPointer<vtkPolyData> lines(std::vector<float> const& levels)
    {
        return ContourLines::over(*m_surface, *m_values, levels);
    }

    vtkFloatArray& values() { return *m_values; }

private:
    vtkNew<vtkPolyData> m_surface;
    vtkNew<vtkFloatArray> m_values;
};

int levelOf(vtkPolyData& lines, vtkIdType line)
{
    return vtkIntArray::SafeDownCast(lines.GetCellData()->GetArray(ContourLines::levelName))->GetValue(line);
}

// Calls act with the level and the ends of each straight piece.
void forEachPiece(vtkPolyData& lines, std::function<void(int, double const*, double const*)> const& act)
{
    auto const cells = vtk::TakeSmartPointer(lines.GetLines()->NewIterator());
    for (cells->GoToFirstCell(); !cells->IsDoneWithTraversal(); cells->GoToNextCell()) {
        vtkIdType count = 0;
        vtkIdType const* ids = nullptr;
        cells->GetCurrentCell(count, ids);
        for (vtkIdType n = 1; n < count; ++n) {
            double from[3];
            double to[3];
            lines.GetPoint(ids[n - 1], from);
            lines.GetPoint(ids[n], to);
            act(levelOf(lines, cells->GetCurrentCellId()), from, to);
        }
    }
}

double lengthAt(vtkPolyData& lines, int level)
{
    double sum = 0.0;
    forEachPiece(lines, [&](int at, double const* from, double const* to) {
        if (at == level)
            sum += std::hypot(to[0] - from[0], to[1] - from[1]);
    });
    return sum;
}

class ContourLinesTest : public ::testing::TestWithParam<bool>
{
};

} // namespace

TEST_P(ContourLinesTest, LieExactlyWhereALinearFieldHasTheLevels)
{
    Sheet sheet(GetParam(), [](double x, double y) { return 0.75 * x + 0.25 * y; });
    std::vector<float> const levels{0.125F, 0.3F, 0.7F};
    auto const lines = sheet.lines(levels);
    ASSERT_EQ(lines->GetNumberOfLines(), 3) << "each level is one line without a gap";
    forEachPiece(*lines, [&](int level, double const* from, double const* to) {
        double const wanted = static_cast<double>(levels[static_cast<std::size_t>(level)]);
        EXPECT_NEAR(0.75 * from[0] + 0.25 * from[1], wanted, 1e-6);
        EXPECT_NEAR(0.75 * to[0] + 0.25 * to[1], wanted, 1e-6);
        EXPECT_EQ(from[2], 0.25);
    });
    // From the left edge to the lower one, and twice from the lower edge to the upper one.
    EXPECT_NEAR(lengthAt(*lines, 0), std::hypot(0.125 / 0.75, 0.125 / 0.25), 1e-5);
    EXPECT_NEAR(lengthAt(*lines, 1), std::hypot(1.0 / 3.0, 1.0), 1e-5);
    EXPECT_NEAR(lengthAt(*lines, 2), std::hypot(1.0 / 3.0, 1.0), 1e-5);
}

TEST_P(ContourLinesTest, AreClosedRoundAHill)
{
    Sheet sheet(GetParam(), [](double x, double y) { return 1.0 - std::hypot(x - 0.5, y - 0.5); });
    auto const lines = sheet.lines({0.7F, 0.8F});
    ASSERT_EQ(lines->GetNumberOfLines(), 2);
    constexpr double pi = 3.14159265358979;
    EXPECT_NEAR(lengthAt(*lines, 0), 2.0 * pi * 0.3, 2e-3);
    EXPECT_NEAR(lengthAt(*lines, 1), 2.0 * pi * 0.2, 2e-3);
    for (vtkIdType line = 0; line < 2; ++line) {
        vtkIdType count = 0;
        vtkIdType const* ids = nullptr;
        lines->GetLines()->GetCellAtId(line, count, ids);
        EXPECT_EQ(ids[0], ids[count - 1]);
    }
}

TEST_P(ContourLinesTest, GoThroughCornersThatHaveTheLevelItself)
{
    Sheet sheet(GetParam(), [](double x, double) { return x; });
    auto const lines = sheet.lines({0.5F}); // a column of corners
    ASSERT_EQ(lines->GetNumberOfLines(), 1);
    EXPECT_NEAR(lengthAt(*lines, 0), 1.0, 1e-6);
    EXPECT_EQ(lines->GetNumberOfPoints(), pointsInRow) << "no corner counts twice";
}

TEST_P(ContourLinesTest, LeaveOutWhereAValueIsNoNumber)
{
    Sheet sheet(GetParam(), [](double, double y) { return y; });
    float const none = std::numeric_limits<float>::quiet_NaN();
    sheet.values().SetValue(pointsInRow / 2 * pointsInRow + pointsInRow / 2, none); // in the middle
    constexpr double ofRow = 0.65; // in the row of squares below the middle
    auto const lines = sheet.lines({0.2F, static_cast<float>((pointsInRow / 2 - 1 + ofRow) / (pointsInRow - 1))});
    EXPECT_EQ(lines->GetNumberOfLines(), 3) << "the second level has a gap of two squares, or of three triangles";
    EXPECT_NEAR(lengthAt(*lines, 0), 1.0, 1e-5);
    EXPECT_NEAR(lengthAt(*lines, 1), 1.0 - (GetParam() ? 1.0 + ofRow : 2.0) / (pointsInRow - 1), 1e-5);
}

TEST_P(ContourLinesTest, AreNoneWhereNoValueReachesALevel)
{
    Sheet sheet(GetParam(), [](double x, double) { return 0.25 + 0.5 * x; });
    EXPECT_EQ(sheet.lines({0.1F, 0.8F})->GetNumberOfLines(), 0);
    EXPECT_EQ(sheet.lines({})->GetNumberOfLines(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sheets, ContourLinesTest, ::testing::Bool(),
                         [](auto const& tested) { return tested.param ? "OfTriangles" : "OfSquares"; });

} // namespace veldraw::tests
