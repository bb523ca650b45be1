#include "dialogs/datasetinfo/DataSetInfoDialog.h"
#include "dialogs/fourier/FourierTransformDialog.h"
#include "dialogs/interpolation/InverseDistanceInterpolationDialog.h"
#include "dialogs/interpolation/KrigingDialog.h"
#include "dialogs/interpolation/LinearInterpDialog.h"
#include "dialogs/smoothing/SmoothDialog.h"
#include "dialogs/smoothing/TriangulateDialog.h"
#include "dialogs/spreadsheet/DataSpreadsheetDialog.h"
#include "dialogs/variableops/DeleteVariableDialog.h"
#include "dialogs/variableops/LoadVariablesDialog.h"
#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "host/KernelBridge.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>
#include <QWidget>

#include <benchmark/benchmark.h>
#include <string>

namespace veldraw::bench {
namespace {

using veldraw::sdk::ui::common::IdleDispatcher;

/// The main window over a data set as large as a person still looks through.
class Desk
{
public:
    Desk()
    {
        host::KernelBridge::install();
        session.clear();
        auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
        auto const dataSet = std::make_shared<kernel::DataSet>("Benchmark");
        for (int number = 1; number <= 100; ++number)
            dataSet->addVariable(std::make_shared<kernel::Variable>("Variable " + std::to_string(number)));
        for (int number = 1; number <= 1000; ++number)
            dataSet->addZone(
                std::make_shared<kernel::Zone>("Zone " + std::to_string(number), ZoneType_Ordered, 2, 2, 1));
        session.setFrameDataSet(frame->id, dataSet);
        session.perform(kernel::SetPlotType(frame->id, PlotType_Cartesian3D));
        mainWindow.show();
        settle();
    }
    ~Desk() { session.clear(); }

    void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
    }

    kernel::Session& session = kernel::Session::instance();
    QWidget mainWindow;
};

template <typename Dialog>
Dialog& instance(QWidget& parent)
{
    return Dialog::getInstance(parent);
}

template <>
dialogs::data::FourierTransformDialog& instance(QWidget& parent)
{
    return dialogs::data::FourierTransformDialog::instance(parent);
}

template <>
dialogs::data::LoadVariablesDialog& instance(QWidget& parent)
{
    return dialogs::data::LoadVariablesDialog::getInstance(parent, 1);
}

template <typename Dialog>
void buildAndDestroy(benchmark::State& state)
{
    Desk desk;
    for (auto _ : state) {
        delete &instance<Dialog>(desk.mainWindow);
        desk.settle();
    }
}

/// From the menu to the painted dialog, and away again.
template <typename Dialog>
void openAndDestroy(benchmark::State& state)
{
    Desk desk;
    for (auto _ : state) {
        Dialog& dialog = instance<Dialog>(desk.mainWindow);
        dialog.launch();
        desk.settle();
        if (!dialog.isVisible())
            state.SkipWithError("the dialog was not shown");
        delete &dialog;
        desk.settle();
    }
}

template <typename Dialog>
void measure(std::string const& name)
{
    for (auto* const benchmark :
         {benchmark::RegisterBenchmark(("buildAndDestroy/" + name).c_str(), buildAndDestroy<Dialog>),
          benchmark::RegisterBenchmark(("openAndDestroy/" + name).c_str(), openAndDestroy<Dialog>)})
        benchmark->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] bool const areAllDialogsRegistered = [] {
    // One line a dialog.
    measure<dialogs::data::AxialDuplicationDialog>("AxialDuplication");
    measure<dialogs::data::AxialRotationDialog>("AxialRotation");
    measure<dialogs::data::CreateMirrorZoneDialog>("CreateMirrorZone");
    measure<dialogs::data::DataSetInfoDialog>("DataSetInformation");
    measure<sdk::ui::dialogs::DataSpreadsheetDialog>("DataSpreadsheet");
    measure<dialogs::data::DeleteVariableDialog>("DeleteVariable");
    measure<dialogs::data::DuplicateZoneDialog>("DuplicateZone");
    measure<dialogs::data::FourierTransformDialog>("FourierTransform");
    measure<dialogs::data::InverseDistanceInterpolationDialog>("InverseDistanceInterpolation");
    measure<dialogs::data::KrigingDialog>("Kriging");
    measure<dialogs::data::LinearInterpDialog>("LinearInterpolation");
    measure<dialogs::data::LoadVariablesDialog>("LoadVariables");
    measure<dialogs::data::SmoothDialog>("Smooth");
    measure<dialogs::data::TriangulateDialog>("Triangulate");
    return true;
}();

} // namespace
} // namespace veldraw::bench
