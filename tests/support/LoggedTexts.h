#pragma once

#include "host/MessageLog.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// What stands in the message log, oldest first.
inline std::vector<std::string> loggedTexts()
{
    std::vector<std::string> texts;
    for (auto const& entry : host::MessageLog::instance().entries())
        texts.push_back(entry.text);
    return texts;
}

} // namespace veldraw::tests
