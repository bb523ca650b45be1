#pragma once

#include <algorithm>
#include <iterator>
#include <set>
#include <vector>

namespace veldraw::kernel {

/// An ordered set of one-based numbers of zones, variables or maps.
using NumberSet = std::set<int>;

/// The numbers of @p set in ascending order.
inline std::vector<int> toVector(NumberSet const& set)
{
    // The constructor from a range would walk the tree twice, once to count it.
    std::vector<int> numbers;
    numbers.reserve(set.size());
    std::copy(set.begin(), set.end(), std::back_inserter(numbers));
    return numbers;
}

} // namespace veldraw::kernel

/// The kernel's number set behind the C interface.
struct Set_s
{
    veldraw::kernel::NumberSet members;
};
