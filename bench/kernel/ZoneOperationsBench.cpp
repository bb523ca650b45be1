// Turning, mirroring and duplicating a zone of ten million points, beside VTK's filter for the same work.
#include "SpatialStage.h"
#include "kernel/compute/Rotation.h"
#include "kernel/data/AxialCopies.h"

#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSMPTools.h>
#include <vtkTransform.h>
#include <vtkTransformFilter.h>

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

constexpr std::int64_t pointCount = 10000000;

RotationAxis const zAxis{{0.5, 0.25, 0.125}, {0, 0, 1}};
RotationAxis const slantingAxis{{0.5, 0.25, 0.125}, {1, 2, 3}};

/// Runs the operation, and takes it back out of the measured time.
template <typename Operation>
void measure(benchmark::State& state, SpatialStage& stage, Operation const& operation)
{
    for (auto _ : state) {
        if (!operation()) {
            state.SkipWithError("the operation was refused");
            break;
        }
        state.PauseTiming();
        stage.session.undo();
        stage.session.history().clear(); // with the memory of what was undone
        state.ResumeTiming();
    }
}

void rotate(benchmark::State& state, RotationAxis const& axis)
{
    SpatialStage stage(pointCount);
    measure(state, stage, [&] { return stage.session.rotateZones(*stage.dataSet, {1}, stage.variables, axis, 33.0); });
}

void mirror(benchmark::State& state)
{
    SpatialStage stage(pointCount);
    measure(state, stage, [&] { return stage.session.mirrorZones(stage.frame, {1}, 'Y'); });
}

void duplicateAxially(benchmark::State& state)
{
    SpatialStage stage(pointCount / 10);
    AxialCopies const copies{30.0, 0.0, 11, true};
    measure(state, stage,
            [&] { return stage.session.duplicateZonesAxially(*stage.dataSet, {1}, stage.variables, zAxis, copies); });
}

vtkSmartPointer<vtkFloatArray> vectors(char const* name)
{
    auto array = vtkSmartPointer<vtkFloatArray>::New();
    array->SetName(name);
    array->SetNumberOfComponents(3);
    array->SetNumberOfTuples(pointCount);
    float* const values = array->GetPointer(0);
    for (std::int64_t index = 0; index < 3 * pointCount; ++index) {
        values[index] = static_cast<float>(index % 1000);
    }
    return array;
}

void vtkTransformFilterFor(benchmark::State& state, bool mirrors)
{
    if (std::string(vtkSMPTools::GetBackend()) == "Sequential") {
        vtkSMPTools::SetBackend("STDThread"); // both are to have all cores
    }
    state.SetLabel(vtkSMPTools::GetBackend());
    vtkNew<vtkPolyData> data;
    vtkNew<vtkPoints> points;
    points->SetData(vectors("points"));
    data->SetPoints(points);
    data->GetPointData()->SetVectors(vectors("vectors"));
    vtkNew<vtkFloatArray> scalar;
    scalar->SetName("scalar");
    scalar->SetNumberOfTuples(pointCount);
    scalar->Fill(1.0);
    data->GetPointData()->SetScalars(scalar);
    vtkNew<vtkTransform> transform;
    if (mirrors) {
        transform->Scale(1, -1, 1);
    } else {
        transform->RotateWXYZ(33.0, 1, 2, 3);
    }
    for (auto _ : state) {
        vtkNew<vtkTransformFilter> filter;
        filter->SetTransform(transform);
        filter->SetInputData(data);
        filter->Update();
        benchmark::DoNotOptimize(filter->GetOutput());
        state.PauseTiming();
        filter->GetOutput()->Initialize();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK_CAPTURE(rotate, aboutZ, zAxis)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(12);
BENCHMARK_CAPTURE(rotate, aboutASlantingAxis, slantingAxis)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(12);
BENCHMARK_CAPTURE(vtkTransformFilterFor, rotation, false)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(12);
BENCHMARK(mirror)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime()->Iterations(12);
BENCHMARK_CAPTURE(vtkTransformFilterFor, mirror, true)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(12);
BENCHMARK(duplicateAxially)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime()->Iterations(12);
