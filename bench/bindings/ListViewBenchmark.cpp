#include "bench/bindings/ZoneListWindow.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <benchmark/benchmark.h>

// The list and its selection. The list has as many rows as the benchmark's argument says.

namespace veldraw::bench {
namespace {

using sdk::ui::common::IdleDispatcher;
using Values = ZoneListWindow::Values;

void applySelectionOfAllRows(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    ZoneListWindow window(count);
    Values const all = ZoneListWindow::everyNth(1, count, 1);
    for (auto _ : state) {
        state.PauseTiming();
        window.selection->setValue({});
        IdleDispatcher::flush();
        window.selection->setValue(all);
        state.ResumeTiming();
        IdleDispatcher::flush();
    }
    if (window.view.selectionModel()->selection().size() != 1)
        state.SkipWithError("the rows are not selected as one range");
}

void replaceOneScatteredSelectionByAnother(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    ZoneListWindow window(count);
    Values const odd = ZoneListWindow::everyNth(1, count, 2);
    Values const even = ZoneListWindow::everyNth(2, count, 2);
    bool useOdd = false;
    for (auto _ : state) {
        state.PauseTiming();
        useOdd = !useOdd;
        window.selection->setValue(useOdd ? odd : even);
        state.ResumeTiming();
        IdleDispatcher::flush();
    }
    if (window.view.selectionModel()->selection().size() != count / 2)
        state.SkipWithError("not every second row is selected");
}

void readASelectionOfAllRows(benchmark::State& state)
{
    ZoneListWindow window(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        window.view.selectAll();
        state.PauseTiming();
        if (static_cast<long>(window.selection->value().size()) != state.range(0))
            state.SkipWithError("not all rows arrived in the property");
        window.view.clearSelection();
        state.ResumeTiming();
    }
}

BENCHMARK(applySelectionOfAllRows)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(replaceOneScatteredSelectionByAnother)->Arg(20000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(readASelectionOfAllRows)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veldraw::bench
