#include "platform/vdsdkcommon/WaitState.h"

#include "platform/signals/WholeConnection.h"

#include <QApplication>

#include <cstddef>
#include <utility>

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

// A listener that fails keeps neither the session busy nor the others from hearing; those that have heard take no harm from hearing again.
void endBusyState() noexcept
{
    --openWaitStates;
    if (std::exchange(cursorIsShown, false))
        QGuiApplication::restoreOverrideCursor();
    for (std::size_t left = busyChanged().num_slots(); left > 0; --left) {
        try {
            busyChanged()(false);
            return;
        } catch (...) {
        }
    }
}

} // namespace

WaitState::WaitState()
{
    if (openWaitStates++ > 0)
        return;
    try {
        if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            cursorIsShown = true;
        }
        busyChanged()(true);
    } catch (...) {
        endBusyState(); // there will be no object to do so
        throw;
    }
}

WaitState::~WaitState()
{
    if (openWaitStates > 1)
        --openWaitStates;
    else
        endBusyState();
}

int WaitState::depth()
{
    return openWaitStates;
}

boost::signals2::connection WaitState::connectBusyChanged(BusyChangedSignal::slot_type const& slot)
{
    return sdk::connectWhole(slot, [](auto const& whole) { return busyChanged().connect(whole); });
}

} // namespace veldraw::sdk
