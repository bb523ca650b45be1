#pragma once

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// Which limit of a range something is about.
enum class RangeLimit
{
    Min = 0,
    Max = 1
};

/// "Min:" or "Max:"; "Min (est):" or "Max (est):" for the limit of a range that is an estimate.
inline std::string rangeLimitLabel(RangeLimit limit, bool isEstimated)
{
    std::string const name = limit == RangeLimit::Min ? "Min" : "Max";
    return name + (isEstimated ? " (est):" : ":");
}

} // namespace veldraw::sdk::ui::propertymanager
