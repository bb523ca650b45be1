#include "app/import/zones/SharedCells.h"

#include <algorithm>
#include <utility>

namespace veldraw::app {

using kernel::Connectivity;

namespace {

template <typename Number>
bool areEqual(Number const* left, Number const* right, std::int64_t count)
{
    if (left == nullptr || right == nullptr)
        return left == right;
    return std::equal(left, left + count, right);
}

bool areEqual(Connectivity const& left, Connectivity const& right)
{
    return left.cellCount == right.cellCount && left.indexCount == right.indexCount &&
           left.faceStreamSize == right.faceStreamSize && areEqual(left.shapes, right.shapes, left.cellCount) &&
           areEqual(left.offsets, right.offsets, left.cellCount + 1) &&
           areEqual(left.indices, right.indices, left.indexCount) &&
           areEqual(left.faceOffsets, right.faceOffsets, left.cellCount) &&
           areEqual(left.faceStream, right.faceStream, left.faceStreamSize);
}

} // namespace

/// The cells that were seen last, as long as somebody has them.
class SharedCells::Last
{
public:
    std::shared_ptr<Connectivity const> knownFor(std::shared_ptr<Connectivity const> cells)
    {
        std::shared_ptr<Connectivity const> const known = m_cells.lock();
        if (known && cells && areEqual(*known, *cells))
            return known;
        if (cells)
            m_cells = cells;
        return cells;
    }

private:
    std::weak_ptr<Connectivity const> m_cells;
};

/// Loads what another loader brings. Loaders run one at a time, so that the cells that were last need no guard.
class SharedCells::Loader : public kernel::DimensionsLoader
{
public:
    Loader(std::shared_ptr<kernel::DimensionsLoader> loader, std::shared_ptr<Last> last)
        : m_loader(std::move(loader))
        , m_last(std::move(last))
    {
    }

    kernel::ZoneDimensions load(kernel::Progress& progress) override
    {
        kernel::ZoneDimensions dimensions = m_loader->load(progress);
        dimensions.connectivity = m_last->knownFor(std::move(dimensions.connectivity));
        return dimensions;
    }

private:
    std::shared_ptr<kernel::DimensionsLoader> m_loader;
    std::shared_ptr<Last> m_last;
};

SharedCells::SharedCells()
    : m_last(std::make_shared<Last>())
{
}

SharedCells::~SharedCells() = default;

void SharedCells::join(kernel::Zone& zone)
{
    if (zone.dimensionsLoader)
        zone.dimensionsLoader = std::make_shared<Loader>(std::move(zone.dimensionsLoader), m_last);
    zone.connectivity = m_last->knownFor(std::move(zone.connectivity));
}

} // namespace veldraw::app
