#include "operations/Suggestion.h"

#include "kernel/base/Text.h"

#include <algorithm>
#include <numeric>

namespace veldraw::operations {

namespace {

/// The least number of letters that are inserted, deleted or replaced to make one text of another (Levenshtein 1966).
std::size_t distance(std::string const& from, std::string const& to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            std::size_t const replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string suggestion(std::string const& unknown, std::vector<std::string> const& names)
{
    constexpr std::size_t longest = 100; // whatever is longer is no misspelt name
    if (unknown.empty() || unknown.size() > longest)
        return {};
    std::string const wanted = kernel::lowered(unknown);
    std::string nearest;
    // Neither most letters nor all of a short name differ.
    std::size_t least = std::min(std::max<std::size_t>(1, unknown.size() / 3) + 1, unknown.size());
    for (std::string const& name : names) {
        std::size_t const difference = name.size() > longest ? least : distance(wanted, kernel::lowered(name));
        if (difference < least) {
            least = difference;
            nearest = name;
        }
    }
    return nearest.empty() ? std::string() : " Did you mean \"" + nearest + "\"?";
}

} // namespace veldraw::operations
