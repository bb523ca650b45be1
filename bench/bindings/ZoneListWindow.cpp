#include "bench/bindings/ZoneListWindow.h"

#include "bench/bindings/ManyZones.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"

#include <QApplication>

#include <boost/make_shared.hpp>

namespace veldraw::bench {

using sdk::ui::dialogs::propertybindings::BindingInterface;
using sdk::ui::dialogs::propertybindings::ListViewPropertyBinding;

ZoneListWindow::ZoneListWindow(int zoneCount)
    : dataSet(manyZones(zoneCount))
    , selection(boost::make_shared<Property<Values>>())
{
    host::KernelBridge::install();
    session.clear();
    auto const frame = session.createFrame("Frame 001", kernel::Rectangle{0.0, 0.0, 4.0, 3.0});
    session.setFrameDataSet(frame->id, dataSet);
    zones = boost::make_shared<sdk::ui::dialogs::propertybindings::models::ZoneListModel>(&sdk::getEnabledZonesForFrame,
                                                                                          true);
    binding =
        std::make_unique<ListViewPropertyBinding>(&view, zones, selection, BindingInterface::ModelUpdateDeferredOnBusy);
    view.resize(300, 600);
    view.show();
    settle();
    QObject::connect(view.model(), &QAbstractItemModel::modelReset, [this] { ++resets; });
}

void ZoneListWindow::settle()
{
    sdk::ui::common::IdleDispatcher::flush();
    QApplication::processEvents();
}

ZoneListWindow::Values ZoneListWindow::everyNth(int first, int last, int step)
{
    Values values;
    for (int value = first; value <= last; value += step)
        values.insert(values.end(), value);
    return values;
}

} // namespace veldraw::bench
