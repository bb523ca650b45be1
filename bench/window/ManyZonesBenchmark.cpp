// How long the main window takes with 5,000 zones in its lists, from the click to the painted window; plots not included.
#include "bench/window/ManyZonesWindow.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"

#include <QScrollBar>

#include <benchmark/benchmark.h>

using namespace veldraw;

namespace {

using Window = bench::ManyZonesWindow;
constexpr int zoneCount = Window::zoneCount;

app::CentralView plainView()
{
    app::CentralView view;
    view.widget = new QWidget;
    return view;
}

// Stays until the process ends: widgets must not go after the application.
Window& window()
{
    static Window& window = *new Window(plainView());
    return window;
}

void selectAll(benchmark::State& state)
{
    Window& shown = window();
    for (auto _ : state) {
        shown.list().selectAll();
        Window::settle();
        state.PauseTiming();
        if (shown.session().picks().size() != zoneCount)
            throw std::runtime_error("not all zones are picked");
        shown.list().clearSelection();
        Window::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(selectAll)->Unit(benchmark::kMillisecond);

void clearTheSelectionOfAll(benchmark::State& state)
{
    Window& shown = window();
    for (auto _ : state) {
        state.PauseTiming();
        shown.list().selectAll();
        Window::settle();
        state.ResumeTiming();
        shown.list().clearSelection();
        Window::settle();
    }
}
BENCHMARK(clearTheSelectionOfAll)->Unit(benchmark::kMillisecond);

void scrollByAPage(benchmark::State& state)
{
    QScrollBar& bar = *window().list().verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
        Window::settle();
    }
}
BENCHMARK(scrollByAPage)->Unit(benchmark::kMillisecond);

template <bool areAllSelected>
void hideOne(benchmark::State& state)
{
    Window& shown = window();
    if (areAllSelected)
        shown.list().selectAll();
    int zone = 0;
    for (auto _ : state) {
        zone = zone % zoneCount + 1;
        shown.session().perform(kernel::EnableZone(shown.dataSet(), zone, !shown.dataSet().zone(zone)->enabled));
        Window::settle();
    }
    while (shown.session().undo())
        ;
    shown.list().clearSelection();
    Window::settle();
}
BENCHMARK_TEMPLATE(hideOne, false)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(hideOne, true)->Unit(benchmark::kMillisecond);

// Which is also what comes and goes with a zone.
void duplicateOneAndUndo(benchmark::State& state)
{
    Window& shown = window();
    for (auto _ : state) {
        shown.session().perform(kernel::DuplicateZones(shown.dataSet(), {zoneCount / 2}));
        Window::settle();
        shown.session().undo();
        Window::settle();
    }
}
BENCHMARK(duplicateOneAndUndo)->Unit(benchmark::kMillisecond);

void duplicateAllAndUndo(benchmark::State& state)
{
    Window& shown = window();
    kernel::NumberSet const all = shown.dataSet().enabledZones();
    for (auto _ : state) {
        shown.session().perform(kernel::DuplicateZones(shown.dataSet(), all));
        Window::settle();
        shown.session().undo();
        Window::settle();
    }
}
BENCHMARK(duplicateAllAndUndo)->Unit(benchmark::kMillisecond);

void renameOne(benchmark::State& state)
{
    Window& shown = window();
    int n = 0;
    for (auto _ : state) {
        shown.session().perform(kernel::RenameZone(shown.dataSet(), 1 + n % zoneCount, "name " + std::to_string(n)));
        ++n;
        Window::settle();
    }
    while (shown.session().undo())
        ;
}
BENCHMARK(renameOne)->Unit(benchmark::kMillisecond);

} // namespace
