// How long one change of a property takes, and what of that is the signal.
#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace {

using veldraw::BoundedValueValidator;
using veldraw::Property;

void setValue(benchmark::State& state)
{
    Property<int> property;
    long long sum = 0;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        property.connectValueChanged([&sum](int value) { sum += value; });
    int value = 0;
    for (auto _ : state)
        property.setValue(++value & 0xffff);
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(setValue)->Name("Property/setValue/listeners")->Arg(0)->Arg(1)->Arg(2)->Arg(8);

void setValueWithUntypedListener(benchmark::State& state)
{
    Property<int> property;
    long long sum = 0;
    property.connectPropertyChanged([&sum] { ++sum; });
    int value = 0;
    for (auto _ : state)
        property.setValue(++value & 0xffff);
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(setValueWithUntypedListener)->Name("Property/setValue/untyped listener");

void setBoundedValue(benchmark::State& state)
{
    using Bounds = BoundedValueValidator<int>;
    Property<int> property(0, boost::make_shared<Bounds>(0, 0xffff, Bounds::LowerInclusive, Bounds::UpperInclusive));
    long long sum = 0;
    property.connectValueChanged([&sum](int value) { sum += value; });
    int value = 0;
    for (auto _ : state)
        property.setValue(++value & 0xffff);
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(setBoundedValue)->Name("Property/setValue/bounded, one listener");

void setEqualValue(benchmark::State& state)
{
    Property<int> property(5);
    long long sum = 0;
    property.connectValueChanged([&sum](int value) { sum += value; });
    for (auto _ : state)
        property.setValue(5);
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(setEqualValue)->Name("Property/setValue/no change");

void createProperty(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(std::make_unique<Property<int>>(5));
}
BENCHMARK(createProperty)->Name("Property/create and destroy");

} // namespace

BENCHMARK_MAIN();
