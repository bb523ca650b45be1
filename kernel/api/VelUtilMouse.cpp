#include "platform/vdsdkbase/VelUtilMouse.h"

#include "kernel/api/ApiSupport.h"

using veldraw::kernel::Session;
using veldraw::kernel::api::session;

int VelUtilMouseGetCurrentMode(void)
{
    return session().mouseMode();
}

bool VelUtilMouseIsValidMode(int mode)
{
    return Session::isMouseMode(mode);
}

bool VelUtilMouseSetMode(int mode)
{
    return session().setMouseMode(mode);
}
