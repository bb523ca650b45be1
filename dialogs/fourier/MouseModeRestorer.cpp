#include "dialogs/fourier/MouseModeRestorer.h"

#include "platform/vdsdkbase/VelUtilMouse.h"

namespace veldraw::sdk::ui::propertymanager {

MouseModeRestorer::MouseModeRestorer()
    : m_savedMode(VelUtilMouseGetCurrentMode())
{
}

MouseModeRestorer::~MouseModeRestorer()
{
    if (VelUtilMouseIsValidMode(m_savedMode))
        VelUtilMouseSetMode(m_savedMode);
}

} // namespace veldraw::sdk::ui::propertymanager
