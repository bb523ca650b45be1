#include "kernel/compute/LoopLines.h"

#include <map>

namespace veldraw::kernel {

namespace {

/// The open lines that end at each place.
using Ends = std::map<PlanePlace, std::vector<std::size_t>>;

/// Whether the line is in a chain that comes back to it.
bool closesUp(std::size_t line, std::vector<std::vector<PlanePlace>> const& lines, Ends const& ends)
{
    std::size_t current = line;
    PlanePlace end = lines[line].back();
    do {
        std::vector<std::size_t> const& here = ends.at(end);
        if (here.size() != 2) {
            return false;
        }
        current = here[0] == current ? here[1] : here[0];
        end = lines[current].front() == end ? lines[current].back() : lines[current].front();
    } while (current != line);
    return true;
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
    for (std::size_t line = 0; line < lines.size(); ++line) {
        result[line] = result[line] || (!lines[line].empty() && closesUp(line, lines, ends));
    }
    return result;
}

} // namespace veldraw::kernel
