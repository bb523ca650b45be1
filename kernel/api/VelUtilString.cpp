#include "platform/vdsdkbase/VelUtilString.h"

#include "kernel/api/ApiSupport.h"

#include <memory>

void VelUtilStringDealloc(char** string)
{
    if (string != nullptr) {
        std::unique_ptr<char[]> const old(*string);
        *string = nullptr;
    }
}

void VelUtilStringListDealloc(StringList_s** list)
{
    if (list != nullptr) {
        std::unique_ptr<StringList_s> const old(*list);
        *list = nullptr;
    }
}

int VelUtilStringListGetCount(StringList_s* list)
{
    return list == nullptr ? 0 : static_cast<int>(list->texts.size());
}

char const* VelUtilStringListGetRawStringPtr(StringList_s* list, int number)
{
    bool const exists = list != nullptr && number >= 1 && number <= static_cast<int>(list->texts.size());
    return exists ? list->texts[static_cast<std::size_t>(number - 1)].c_str() : nullptr;
}
