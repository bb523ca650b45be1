/* The kernel's functions can be called from C, and those that are passed on as pointers have exactly these types. */
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtil.h"

bool (*const okToSmooth)(void) = VelUtilQueryOkToSmooth;
int (*const variableNumber)(long long) = VelUtilVarGetNumByUniqueID;

_Static_assert(AuxDataLocation_Layout == 6, "the values of enumerators are part of the interface");
_Static_assert(StateChange_AuxDataOwnersReplaced == 51, "the kinds of events are part of the interface");
_Static_assert(SetValueReturnCode_Pending == 15, "the answers to writes are part of the interface");
