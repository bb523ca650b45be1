#include "bench/bindings/ZoneListWindow.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"

#include <benchmark/benchmark.h>

// The list follows the kernel: from the change, over the list and its selection, to the painted view. The list has as many
// rows as the benchmark's argument says.

namespace veldraw::bench {
namespace {

using Values = ZoneListWindow::Values;

/// One row above all that are selected comes and goes, so that every one of them moves.
void changeTheList(benchmark::State& state, int zone, Values const& selected)
{
    ZoneListWindow window(static_cast<int>(state.range(0)));
    window.selection->setValue(selected);
    window.settle();
    bool enabled = true;
    for (auto _ : state) {
        enabled = !enabled;
        window.session.perform(kernel::EnableZone(*window.dataSet, zone, enabled));
        window.settle();
    }
    std::size_t rows = 0;
    for (QItemSelectionRange const& range : window.view.selectionModel()->selection())
        rows += static_cast<std::size_t>(range.height());
    if (rows != selected.size() || window.selection->value() != selected)
        state.SkipWithError("the selection was lost");
    state.counters["resets"] = benchmark::Counter(window.resets, benchmark::Counter::kAvgIterations);
}

void kernelChangeThatMovesAContiguousHalf(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    changeTheList(state, 1, ZoneListWindow::everyNth(count / 2 + 1, count, 1));
}

void kernelChangeThatMovesEverySecondRow(benchmark::State& state)
{
    changeTheList(state, 1, ZoneListWindow::everyNth(2, static_cast<int>(state.range(0)), 2));
}

void kernelChangeThatLeavesTheListEqual(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    ZoneListWindow window(count);
    window.selection->setValue(ZoneListWindow::everyNth(count / 2 + 1, count, 1));
    window.settle();
    bool plain = false;
    for (auto _ : state) {
        plain = !plain;
        window.session.perform(kernel::RenameVariable(*window.dataSet, 1, plain ? "X" : "Y"));
        window.settle();
    }
    state.counters["resets"] = window.resets;
    if (window.resets > 0)
        state.SkipWithError("the list was reset");
}

BENCHMARK(kernelChangeThatMovesAContiguousHalf)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(kernelChangeThatMovesEverySecondRow)->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(kernelChangeThatLeavesTheListEqual)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veldraw::bench
