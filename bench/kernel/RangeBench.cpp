// The range of ten million values.
#include "kernel/storage/RangeOfParts.h"

#include <benchmark/benchmark.h>

using namespace veldraw::kernel;

namespace {

constexpr std::int64_t count = 10000000;

std::shared_ptr<Buffer> filled(FieldDataType_e type)
{
    std::shared_ptr<Buffer> buffer = Buffer::allocate(type, count);
    for (std::int64_t index = 0; index < count; ++index) {
        buffer->setValue(index, static_cast<double>(index % 251));
    }
    return buffer;
}

void range(benchmark::State& state, FieldDataType_e type)
{
    std::shared_ptr<Buffer> const buffer = filled(type);
    for (auto _ : state) {
        benchmark::DoNotOptimize(RangeOfParts().range(*buffer, {}));
    }
    state.SetBytesProcessed(state.iterations() * buffer->bytes());
}

void rangeOfCellsInOrder(benchmark::State& state)
{
    std::shared_ptr<Buffer> const buffer = filled(FieldDataType_Float);
    for (auto _ : state) {
        benchmark::DoNotOptimize(RangeOfParts().range(*buffer, {{1000, 100, 100}, nullptr}));
    }
    state.SetBytesProcessed(state.iterations() * buffer->bytes());
}

} // namespace

BENCHMARK_CAPTURE(range, float, FieldDataType_Float)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(range, double, FieldDataType_Double)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(range, byte, FieldDataType_Byte)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(range, bit, FieldDataType_Bit)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(rangeOfCellsInOrder)->Unit(benchmark::kMillisecond)->UseRealTime();
