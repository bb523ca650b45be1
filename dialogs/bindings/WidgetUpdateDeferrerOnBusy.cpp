#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"

#include "platform/vdsdkcommon/WaitState.h"

#include <QWidget>

namespace veldraw::sdk::ui::dialogs::propertybindings {

WidgetUpdateDeferrerOnBusy::WidgetUpdateDeferrerOnBusy(QWidget& widget)
    : QObject(&widget)
    , m_widget(widget)
    , m_connection(WaitState::connectBusyChanged([this](bool isBusy) { busyChanged(isBusy); }))
{
    busyChanged(WaitState::depth() > 0);
}

WidgetUpdateDeferrerOnBusy::~WidgetUpdateDeferrerOnBusy() = default;

void WidgetUpdateDeferrerOnBusy::busyChanged(bool isBusy)
{
    if (isBusy == m_defers)
        return;
    // The widget's own state counts, not the one that a parent imposes on it for a while.
    if (isBusy && m_widget.testAttribute(Qt::WA_ForceUpdatesDisabled))
        return;
    m_defers = isBusy;
    m_widget.setUpdatesEnabled(!isBusy);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
