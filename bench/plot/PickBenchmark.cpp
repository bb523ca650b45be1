// How long a click in a large plot takes until the zone under the mouse is known.
#include "app/plot/PickRay.h"

#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkRenderer.h>

#include <benchmark/benchmark.h>
#include <cmath>
#include <stdexcept>

using namespace veldraw;

namespace {

constexpr int quadsAlongEdge = 3163; // squared: 10 million

vtkSmartPointer<vtkPoints> wavyPoints(int edge)
{
    auto points = vtkSmartPointer<vtkPoints>::New();
    points->SetDataTypeToFloat();
    points->SetNumberOfPoints(static_cast<vtkIdType>(edge) * edge);
    vtkIdType point = 0;
    for (int j = 0; j < edge; ++j)
        for (int i = 0; i < edge; ++i) {
            double const x = i / (edge - 1.0) - 0.5;
            double const y = j / (edge - 1.0) - 0.5;
            points->SetPoint(point++, x, y, 0.1 * std::sin(12.0 * x) * std::cos(9.0 * y));
        }
    return points;
}

vtkSmartPointer<vtkCellArray> quads(int edge)
{
    auto cells = vtkSmartPointer<vtkCellArray>::New();
    cells->AllocateExact(static_cast<vtkIdType>(edge) * edge, 4 * static_cast<vtkIdType>(edge) * edge);
    vtkIdType const row = edge + 1;
    for (vtkIdType j = 0; j < edge; ++j)
        for (vtkIdType i = 0; i < edge; ++i) {
            vtkIdType const first = i + j * row;
            vtkIdType const corners[4] = {first, first + 1, first + 1 + row, first + row};
            cells->InsertNextCell(4, corners);
        }
    return cells;
}

/// A structured surface of 10 million quadrilaterals, seen from aside.
class LargeSurface
{
public:
    LargeSurface()
    {
        m_drawing->SetPoints(wavyPoints(quadsAlongEdge + 1));
        m_drawing->SetPolys(quads(quadsAlongEdge));
        m_drawing->ComputeBounds();
        m_window->SetSize(1000, 800);
        m_window->AddRenderer(m_renderer);
        vtkCamera* const camera = m_renderer->GetActiveCamera();
        camera->SetPosition(-1.2, -1.9, 1.25);
        camera->SetFocalPoint(0.0, 0.0, 0.0);
        camera->SetViewUp(0.0, 0.0, 1.0);
        m_renderer->ResetCamera(m_drawing->GetBounds());
    }

    static LargeSurface& instance()
    {
        static LargeSurface surface;
        return surface;
    }

    double pick(double x, double y) { return app::PickRay(*m_renderer, x, y).distanceTo(*m_drawing, 5.0); }

private:
    vtkNew<vtkPolyData> m_drawing;
    vtkNew<vtkGenericOpenGLRenderWindow> m_window;
    vtkNew<vtkRenderer> m_renderer;
};

/// Clicks here and there, all on the surface.
void pickInTenMillionQuads(benchmark::State& state)
{
    LargeSurface& surface = LargeSurface::instance();
    int click = 0;
    for (auto _ : state) {
        double const distance = surface.pick(420.0 + 16.0 * (click % 11), 360.0 + 8.0 * (click % 9));
        if (!(distance > 0.0))
            throw std::logic_error("the click missed the surface");
        ++click;
        benchmark::DoNotOptimize(distance);
    }
}

BENCHMARK(pickInTenMillionQuads)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace
