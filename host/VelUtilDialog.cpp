#include "platform/vdsdkbase/VelUtilDialog.h"

#include "host/MessagePresenter.h"

namespace {

// Nothing may leave the C functions but by return.
bool present(char const* text, MessageBoxType_e type)
{
    try {
        veldraw::host::MessagePresenter::present(text ? text : "", type);
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

void VelUtilDialogErrMsg(char const* message)
{
    present(message, MessageBoxType_Error);
}

bool VelUtilDialogMessageBox(char const* text, int type)
{
    // What is of no kind is told all the same.
    bool const isKind = type >= MessageBoxType_Error && type <= MessageBoxType_Information;
    return present(text, isKind ? static_cast<MessageBoxType_e>(type) : MessageBoxType_Information);
}
