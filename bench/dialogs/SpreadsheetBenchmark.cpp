#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "dialogs/spreadsheet/DataSpreadsheetPropertiesManager.h"
#include "host/KernelBridge.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <fstream>
#include <string>
#include <sys/mman.h>

namespace veldraw::bench {
namespace {

using sdk::ui::dialogs::DataSpreadsheetDialog;
using veldraw::sdk::ui::common::IdleDispatcher;

constexpr std::int64_t rows = 3000000000;

/// Resident memory of the process in bytes.
double residentBytes()
{
    std::ifstream statm("/proc/self/statm");
    double pages = 0;
    double resident = 0;
    statm >> pages >> resident;
    return resident * 4096;
}

/// The spreadsheet over the one zone of a data set that is made for it, in the application's first frame.
class Sheet
{
public:
    ~Sheet() { session.clear(); }

    void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
        IdleDispatcher::flush();
    }

    DataSpreadsheetDialog& dialog() { return DataSpreadsheetDialog::getInstance(window); }
    QTableView& table() { return *dialog().findChild<QTableView*>(); }

    kernel::Session& session = kernel::Session::instance();
    std::shared_ptr<kernel::DataSet> const dataSet = std::make_shared<kernel::DataSet>("Benchmark");
    QWidget window;

protected:
    Sheet()
    {
        host::KernelBridge::install();
        session.clear();
    }

    void show()
    {
        session.setFrameDataSet(session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0})->id, dataSet);
        window.show();
        settle();
    }
};

/// A line of three billion values whose pages nobody has touched, as a sparse file gives them.
class LongSheet : public Sheet
{
public:
    LongSheet()
    {
        dataSet->addVariable(std::make_shared<kernel::Variable>("V"));
        auto const zone = std::make_shared<kernel::Zone>("line", ZoneType_Ordered, rows, 1, 1);
        dataSet->addZone(zone);
        zone->fields[0] = kernel::Field(std::make_shared<kernel::ShareGroup>(mapped()), ValueLocation_Nodal);
        show();
    }

private:
    static std::shared_ptr<kernel::Buffer> mapped()
    {
        void* const memory =
            mmap(nullptr, rows * 4, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        std::shared_ptr<void> const owner(memory, [](void* pages) { munmap(pages, rows * 4); });
        return kernel::Buffer::adopt(FieldDataType_Float, rows, memory, 1, owner);
    }
};

/// A plane of three rows with more columns than a view holds.
class WidePlane : public Sheet
{
public:
    WidePlane()
    {
        dataSet->addVariable(std::make_shared<kernel::Variable>("V"));
        auto const zone = std::make_shared<kernel::Zone>("plane", ZoneType_Ordered, 3, 3000000, 1);
        dataSet->addZone(zone);
        zone->fields[0] =
            kernel::Field(std::make_shared<kernel::ShareGroup>(kernel::Buffer::allocate(FieldDataType_Float, 9000000)),
                          ValueLocation_Nodal);
        show();
    }
};

/// A line of three points with more variables than a view holds columns; the last one has values.
class WideSheet : public Sheet
{
public:
    WideSheet()
    {
        for (int number = 1; number <= variables; ++number)
            dataSet->addVariable(std::make_shared<kernel::Variable>("V" + std::to_string(number)));
        auto const zone = std::make_shared<kernel::Zone>("line", ZoneType_Ordered, 3, 1, 1);
        dataSet->addZone(zone);
        auto const values = kernel::Buffer::allocate(FieldDataType_Float, 3);
        for (int index = 0; index < 3; ++index)
            values->setValue(index, index);
        zone->fields.back() = kernel::Field(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
        show();
    }

    static constexpr int variables = 1200000;
};

void openTheSpreadsheetOnALongLine(benchmark::State& state)
{
    LongSheet sheet;
    static double growth = 0; // of the very first opening; later ones find memory that the process kept
    for (auto _ : state) {
        double const before = residentBytes();
        DataSpreadsheetDialog& dialog = sheet.dialog();
        dialog.launch();
        sheet.settle();
        growth = std::max(growth, residentBytes() - before);
        state.PauseTiming();
        if (sheet.table().model()->rowCount() == 0)
            state.SkipWithError("the table is empty");
        delete &dialog;
        sheet.settle();
        state.ResumeTiming();
    }
    state.counters["MB"] = growth / 1e6;
}
BENCHMARK(openTheSpreadsheetOnALongLine)->Unit(benchmark::kMillisecond);

template <typename SheetType, int key>
void goByKey(benchmark::State& state)
{
    SheetType sheet;
    DataSpreadsheetDialog& dialog = sheet.dialog();
    dialog.launch();
    sheet.settle();
    sheet.table().setFocus();
    Qt::KeyboardModifiers const modifiers = key == Qt::Key_PageDown ? Qt::NoModifier : Qt::ControlModifier;
    bool isAtEnd = false;
    for (auto _ : state) {
        // There and back, so that each key has a way to go.
        int const pressed = key == Qt::Key_End && isAtEnd ? static_cast<int>(Qt::Key_Home) : key;
        QTest::keyClick(&sheet.table(), static_cast<Qt::Key>(pressed), modifiers);
        isAtEnd = !isAtEnd;
        sheet.settle();
    }
    delete &dialog;
}
BENCHMARK_TEMPLATE(goByKey, LongSheet, Qt::Key_End)->Name("goToTheOtherEndOfALongLine")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(goByKey, LongSheet, Qt::Key_PageDown)->Name("turnAPageOfALongLine")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(goByKey, WidePlane, Qt::Key_End)->Name("goToTheOtherEndOfAWidePlane")->Unit(benchmark::kMillisecond);

void openTheSpreadsheetOnManyVariables(benchmark::State& state)
{
    WideSheet sheet;
    for (auto _ : state) {
        DataSpreadsheetDialog& dialog = sheet.dialog();
        dialog.launch();
        sheet.settle();
        state.PauseTiming();
        if (sheet.table().model()->columnCount() == 0)
            state.SkipWithError("the table is empty");
        delete &dialog;
        sheet.settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openTheSpreadsheetOnManyVariables)->Unit(benchmark::kMillisecond);

void editAValueOfManyVariablesAndTakeItBack(benchmark::State& state)
{
    WideSheet sheet;
    DataSpreadsheetDialog& dialog = sheet.dialog();
    dialog.launch();
    sheet.settle();
    sheet.table().setFocus();
    QTest::keyClick(&sheet.table(), Qt::Key_End, Qt::ControlModifier);
    sheet.settle();
    for (auto _ : state) {
        if (!sheet.table().model()->setData(sheet.table().currentIndex(), QStringLiteral("7"))) {
            state.SkipWithError("the edit was refused");
            break;
        }
        sheet.settle();
        sheet.session.undo();
        sheet.settle();
    }
    delete &dialog;
}
BENCHMARK(editAValueOfManyVariablesAndTakeItBack)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veldraw::bench
