#include "bench/bindings/ManyZones.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/property/Property.h"
#include "host/KernelBridge.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>
#include <QComboBox>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>
#include <memory>

// The combo box has as many rows as the benchmark's argument says.

namespace veldraw::bench {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

/// A visible choice of one zone of many, over the real kernel.
class Dialog
{
public:
    explicit Dialog(int zoneCount)
    {
        host::KernelBridge::install();
        session.clear();
        auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
        dataSet = manyZones(zoneCount);
        session.setFrameDataSet(frame->id, dataSet);
        zones = boost::make_shared<models::ZoneListModel>(&sdk::getEnabledZonesForFrame, false);
        bind();
        comboBox.show();
        QApplication::processEvents();
        QObject::connect(comboBox.model(), &QAbstractItemModel::modelReset, [this] { ++resets; });
    }

    void bind()
    {
        binding = std::make_unique<ComboBoxPropertyBinding<int>>(&comboBox, zones, zone,
                                                                 BindingInterface::ModelUpdateDeferredOnBusy);
    }

    /// Lets the event loop do what a change has left to do.
    void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
    }

    kernel::Session& session = kernel::Session::instance();
    std::shared_ptr<kernel::DataSet> dataSet;
    boost::shared_ptr<models::ZoneListModel> zones;
    boost::shared_ptr<Property<int>> zone = boost::make_shared<Property<int>>(1);
    QComboBox comboBox;
    std::unique_ptr<ComboBoxPropertyBinding<int>> binding;
    int resets = 0;
};

void kernelChangeThatLeavesTheChoicesEqual(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    bool plain = false;
    for (auto _ : state) {
        plain = !plain;
        dialog.session.perform(kernel::RenameVariable(*dialog.dataSet, 1, plain ? "X" : "Y"));
        dialog.settle();
    }
    if (dialog.resets > 0)
        state.SkipWithError("the box was reset");
}

void kernelChangeThatTakesAZoneFromTheChoices(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    Dialog dialog(count);
    dialog.zone->setValue(count);
    dialog.settle();
    bool enabled = true;
    for (auto _ : state) {
        enabled = !enabled;
        dialog.session.perform(kernel::EnableZone(*dialog.dataSet, count / 2, enabled));
        dialog.settle();
    }
    if (dialog.zone->value() != count || dialog.comboBox.currentData().toInt() != count)
        state.SkipWithError("the choice was lost");
}

void kernelChangeThatTakesTheChosenZone(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    Dialog dialog(count);
    for (auto _ : state) {
        state.PauseTiming();
        dialog.session.perform(kernel::EnableZone(*dialog.dataSet, count, true));
        dialog.zone->setValue(count);
        dialog.settle();
        state.ResumeTiming();
        dialog.session.perform(kernel::EnableZone(*dialog.dataSet, count, false));
        dialog.settle();
    }
    if (dialog.zone->value() != 1)
        state.SkipWithError("the choice did not move");
}

void chooseTheLastOfManyZones(benchmark::State& state)
{
    int const count = static_cast<int>(state.range(0));
    Dialog dialog(count);
    bool last = false;
    for (auto _ : state) {
        last = !last;
        dialog.zone->setValue(last ? count : 1);
        dialog.settle();
    }
}

void bindAComboBoxOfManyZones(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        dialog.binding.reset();
        dialog.bind();
        dialog.settle();
    }
}

void showAComboBoxOfManyZonesForTheFirstTime(benchmark::State& state)
{
    Dialog dialog(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QComboBox fresh;
        ComboBoxPropertyBinding<int> const bound(&fresh, dialog.zones, dialog.zone,
                                                 BindingInterface::ModelUpdateDeferredOnBusy);
        fresh.show();
        QApplication::processEvents();
    }
}

BENCHMARK(kernelChangeThatLeavesTheChoicesEqual)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(kernelChangeThatTakesAZoneFromTheChoices)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(kernelChangeThatTakesTheChosenZone)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(chooseTheLastOfManyZones)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(bindAComboBoxOfManyZones)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(showAComboBoxOfManyZonesForTheFirstTime)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veldraw::bench
