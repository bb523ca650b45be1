#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>
#include <vector>

/// The kernel's list of texts (UTF-8) behind the C interface.
struct StringList_s
{
    std::vector<std::string> texts;
};
