#include "app/import/coordinates/RectilinearCoordinateLoader.h"

#include "app/import/files/SizeCheck.h"

#include <algorithm>
#include <cmath>

namespace veldraw::app {

RectilinearCoordinateLoader::RectilinearCoordinateLoader(std::array<std::int64_t, 3> const& dims, int axis,
                                                         std::vector<double> positions, FieldDataType_e type)
    : CoordinateLoader(dims, type)
    , m_axis(axis)
    , m_positions(std::move(positions))
{
}

std::shared_ptr<kernel::Buffer> RectilinearCoordinateLoader::load(kernel::Progress& progress)
{
    checkMemoryFor(static_cast<double>(kernel::Buffer::bytesOf(type(), size())));
    auto values = kernel::Buffer::allocate(type(), size());
    if (type() == FieldDataType_Float)
        fill(static_cast<float*>(values->mutableData()), progress);
    else
        fill(static_cast<double*>(values->mutableData()), progress);
    return values;
}

template <typename Number>
void RectilinearCoordinateLoader::fill(Number* target, kernel::Progress& progress) const
{
    std::vector<Number> row(static_cast<std::size_t>(dims()[0]));
    if (m_axis == 0)
        std::transform(m_positions.begin(), m_positions.end(), row.begin(),
                       [](double position) { return static_cast<Number>(position); });
    for (std::int64_t k = 0; k < dims()[2]; ++k) {
        for (std::int64_t j = 0; j < dims()[1]; ++j) {
            progress.check();
            if (m_axis != 0)
                std::fill(row.begin(), row.end(),
                          static_cast<Number>(m_positions[static_cast<std::size_t>(m_axis == 1 ? j : k)]));
            target = std::copy(row.begin(), row.end(), target);
            progress.advance(dims()[0]);
        }
    }
}

kernel::ValueRange RectilinearCoordinateLoader::range() const
{
    kernel::ValueRange range;
    for (double const position : m_positions) {
        if (!std::isfinite(position))
            continue;
        range.min = range.isValid() ? std::min(range.min, position) : position;
        range.max = range.isValid() ? std::max(range.max, position) : position;
        range.state = kernel::ValueRange::State::Exact;
    }
    return range;
}

} // namespace veldraw::app
