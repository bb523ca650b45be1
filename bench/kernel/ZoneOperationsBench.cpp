// Turning, mirroring and duplicating a zone of ten million points, beside VTK's filter for the same work.
#include "SpatialStage.h"
#include "kernel/compute/Rotation.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"

#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSMPTools.h>
#include <vtkTransform.h>
#include <vtkTransformFilter.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

using namespace veldraw::kernel;

namespace {

constexpr std::int64_t pointCount = 10000000;

/// Stays as long as the program does, so that only what an operation makes comes from fresh memory.
SpatialStage& sharedStage()
{
    static SpatialStage stage(pointCount);
    return stage;
}

RotationAxis const xAxis{{0.5, 0.25, 0.125}, {1, 0, 0}};
RotationAxis const yAxis{{0.5, 0.25, 0.125}, {0, 1, 0}};
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
    SpatialStage& stage = sharedStage();
    measure(state, stage,
            [&] { return stage.session.perform(RotateZones(*stage.dataSet, {1}, stage.variables, axis, 33.0)); });
}

void mirror(benchmark::State& state)
{
    SpatialStage& stage = sharedStage();
    measure(state, stage, [&] { return stage.session.perform(MirrorZones(stage.frame, {1}, 'Y')); });
}

void duplicateAxially(benchmark::State& state)
{
    SpatialStage stage(pointCount / 10);
    AxialCopies const copies{30.0, 0.0, 11, true};
    measure(state, stage, [&] {
        return stage.session.perform(DuplicateZonesAxially(*stage.dataSet, {1}, stage.variables, zAxis, copies));
    });
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

// A system in a virtual machine has to ask its host for memory that has not been used for a while, and the first runs pay
// for that: the least time is what the operation itself costs.
double least(std::vector<double> const& times)
{
    return *std::min_element(times.begin(), times.end());
}

void configure(benchmark::internal::Benchmark* measured)
{
    measured->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
    measured->Iterations(1)->Repetitions(24)->ReportAggregatesOnly(true)->ComputeStatistics("least", least);
}

} // namespace

BENCHMARK_CAPTURE(rotate, aboutX, xAxis)->Apply(configure);
BENCHMARK_CAPTURE(rotate, aboutY, yAxis)->Apply(configure);
BENCHMARK_CAPTURE(rotate, aboutZ, zAxis)->Apply(configure);
BENCHMARK_CAPTURE(rotate, aboutASlantingAxis, slantingAxis)->Apply(configure);
BENCHMARK_CAPTURE(vtkTransformFilterFor, rotation, false)->Apply(configure);
BENCHMARK(mirror)->Apply(configure);
BENCHMARK_CAPTURE(vtkTransformFilterFor, mirror, true)->Apply(configure);
BENCHMARK(duplicateAxially)->Apply(configure);
