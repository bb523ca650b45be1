#pragma once

#include "app/import/coordinates/CoordinateLoader.h"

namespace veldraw::app {

/// Computes one coordinate of the points of an image, which stores none: first + i * steps[0] + j * steps[1] + k * steps[2]
/// with i, j and k from the start of the image.
class ImageCoordinateLoader : public CoordinateLoader
{
public:
    /// @param dims  points along I, J and K, each 1 or more
    /// @param start i, j and k of the first point
    ImageCoordinateLoader(std::array<std::int64_t, 3> const& dims, double first, std::array<double, 3> const& steps,
                          std::array<std::int64_t, 3> const& start = {});

    /// @throws ImportError when memory does not suffice; kernel::Interrupted
    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override;

private:
    double at(std::int64_t i, std::int64_t j, std::int64_t k) const;

    double m_first;
    std::array<double, 3> m_steps;
    std::array<std::int64_t, 3> m_start;
};

} // namespace veldraw::app
