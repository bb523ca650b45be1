#include "host/ArrowCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace veldraw::host {

ArrowCursor::ArrowCursor()
    : m_isPushed(qobject_cast<QGuiApplication*>(QCoreApplication::instance()) && QGuiApplication::overrideCursor())
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
