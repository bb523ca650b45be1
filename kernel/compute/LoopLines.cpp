#include "kernel/compute/LoopLines.h"

#include <map>

namespace veldraw::kernel {

namespace {

/// The open lines that end at each place.
using Ends = std::map<PlanePlace, std::vector<std::size_t>>;

/// The lines that follow each other from the end of a line, up to itself or to where none or several go on.
/// @return the chain; empty when it does not come back
std::vector<std::size_t> chainFrom(std::size_t line, std::vector<std::vector<PlanePlace>> const& lines,
                                   Ends const& ends, std::vector<bool>& areSeen)
{
    std::vector<std::size_t> chain;
    std::size_t current = line;
    PlanePlace end = lines[line].back();
    do {
        chain.push_back(current);
        areSeen[current] = true;
        std::vector<std::size_t> const& here = ends.at(end);
        if (here.size() != 2) {
            return {};
        }
        current = here[0] == current ? here[1] : here[0];
        if (areSeen[current] && current != line) {
            return {};
        }
        end = lines[current].front() == end ? lines[current].back() : lines[current].front();
    } while (current != line);
    return chain;
}

} // namespace

std::vector<bool> findLoops(std::vector<std::vector<PlanePlace>> const& lines)
{
    std::vector<bool> result(lines.size());
    Ends ends;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (lines[line].empty()) {
            continue;
        }
        result[line] = lines[line].front() == lines[line].back();
        if (!result[line]) {
            ends[lines[line].front()].push_back(line);
            ends[lines[line].back()].push_back(line);
        }
    }
    std::vector<bool> areSeen = result;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (lines[line].empty() || areSeen[line]) {
            continue;
        }
        for (std::size_t const closed : chainFrom(line, lines, ends, areSeen)) {
            result[closed] = true;
        }
    }
    return result;
}

} // namespace veldraw::kernel
