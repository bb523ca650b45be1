#include "app/plot/SmoothNormals.h"

#include "kernel/base/Progress.h"

#include <vtkCellArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyDataNormals.h>

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr vtkIdType columns = 120;
constexpr vtkIdType rows = 90;

// A wavy sheet of quadrilaterals that do not lie in a plane, every third cut into triangles, and a point that no cell has.
vtkSmartPointer<vtkPolyData> sheet(bool wide)
{
    vtkNew<vtkPoints> points;
    for (vtkIdType row = 0; row <= rows; ++row)
        for (vtkIdType column = 0; column <= columns; ++column) {
            double const x = 0.05 * static_cast<double>(column);
            double const y = 0.07 * static_cast<double>(row);
            points->InsertNextPoint(x, y, std::sin(3.0 * x) * std::cos(2.0 * y));
        }
    points->InsertNextPoint(9.0, 9.0, 9.0);
    vtkNew<vtkCellArray> cells;
    if (wide)
        cells->Use64BitStorage();
    else
        cells->Use32BitStorage();
    for (vtkIdType row = 0; row < rows; ++row)
        for (vtkIdType column = 0; column < columns; ++column) {
            vtkIdType const a = row * (columns + 1) + column;
            vtkIdType const b = a + columns + 1;
            if ((row + column) % 3 == 0) {
                cells->InsertNextCell({a, a + 1, b});
                cells->InsertNextCell({a + 1, b + 1, b});
            } else {
                cells->InsertNextCell({a, a + 1, b + 1, b});
            }
        }
    auto surface = vtkSmartPointer<vtkPolyData>::New();
    surface->SetPoints(points);
    surface->SetPolys(cells);
    return surface;
}

} // namespace

TEST(SmoothNormals, AreThoseOfVtksFilter)
{
    for (bool const wide : {false, true}) {
        auto const surface = sheet(wide);
        vtkNew<vtkPolyDataNormals> filter;
        filter->SetInputData(surface);
        filter->SplittingOff();
        filter->ConsistencyOff();
        filter->Update();
        vtkDataArray& expected = *filter->GetOutput()->GetPointData()->GetNormals();
        auto const found = app::SmoothNormals::create(*surface, {});
        ASSERT_EQ(found->GetNumberOfTuples(), (columns + 1) * (rows + 1) + 1);
        ASSERT_EQ(expected.GetNumberOfTuples(), found->GetNumberOfTuples());
        for (vtkIdType point = 0; point < found->GetNumberOfTuples(); ++point)
            for (int axis = 0; axis < 3; ++axis)
                ASSERT_NEAR(found->GetComponent(point, axis), expected.GetComponent(point, axis), 2e-6) << point;
    }
}

TEST(SmoothNormals, AreZeroWhereNoCellWithAnAreaMeets)
{
    auto const surface = sheet(false);
    vtkIdType const lonely = surface->GetNumberOfPoints() - 1;
    surface->GetPolys()->InsertNextCell({lonely, lonely, lonely});
    surface->GetPolys()->InsertNextCell({lonely, 0});
    auto const before = app::SmoothNormals::create(*sheet(false), {});
    auto const found = app::SmoothNormals::create(*surface, {});
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_EQ(found->GetComponent(lonely, axis), 0.0);
        EXPECT_EQ(found->GetComponent(0, axis), before->GetComponent(0, axis));
    }
    vtkNew<vtkPolyData> empty;
    EXPECT_EQ(app::SmoothNormals::create(*empty, {})->GetNumberOfTuples(), 0);
}

TEST(SmoothNormals, CanBeInterrupted)
{
    kernel::Progress progress;
    progress.interrupt();
    EXPECT_THROW(app::SmoothNormals::create(*sheet(false), progress), kernel::Interrupted);
}

} // namespace veldraw::tests
