#include "app/plot/DepthLayers.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>

namespace veldraw::app {

namespace {

using Bounds = DepthLayers::Bounds;
using Neighbours = std::vector<std::vector<std::size_t>>; // of each box, by their numbers; a box is its own neighbour

constexpr double noise = 1e-5;          // of single precision in a scene one unit wide
constexpr std::size_t mostTests = 2000; // for each box

bool isFlat(Bounds const& box, std::size_t axis)
{
    return box[2 * axis + 1] - box[2 * axis] <= noise;
}

bool isNothing(Bounds const& box)
{
    return box[0] > box[1];
}

bool shareRoom(Bounds const& a, Bounds const& b)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double const shared = std::min(a[2 * axis + 1], b[2 * axis + 1]) - std::max(a[2 * axis], b[2 * axis]);
        // A flat thing may lie on the outside of another.
        if (shared < (isFlat(a, axis) || isFlat(b, axis) ? -noise : noise))
            return false;
    }
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
            shares[axis] += box[2 * axis + 1] - box[2 * axis] + noise;
        }
        shares[axis] /= high - low + noise;
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
        for (auto b = a + 1; b != order.end() && boxes[*b][2 * axis] <= boxes[*a][2 * axis + 1] + noise; ++b) {
            if (++tests > mostTests * boxes.size())
                return std::nullopt;
            if (!shareRoom(boxes[*a], boxes[*b]))
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
    std::vector<int> layers(bounds.size(), 0);
    // Copies and steps of a time series have equal bounds, each of which is compared once.
    std::vector<Bounds> boxes;
    std::map<Bounds, std::size_t> numbers;
    std::vector<std::size_t> boxOf;
    for (Bounds const& each : bounds) {
        auto const [place, isNew] = numbers.emplace(each, boxes.size());
        if (isNew)
            boxes.push_back(each);
        boxOf.push_back(place->second);
    }
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
