#pragma once

#include "app/plot/DepthLayers.h"
#include "kernel/base/Identifier.h"

#include <vector>

namespace veldraw::app {

/// How far before or behind the others each zone of a plot stands where several may be at the same place.
///
/// Zones that stay keep their depths when others are hidden or come back, so that only what belongs to these is handed to the
/// graphics card again.
class DepthOrders
{
public:
    /// A zone, and where it is in the scene.
    struct Place
    {
        kernel::UniqueId zone = 0;
        DepthLayers::Bounds bounds{};

        bool operator==(Place const& other) const { return zone == other.zone && bounds == other.bounds; }
    };

    /// Of each zone, from 0 for what lies before all others to 1 for what lies behind; empty where nothing lies over another.
    /// @param places in the order of the zones, the last on top
    std::vector<float> const& of(std::vector<Place> const& places);

private:
    std::vector<int> layersFoundBefore(std::vector<Place> const& places) const;

    std::vector<Place> m_places; // of the last call
    std::vector<float> m_orders;
    std::vector<Place> m_compared; // of which the layers were found
    std::vector<int> m_layers;
};

} // namespace veldraw::app
