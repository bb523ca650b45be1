#include "app/import/zones/CoordinateLoader.h"

#include "app/files/SizeCheck.h"

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr std::int64_t pointsBetweenChecks = 1 << 20;

} // namespace

ImageCoordinateLoader::ImageCoordinateLoader(std::array<std::int64_t, 3> const& dims, double first,
                                             std::array<double, 3> const& steps,
                                             std::array<std::int64_t, 3> const& start)
    : CoordinateLoader(dims, FieldDataType_Double)
    , m_first(first)
    , m_steps(steps)
    , m_start(start)
{
}

double ImageCoordinateLoader::at(std::int64_t i, std::int64_t j, std::int64_t k) const
{
    return m_steps[0] * static_cast<double>(i + m_start[0]) + m_steps[1] * static_cast<double>(j + m_start[1]) +
           m_steps[2] * static_cast<double>(k + m_start[2]) + m_first;
}

std::shared_ptr<kernel::Buffer> ImageCoordinateLoader::load(kernel::Progress& progress)
{
    checkMemoryFor(static_cast<double>(size()) * sizeof(double));
    auto values = kernel::Buffer::allocate(FieldDataType_Double, size());
    auto* const target = static_cast<double*>(values->mutableData());
    std::int64_t n = 0;
    for (std::int64_t k = 0; k < dims()[2]; ++k) {
        for (std::int64_t j = 0; j < dims()[1]; ++j) {
            for (std::int64_t i = 0; i < dims()[0]; ++i) {
                target[n] = at(i, j, k);
                if (++n % pointsBetweenChecks == 0) {
                    progress.check();
                    progress.advance(pointsBetweenChecks);
                }
            }
        }
    }
    return values;
}

kernel::ValueRange ImageCoordinateLoader::range() const
{
    // The coordinate is monotonous along each index, so its limits are at corners.
    kernel::ValueRange range{kernel::ValueRange::State::Exact, at(0, 0, 0), at(0, 0, 0)};
    for (int corner = 1; corner < 8; ++corner) {
        double const value = at((corner & 1) != 0 ? dims()[0] - 1 : 0, (corner & 2) != 0 ? dims()[1] - 1 : 0,
                                (corner & 4) != 0 ? dims()[2] - 1 : 0);
        range.min = std::min(range.min, value);
        range.max = std::max(range.max, value);
    }
    return std::isfinite(range.min) && std::isfinite(range.max) ? range : kernel::ValueRange{};
}

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
