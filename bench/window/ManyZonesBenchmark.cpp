// How long the main window takes with 5,000 zones in its lists, from the click to the painted window; plots not included.
#include "app/window/MainWindow.h"
#include "host/KernelBridge.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

using namespace veldraw;

namespace {

constexpr int zoneCount = 5000;

std::shared_ptr<kernel::DataSet> manyZones()
{
    auto set = std::make_shared<kernel::DataSet>("many");
    for (char const* const name : {"X", "Y", "P"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    for (int n = 0; n < zoneCount; ++n) {
        auto zone = std::make_shared<kernel::Zone>("zone " + std::to_string(n), ZoneType_Ordered, 4, 4, 1);
        for (int variable = 0; variable < 3; ++variable) {
            auto const values = kernel::Buffer::allocate(FieldDataType_Float, 16);
            for (int point = 0; point < 16; ++point)
                values->setValue(point, variable == 0 ? point % 4 : variable == 1 ? point / 4 : n);
            zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
        }
        set->addZone(zone);
    }
    return set;
}

/// The window with its docks.
class Window
{
public:
    Window()
        : m_session(kernel::Session::instance())
    {
        host::KernelBridge::install();
        auto const frame = std::make_shared<kernel::Frame>("many", kernel::Rectangle{});
        frame->dataSet = manyZones();
        frame->plotType = PlotType_Cartesian2D;
        m_session.openPage({frame});
        app::CentralView view;
        view.widget = new QWidget;
        m_window = std::make_unique<app::MainWindow>(m_session, view, app::DocumentController::FileReader());
        m_window->show();
        settle();
        if (list().model()->rowCount() != zoneCount)
            throw std::runtime_error("the zones are not listed");
    }

    /// As the event loop does when it comes to rest.
    static void settle()
    {
        QApplication::processEvents();
        sdk::ui::common::IdleDispatcher::flush();
        QApplication::processEvents();
    }

    kernel::Session& session() { return m_session; }
    kernel::DataSet& dataSet() { return *m_session.activeDataSet(); }
    QAbstractItemView& list() { return *m_window->findChild<QAbstractItemView*>(QStringLiteral("zoneView")); }

private:
    kernel::Session& m_session;
    std::unique_ptr<app::MainWindow> m_window;
};

// Stays until the process ends: widgets must not go after the application.
Window& window()
{
    static Window& window = *new Window;
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
