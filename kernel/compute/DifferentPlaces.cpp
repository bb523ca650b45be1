#include "kernel/compute/DifferentPlaces.h"

#include "kernel/base/Watch.h"
#include "kernel/compute/SpatialOrder.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

class PlaceReader : public PointReader
{
public:
    explicit PlaceReader(PlanePlace const* places)
        : m_places(places)
    {
    }

    int dimensions() const override { return 2; }

    void read(std::uint32_t point, double* place) const override
    {
        std::copy(m_places[point].begin(), m_places[point].end(), place);
    }

private:
    PlanePlace const* m_places;
};

} // namespace

std::vector<std::uint32_t> differentInSpace(PlanePlace const* places, std::vector<std::uint32_t> points,
                                            Progress& progress)
{
    sortInSpace(PlaceReader(places), points, progress); // equal ones follow each other then
    Watch watch(progress);
    auto end = points.begin();
    for (auto at = points.begin(); at != points.end(); ++at) {
        watch.count();
        if (end != points.begin() && places[*at] == places[end[-1]]) {
            end[-1] = std::min(end[-1], *at);
        } else {
            *end++ = *at;
        }
    }
    points.erase(end, points.end());
    return points;
}

} // namespace veldraw::kernel
