#include "host/ArrowCursor.h"

#include "platform/vdsdkcommon/WaitState.h"

#include <QCursor>
#include <QGuiApplication>

namespace veldraw::host {

ArrowCursor::ArrowCursor()
    : m_isPushed(sdk::WaitState::depth() > 0 && qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
{
    if (m_isPushed)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

ArrowCursor::~ArrowCursor()
{
    if (m_isPushed)
        QGuiApplication::restoreOverrideCursor();
}

} // namespace veldraw::host
