#pragma once

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

/// @return @p number less @p by, and 0 where that would be below 0
inline unsigned long long reduced(unsigned long long number, unsigned long long by)
{
    return number - std::min(number, by);
}

} // namespace veldraw::sdk::ui::propertymanager
