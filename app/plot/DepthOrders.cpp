#include "app/plot/DepthOrders.h"

#include <algorithm>
#include <iterator>

namespace veldraw::app {

namespace {

using Place = DepthOrders::Place;

int topOf(std::vector<int> const& layers)
{
    return layers.empty() ? 0 : *std::max_element(layers.begin(), layers.end());
}

std::vector<int> layersOf(std::vector<Place> const& places)
{
    std::vector<DepthLayers::Bounds> bounds;
    std::transform(places.begin(), places.end(), std::back_inserter(bounds),
                   [](Place const& place) { return place.bounds; });
    return DepthLayers::of(bounds);
}

std::vector<float> ordersOf(std::vector<int> const& layers, int top)
{
    if (top == 0)
        return {};
    // A few layers stand as near as 50 do: farther apart, a wall between two of them would not hide the rear one. In steps, so
    // that one more layer moves no other.
    int most = 50;
    while (most < top)
        most *= 2;
    std::vector<float> orders;
    for (int const layer : layers)
        orders.push_back(1.0F - static_cast<float>(layer) / static_cast<float>(most));
    return orders;
}

} // namespace

std::vector<float> const& DepthOrders::of(std::vector<Place> const& places)
{
    if (places == m_places)
        return m_orders;
    std::vector<int> layers = layersOf(places);
    std::vector<int> before = layersFoundBefore(places);
    // Unless they would stand much farther apart than is needed.
    if (!before.empty() && 2 * topOf(layers) > topOf(m_layers)) {
        layers = std::move(before);
    } else {
        m_compared = places;
        m_layers = layers;
    }
    m_orders = ordersOf(layers, topOf(m_layers));
    m_places = places;
    return m_orders;
}

// Empty where there is a zone that was not among them, or that was elsewhere.
std::vector<int> DepthOrders::layersFoundBefore(std::vector<Place> const& places) const
{
    std::vector<int> layers;
    auto known = m_compared.begin();
    for (Place const& place : places) {
        known = std::find(known, m_compared.end(), place);
        if (known == m_compared.end())
            return {};
        layers.push_back(m_layers[static_cast<std::size_t>(known - m_compared.begin())]);
        ++known;
    }
    return layers;
}

} // namespace veldraw::app
