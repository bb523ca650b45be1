#pragma once

#include <set>
#include <vector>

namespace veldraw::kernel {

/// An ordered set of one-based numbers of zones, variables or maps.
using NumberSet = std::set<int>;

/// The numbers of @p set in ascending order.
inline std::vector<int> toVector(NumberSet const& set)
{
    return {set.begin(), set.end()};
}

} // namespace veldraw::kernel

/// The kernel's number set behind the C interface.
struct Set_s
{
    veldraw::kernel::NumberSet members;
};
