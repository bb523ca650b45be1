// How long the main window takes with 5,000 zones in its lists and in its plot, from the click to the painted window. Needs a display.
#include "app/plot/FieldView.h"
#include "app/plot/PageView.h"
#include "bench/window/ManyZonesWindow.h"
#include "kernel/operations/EnableZone.h"

#include <benchmark/benchmark.h>

using namespace veldraw;
using Window = bench::ManyZonesWindow;

namespace {

void hideOneInListAndPlot(benchmark::State& state)
{
    app::CentralView const view = app::CentralView::ofPage(kernel::Session::instance());
    Window& shown = *new Window(view); // stays until the process ends: widgets must not go after the application
    auto& page = dynamic_cast<app::PageView&>(*view.widget);
    page.grabImage();
    auto const shownZones = [&] {
        return dynamic_cast<app::FieldView&>(*page.frameView(shown.session().activeFrame()->id)).zones().size();
    };
    int zone = 0;
    for (auto _ : state) {
        zone = zone % Window::zoneCount + 1;
        shown.session().perform(kernel::EnableZone(shown.dataSet(), zone, !shown.dataSet().zone(zone)->enabled));
        do
            Window::settle();
        while (page.isDrawing());
    }
    if (shownZones() != shown.dataSet().enabledZones().size())
        throw std::runtime_error("the plot has not followed");
}
BENCHMARK(hideOneInListAndPlot)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace
