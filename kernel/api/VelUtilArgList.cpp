#include "platform/vdsdkbase/VelUtilArgList.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/api/ArgumentList.h"

#include <memory>

using namespace veldraw::kernel;
using veldraw::kernel::api::answerOr;

ArgList_s* VelUtilArgListAlloc(void)
{
    return answerOr<ArgList_s*>(nullptr, [] { return std::make_unique<ArgList_s>().release(); });
}

bool VelUtilArgListAppendDouble(ArgList_s* list, char const* name, double value)
{
    return list != nullptr && name != nullptr && answerOr(false, [&] {
               list->arguments.setDouble(name, value);
               return true;
           });
}

bool VelUtilArgListAppendInt(ArgList_s* list, char const* name, long long value)
{
    return list != nullptr && name != nullptr && answerOr(false, [&] {
               list->arguments.setInt(name, value);
               return true;
           });
}

bool VelUtilArgListAppendSet(ArgList_s* list, char const* name, Set_s* set)
{
    return list != nullptr && name != nullptr && set != nullptr && answerOr(false, [&] {
               list->arguments.setNumbers(name, set->members);
               return true;
           });
}

void VelUtilArgListDealloc(ArgList_s** list)
{
    if (list != nullptr) {
        std::unique_ptr<ArgList_s> const old(*list);
        *list = nullptr;
    }
}
