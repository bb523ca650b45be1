#include "platform/vdsdkcommon/WaitState.h"

#include <QApplication>

namespace veldraw::sdk {

namespace {

int openWaitStates = 0;
bool cursorIsShown = false;

// Never destroyed: widgets of static lifetime may still disconnect at the end of the process.
WaitState::BusyChangedSignal& busyChanged()
{
    static auto* const signal = new WaitState::BusyChangedSignal;
    return *signal;
}

} // namespace

WaitState::WaitState()
{
    if (++openWaitStates > 1)
        return;
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        cursorIsShown = true;
    }
    busyChanged()(true);
}

WaitState::~WaitState()
{
    if (--openWaitStates > 0)
        return;
    if (cursorIsShown) {
        QGuiApplication::restoreOverrideCursor();
        cursorIsShown = false;
    }
    busyChanged()(false);
}

int WaitState::depth()
{
    return openWaitStates;
}

boost::signals2::connection WaitState::connectBusyChanged(BusyChangedSignal::slot_type const& slot)
{
    return busyChanged().connect(slot);
}

} // namespace veldraw::sdk
