#include "bench/bindings/ManyZones.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "host/KernelBridge.h"
#include "kernel/frames/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>
#include <QListView>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>
#include <memory>
#include <set>

// Run with QT_QPA_PLATFORM=offscreen. The list has as many rows as the benchmark's argument says.

namespace {

using namespace veldraw;
using namespace veldraw::sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using Values = std::set<int>;

/// The values first, first + step, ... up to count.
Values everyNth(int count, int first, int step)
{
    Values values;
    for (int value = first; value <= count; value += step)
        values.insert(values.end(), value);
    return values;
}

/// A visible list of zones, bound to a selection, over the real kernel.
class Dialog
{
public:
    explicit Dialog(int zoneCount)
    {
        host::KernelBridge::install();
        session.clear();
        auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
        dataSet = bench::manyZones(zoneCount);
        session.setFrameDataSet(frame->id, dataSet);
        zones = boost::make_shared<models::ZoneListModel>(&sdk::getEnabledZonesForFrame, true);
        binding = std::make_unique<ListViewPropertyBinding>(&view, zones, selection,
                                                            BindingInterface::ModelUpdateDeferredOnBusy);
        view.resize(300, 600);
        view.show();
        QApplication::processEvents();
    }

    kernel::Session& session = kernel::Session::instance();
    std::shared_ptr<kernel::DataSet> dataSet;
    boost::shared_ptr<models::ZoneListModel> zones;
    boost::shared_ptr<Property<Values>> selection = boost::make_shared<Property<Values>>();
    QListView view;
    std::unique_ptr<ListViewPropertyBinding> binding;
};

void applySelectionOfAllRows(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    Values const all = everyNth(static_cast<int>(state.range(0)), 1, 1);
    for (auto _ : state) {
        state.PauseTiming();
        dialog.selection->setValue({});
        IdleDispatcher::flush();
        dialog.selection->setValue(all);
        state.ResumeTiming();
        IdleDispatcher::flush();
    }
    if (dialog.view.selectionModel()->selection().size() != 1)
        state.SkipWithError("the rows are not selected as one range");
}

void replaceOneScatteredSelectionByAnother(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    Values const odd = everyNth(static_cast<int>(state.range(0)), 1, 2);
    Values const even = everyNth(static_cast<int>(state.range(0)), 2, 2);
    bool useOdd = false;
    for (auto _ : state) {
        state.PauseTiming();
        useOdd = !useOdd;
        dialog.selection->setValue(useOdd ? odd : even);
        state.ResumeTiming();
        IdleDispatcher::flush();
    }
}

void readASelectionOfAllRows(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        dialog.view.selectAll();
        state.PauseTiming();
        if (static_cast<long>(dialog.selection->value().size()) != state.range(0))
            state.SkipWithError("not all rows arrived in the property");
        dialog.view.clearSelection();
        state.ResumeTiming();
    }
}

void kernelChangeThatLeavesTheListEqual(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    bool plain = false;
    for (auto _ : state) {
        plain = !plain;
        dialog.session.renameVariable(*dialog.dataSet, 1, plain ? "X" : "Y");
    }
}

BENCHMARK(applySelectionOfAllRows)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(replaceOneScatteredSelectionByAnother)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(readASelectionOfAllRows)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(kernelChangeThatLeavesTheListEqual)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
