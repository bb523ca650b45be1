// What a window on a data set asks for when something else is selected: 100,000 zones with 100 variables, nothing loaded. The argument is
// whether the kernel has told of a change before each round.
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <benchmark/benchmark.h>

using namespace veldraw;

namespace {

constexpr int zones = 100000;
constexpr int variables = 100;

/// Knows the range of values that nobody loads.
class RangeLoader : public kernel::ValueLoader
{
public:
    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override { return nullptr; }
    kernel::ValueRange range() const override { return {kernel::ValueRange::State::Exact, 0.0, 1.0}; }
};

kernel::Session& session()
{
    return kernel::Session::instance();
}

std::shared_ptr<kernel::DataSet> makeData()
{
    auto dataSet = std::make_shared<kernel::DataSet>("Benchmark");
    for (int variable = 1; variable <= variables; ++variable)
        dataSet->addVariable(std::make_shared<kernel::Variable>("v" + std::to_string(variable)));
    auto const loader = std::make_shared<RangeLoader>();
    for (int zone = 1; zone <= zones; ++zone) {
        auto made = std::make_shared<kernel::Zone>("Zone " + std::to_string(zone), ZoneType_Ordered, 2, 1, 1);
        for (int variable = 1; variable <= variables; ++variable)
            made->fields.emplace_back(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, 2, loader),
                                      ValueLocation_Nodal);
        dataSet->addZone(made);
    }
    return dataSet;
}

/// A frame that shows the data, with a line map for each zone.
void show(PlotType_e plotType)
{
    static std::shared_ptr<kernel::Frame> const frame = [] {
        auto made = std::make_shared<kernel::Frame>("frame", kernel::Rectangle{0, 0, 4, 3});
        made->dataSet = makeData();
        session().openPage({made});
        made->lineMaps.resize(zones);
        for (int zone = 1; zone <= zones; ++zone)
            made->lineMaps[static_cast<std::size_t>(zone - 1)].zone = made->dataSet->zone(zone)->id;
        return made;
    }();
    session().perform(kernel::SetPlotType(frame->id, plotType));
}

void ask(int variable)
{
    double min = 0.0;
    double max = 0.0;
    benchmark::DoNotOptimize(sdk::getActiveFieldMaps().isEmpty());
    benchmark::DoNotOptimize(sdk::getActiveLineMaps().isEmpty());
    benchmark::DoNotOptimize(sdk::isVarRangeEstimatedForAnyActiveZones(variable));
    bool const isLine = sdk::isValidLinePlotType(session().activeFrame()->plotType);
    sdk::Set const active = isLine ? sdk::getZonesFromActiveLineMaps() : sdk::getActiveZones();
    benchmark::DoNotOptimize(sdk::getVarMinMaxForZoneSet(variable, active, false, min, max));
}

/// Another zone, the same variable.
void selectZone(benchmark::State& state, PlotType_e plotType)
{
    show(plotType);
    ask(1);
    for (auto _ : state) {
        if (state.range(0) != 0)
            session().events().emitEvent({StateChange_PickList, {}, {}, {}, 0});
        ask(1);
    }
}

/// A variable that was not asked for since all zones may have changed.
void selectVariable(benchmark::State& state, PlotType_e plotType)
{
    show(plotType);
    int variable = 0;
    for (auto _ : state) {
        variable = variable % variables + 1;
        if (variable == 1) {
            state.PauseTiming();
            session().events().emitEvent({StateChange_ZonesEnabled, {}, {}, {}, 0});
            ask(variables);
            state.ResumeTiming();
        }
        ask(variable);
    }
}

} // namespace

BENCHMARK_CAPTURE(selectZone, field_plot, PlotType_Cartesian2D)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(selectZone, line_plot, PlotType_XYLine)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(selectVariable, field_plot, PlotType_Cartesian2D)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(selectVariable, line_plot, PlotType_XYLine)->Unit(benchmark::kMillisecond);
