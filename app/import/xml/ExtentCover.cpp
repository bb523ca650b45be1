#include "app/import/xml/ExtentCover.h"

#include "app/files/ImportError.h"

#include <algorithm>

namespace veldraw::app {

namespace {

using Box = ExtentCover::Box;

constexpr std::int64_t mostSteps = 200000000; // a second or two
constexpr std::size_t axes = 3;

bool hasNothing(Box const& box)
{
    for (std::size_t axis = 0; axis < axes; ++axis) {
        if (box[2 * axis] >= box[2 * axis + 1])
            return true;
    }
    return false;
}

bool doMeet(Box const& a, Box const& b)
{
    for (std::size_t axis = 0; axis < axes; ++axis) {
        if (std::max(a[2 * axis], b[2 * axis]) >= std::min(a[2 * axis + 1], b[2 * axis + 1]))
            return false;
    }
    return true;
}

// What is left of a box when a piece that meets it is taken away: up to two slices along each axis.
void addRest(Box rest, Box const& piece, std::vector<Box>& boxes)
{
    for (std::size_t axis = 0; axis < axes; ++axis) {
        std::size_t const first = 2 * axis;
        std::size_t const last = first + 1;
        if (piece[first] > rest[first]) {
            boxes.push_back(rest);
            boxes.back()[last] = piece[first];
            rest[first] = piece[first];
        }
        if (piece[last] < rest[last]) {
            boxes.push_back(rest);
            boxes.back()[first] = piece[last];
            rest[last] = piece[last];
        }
    }
}

} // namespace

ExtentCover::ExtentCover(Box const& whole)
{
    if (!hasNothing(whole))
        m_left.push_back(whole);
}

void ExtentCover::add(Box const& piece)
{
    if (hasNothing(piece))
        return;
    m_steps += static_cast<std::int64_t>(m_left.size());
    if (m_steps > mostSteps)
        throw ImportError("its pieces are too many, and too oddly placed, to be put together");
    std::vector<Box> left;
    for (Box const& box : m_left) {
        if (doMeet(box, piece))
            addRest(box, piece, left);
        else
            left.push_back(box);
    }
    m_left = std::move(left);
}

} // namespace veldraw::app
