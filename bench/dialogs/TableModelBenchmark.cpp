#include "dialogs/models/QTableModelAdapter.h"
#include "dialogs/models/TableModelProxy.h"
#include "dialogs/spreadsheet/IJKLineZoneVarTableModel.h"
#include "host/KernelBridge.h"
#include "kernel/session/Session.h"

#include <QApplication>
#include <QTableView>

#include <boost/make_shared.hpp>

#include <benchmark/benchmark.h>

namespace veldraw::bench {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

/// A frame with one line of three billion points; nothing of it is in memory.
class LongLine
{
public:
    LongLine()
    {
        host::KernelBridge::install();
        session.clear();
        auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
        auto const dataSet = std::make_shared<kernel::DataSet>("Benchmark");
        dataSet->addVariable(std::make_shared<kernel::Variable>("V"));
        dataSet->addZone(std::make_shared<kernel::Zone>("line", ZoneType_Ordered, 3000000000ll, 1, 1));
        session.setFrameDataSet(frame->id, dataSet);
    }
    ~LongLine() { session.clear(); }

    static boost::shared_ptr<TableModelInterface> table()
    {
        return boost::make_shared<IJKLineZoneVarTableModel>(1, toolbox::Set(1), false, ValueLocation_Nodal);
    }

    kernel::Session& session = kernel::Session::instance();
};

void makeTheTableOfALongLine(benchmark::State& state)
{
    LongLine const line;
    for (auto _ : state) {
        TableModelProxy proxy(LongLine::table());
        QTableModelAdapter const model(proxy);
        benchmark::DoNotOptimize(model.totalRows());
    }
}
BENCHMARK(makeTheTableOfALongLine)->Unit(benchmark::kMicrosecond);

void replaceTheTableUnderItsProxy(benchmark::State& state)
{
    LongLine const line;
    TableModelProxy proxy(LongLine::table());
    QTableModelAdapter const model(proxy);
    for (auto _ : state)
        proxy.setModel(LongLine::table());
}
BENCHMARK(replaceTheTableUnderItsProxy)->Unit(benchmark::kMicrosecond);

/// The table in a view on the screen.
struct ShownLongLine
{
    ShownLongLine()
    {
        view.setModel(&model);
        view.show();
        QApplication::processEvents();
    }

    LongLine const line;
    TableModelProxy proxy{LongLine::table()};
    QTableModelAdapter model{proxy};
    QTableView view;
};

/// Argument: by how many rows the window moves each time.
void moveTheWindowUnderAView(benchmark::State& state)
{
    ShownLongLine shown;
    auto const distance = static_cast<unsigned long long>(state.range(0));
    for (auto _ : state) {
        shown.model.setFirstRow(shown.model.firstRow() == 0 ? distance : 0);
        QApplication::processEvents();
    }
}
BENCHMARK(moveTheWindowUnderAView)->Arg(1)->Arg(500000)->Arg(2000000000)->Unit(benchmark::kMillisecond);

void replaceTheTableUnderAView(benchmark::State& state)
{
    ShownLongLine shown;
    for (auto _ : state) {
        shown.proxy.setModel(LongLine::table());
        QApplication::processEvents();
    }
}
BENCHMARK(replaceTheTableUnderAView)->Unit(benchmark::kMillisecond);

void readACellOfTheLastRow(benchmark::State& state)
{
    LongLine const line;
    TableModelProxy proxy(LongLine::table());
    QTableModelAdapter model(proxy);
    QModelIndex const last = model.index(model.showRow(model.totalRows() - 1), 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(model.data(last));
}
BENCHMARK(readACellOfTheLastRow)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldraw::bench
