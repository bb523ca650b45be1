#include "app/plot/DepthLayers.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>

namespace veldraw::app {

namespace {

using Bounds = DepthLayers::Bounds;
using Neighbours = std::vector<std::vector<std::size_t>>; // of each box, by their numbers; a box is its own neighbour

constexpr double noise = 1e-5;             // of single precision in a scene one unit wide
constexpr std::size_t mostTests = 2000000; // of two boxes, which takes some ten milliseconds

bool isNothing(Bounds const& box)
{
    return box[0] > box[1];
}

// Made such that two boxes overlap where their contents share room. What merely touches does not, but a flat thing may lie on the
// outside of another.
Bounds roomOf(Bounds box)
{
    for (std::size_t low = 0; low < box.size(); low += 2) {
        bool const isFlat = box[low + 1] - box[low] <= noise;
        double const growth = isFlat ? noise : -0.5 * noise;
        box[low] -= growth;
        box[low + 1] += growth;
    }
    return box;
}

bool overlap(Bounds const& a, Bounds const& b)
{
    for (std::size_t low = 0; low < a.size(); low += 2)
        if (a[low] > b[low + 1] || b[low] > a[low + 1])
            return false;
    return true;
}

// Along which the boxes are shortest, so that few of them stand side by side.
std::size_t sweepAxis(std::vector<Bounds> const& boxes)
{
    std::array<double, 3> shares{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double low = boxes.front()[2 * axis];
        double high = boxes.front()[2 * axis + 1];
        for (Bounds const& box : boxes) {
            low = std::min(low, box[2 * axis]);
            high = std::max(high, box[2 * axis + 1]);
            shares[axis] += box[2 * axis + 1] - box[2 * axis];
        }
        shares[axis] /= high - low;
    }
    return static_cast<std::size_t>(std::min_element(shares.begin(), shares.end()) - shares.begin());
}

// @return nothing where too many boxes would have to be compared
std::optional<Neighbours> neighboursOf(std::vector<Bounds> const& boxes)
{
    std::size_t const axis = sweepAxis(boxes);
    std::vector<std::size_t> order(boxes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a][2 * axis] < boxes[b][2 * axis]; });
    Neighbours neighbours(boxes.size());
    std::size_t tests = 0;
    for (auto a = order.begin(); a != order.end(); ++a) {
        neighbours[*a].push_back(*a);
        for (auto b = a + 1; b != order.end() && boxes[*b][2 * axis] <= boxes[*a][2 * axis + 1]; ++b) {
            if (++tests > mostTests)
                return std::nullopt;
            if (!overlap(boxes[*a], boxes[*b]))
                continue;
            neighbours[*a].push_back(*b);
            neighbours[*b].push_back(*a);
        }
    }
    return neighbours;
}

} // namespace

std::vector<int> DepthLayers::of(std::vector<Bounds> const& bounds)
{
    // Copies and steps of a time series have equal bounds, each of which is compared once.
    std::vector<Bounds> boxes;
    std::map<Bounds, std::size_t> numbers;
    std::vector<std::size_t> boxOf(bounds.size());
    for (std::size_t n = 0; n < bounds.size(); ++n) {
        if (isNothing(bounds[n]))
            continue;
        auto const [place, isNew] = numbers.emplace(bounds[n], boxes.size());
        if (isNew)
            boxes.push_back(roomOf(bounds[n]));
        boxOf[n] = place->second;
    }
    std::vector<int> layers(bounds.size(), 0);
    if (boxes.empty())
        return layers;
    std::optional<Neighbours> const neighbours = neighboursOf(boxes);
    if (!neighbours) {
        std::iota(layers.begin(), layers.end(), 0);
        return layers;
    }
    std::vector<int> next(boxes.size(), 0); // the first layer above all earlier drawings of the box
    for (std::size_t n = 0; n < bounds.size(); ++n) {
        if (isNothing(bounds[n]))
            continue;
        for (std::size_t const neighbour : (*neighbours)[boxOf[n]])
            layers[n] = std::max(layers[n], next[neighbour]);
        next[boxOf[n]] = layers[n] + 1;
    }
    return layers;
}

} // namespace veldraw::app
