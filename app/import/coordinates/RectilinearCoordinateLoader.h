#pragma once

#include "app/import/coordinates/CoordinateLoader.h"

#include <vector>

namespace veldraw::app {

/// Computes one coordinate of the points of a rectilinear grid, which stores it once along its axis.
class RectilinearCoordinateLoader : public CoordinateLoader
{
public:
    /// @param dims      points along I, J and K, each 1 or more
    /// @param axis      0 to 2: the index that the coordinate goes with
    /// @param positions one for each value of that index
    /// @param type      FieldDataType_Float or FieldDataType_Double
    RectilinearCoordinateLoader(std::array<std::int64_t, 3> const& dims, int axis, std::vector<double> positions,
                                FieldDataType_e type);

    /// @throws ImportError when memory does not suffice; kernel::Interrupted
    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override;

private:
    template <typename Number>
    void fill(Number* target, kernel::Progress& progress) const;

    int m_axis;
    std::vector<double> m_positions;
};

} // namespace veldraw::app
