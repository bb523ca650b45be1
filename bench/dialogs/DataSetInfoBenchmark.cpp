#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "host/KernelBridge.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QTest>

#include <benchmark/benchmark.h>
#include <memory>
#include <string>

namespace veldraw::bench {
namespace {

using dialogs::data::DataSetInfoDialog;
using veldraw::sdk::ui::common::IdleDispatcher;

constexpr int zoneCount = 100000;
constexpr int variableCount = 1000;
constexpr int variablesWithValues = 4;

/// The information window over more zones and variables than anybody looks through.
class CrowdedDesk
{
public:
    CrowdedDesk()
    {
        host::KernelBridge::install();
        session.clear();
        auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
        session.setFrameDataSet(frame->id, makeDataSet());
        session.perform(kernel::SetPlotType(frame->id, PlotType_Cartesian2D));
        mainWindow.show();
        settle();
    }
    ~CrowdedDesk() { session.clear(); }

    static void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
        IdleDispatcher::flush();
    }

    DataSetInfoDialog& open()
    {
        DataSetInfoDialog& dialog = DataSetInfoDialog::getInstance(mainWindow);
        dialog.launch();
        settle();
        return dialog;
    }

    kernel::Session& session = kernel::Session::instance();
    QWidget mainWindow;

private:
    static std::shared_ptr<kernel::DataSet> makeDataSet()
    {
        auto const dataSet = std::make_shared<kernel::DataSet>("Benchmark");
        for (int number = 1; number <= variableCount; ++number)
            dataSet->addVariable(std::make_shared<kernel::Variable>("Variable " + std::to_string(number)));
        for (int number = 1; number <= zoneCount; ++number)
            dataSet->addZone(makeZone(number));
        kernel::Progress progress;
        dataSet->ranges().findAll(progress); // as whoever reads a file does
        return dataSet;
    }

    static std::shared_ptr<kernel::Zone> makeZone(int number)
    {
        auto zone = std::make_shared<kernel::Zone>("Zone " + std::to_string(number), ZoneType_Ordered, 2, 2, 1);
        for (int variable = 0; variable < variablesWithValues; ++variable) {
            auto const values = kernel::Buffer::allocate(FieldDataType_Float, 4);
            for (int point = 0; point < 4; ++point)
                values->setValue(point, number + variable * point);
            zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
        }
        return zone;
    }
};

void openTheInformationOnManyZonesAndVariables(benchmark::State& state)
{
    CrowdedDesk desk;
    for (auto _ : state) {
        DataSetInfoDialog& dialog = desk.open();
        state.PauseTiming();
        if (dialog.findChild<QLabel*>(QStringLiteral("totalPointsLabel"))->text() != QString::number(4LL * zoneCount))
            state.SkipWithError("the points were not counted");
        delete &dialog;
        CrowdedDesk::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openTheInformationOnManyZonesAndVariables)->Unit(benchmark::kMillisecond);

/// With the arrow key, from one zone or variable to the next.
void goThroughAList(benchmark::State& state, char const* listName)
{
    CrowdedDesk desk;
    DataSetInfoDialog& dialog = desk.open();
    auto& list = *dialog.findChild<QListView*>(QLatin1String(listName));
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Home);
    CrowdedDesk::settle();
    for (auto _ : state) {
        bool const isAtEnd = list.currentIndex().row() >= variablesWithValues - 1;
        QTest::keyClick(&list, isAtEnd ? Qt::Key_Home : Qt::Key_Down);
        CrowdedDesk::settle();
    }
    delete &dialog;
}
BENCHMARK_CAPTURE(goThroughAList, zones, "selectedZonesList")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(goThroughAList, variables, "selectedVarsList")->Unit(benchmark::kMillisecond);

/// Argument: how often the data set is locked before the window can follow. However often, the window's pages are filled once.
void lockInOneTurn(benchmark::State& state)
{
    CrowdedDesk desk;
    DataSetInfoDialog& dialog = desk.open();
    int number = 0;
    for (auto _ : state) {
        for (auto times = state.range(0); times > 0; --times)
            desk.session.setLock(*desk.session.activeDataSet(), "Holder " + std::to_string(++number));
        CrowdedDesk::settle();
    }
    if (dialog.findChild<QLabel*>(QStringLiteral("lockedByLabel"))->text() != QStringLiteral("Holder %1").arg(number))
        state.SkipWithError("the window did not follow");
    delete &dialog;
}
BENCHMARK(lockInOneTurn)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);

/// Argument: how many zones are hidden before the window can follow. Its lists of zones are read twice at most.
void hideInOneTurn(benchmark::State& state)
{
    CrowdedDesk desk;
    DataSetInfoDialog& dialog = desk.open();
    auto& list = *dialog.findChild<QListView*>(QStringLiteral("selectedZonesList"));
    kernel::DataSet& dataSet = *desk.session.activeDataSet();
    auto const times = static_cast<int>(state.range(0));
    for (auto _ : state) {
        for (int zone = 1; zone <= times; ++zone)
            desk.session.perform(kernel::EnableZone(dataSet, zone, false));
        CrowdedDesk::settle();
        state.PauseTiming();
        if (list.model()->rowCount() != zoneCount - times)
            state.SkipWithError("the window did not follow");
        for (int zone = 1; zone <= times; ++zone)
            desk.session.undo();
        CrowdedDesk::settle();
        state.ResumeTiming();
    }
    delete &dialog;
}
BENCHMARK(hideInOneTurn)->Arg(1)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veldraw::bench
