#include "kernel/data/Zone.h"

#include "kernel/storage/CellSlots.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

int dimensionalityOf(Connectivity::Shape shape)
{
    switch (shape) {
    case Connectivity::Shape::LineSegment:
        return 1;
    case Connectivity::Shape::Triangle:
    case Connectivity::Shape::Quad:
    case Connectivity::Shape::Polygon:
        return 2;
    case Connectivity::Shape::Tetrahedron:
    case Connectivity::Shape::Brick:
    case Connectivity::Shape::Pyramid:
    case Connectivity::Shape::Prism:
    case Connectivity::Shape::Polyhedron:
        return 3;
    }
    return 3;
}

int dimensionalityOf(Connectivity const* cells)
{
    if (cells == nullptr || cells->shapes == nullptr) {
        return 3;
    }
    int most = 0;
    for (std::int64_t cell = 0; cell < cells->cellCount && most < 3; ++cell) {
        most = std::max(most, dimensionalityOf(cells->shapes[cell]));
    }
    return most;
}

} // namespace

Zone::Zone(std::string zoneName, ZoneType_e zoneType, std::int64_t iDim, std::int64_t jDim, std::int64_t kDim)
    : id(nextUniqueId())
    , name(std::move(zoneName))
    , type(zoneType)
    , i(iDim)
    , j(jDim)
    , k(kDim)
{
}

void Zone::setDimensions(ZoneDimensions const& dimensions) noexcept
{
    i = dimensions.i;
    j = dimensions.j;
    k = dimensions.k;
    connectivity = dimensions.connectivity;
    blanking = dimensions.blanking;
}

std::int64_t Zone::pointCount() const
{
    if (i < 1) {
        return 0;
    }
    if (!isOrdered()) {
        return i;
    }
    return j < 1 || k < 1 ? 0 : i * j * k;
}

std::int64_t Zone::cellCount() const
{
    if (pointCount() == 0) {
        return 0;
    }
    if (!isOrdered()) {
        return std::max<std::int64_t>(j, 0);
    }
    return cellsAlong(i) * cellsAlong(j) * cellsAlong(k);
}

std::int64_t Zone::valueCount(ValueLocation_e location) const
{
    return isOrdered() || location == ValueLocation_Nodal ? pointCount() : cellCount();
}

int Zone::dimensionality() const
{
    switch (type) {
    case ZoneType_Ordered:
        return (i > 1 ? 1 : 0) + (j > 1 ? 1 : 0) + (k > 1 ? 1 : 0);
    case ZoneType_FELineSeg:
        return 1;
    case ZoneType_FETriangle:
    case ZoneType_FEQuad:
    case ZoneType_FEPolygon:
        return 2;
    case ZoneType_FETetra:
    case ZoneType_FEBrick:
    case ZoneType_FEPolyhedron:
        return 3;
    case ZoneType_FEMixed:
        return dimensionalityOf(connectivity.get());
    }
    return 0;
}

std::shared_ptr<HiddenSlots const> Zone::hidden(ValueLocation_e location) const
{
    return blanking ? blanking->hidden(location) : nullptr;
}

bool Zone::isHidden(ValueLocation_e location, std::int64_t slot) const
{
    return blanking && blanking->hidden(location) && blanking->hidden(location)->contains(slot);
}

CountedValues Zone::countedValues(ValueLocation_e location) const
{
    CountedValues counted{{}, hidden(location)};
    if (isOrdered() && location == ValueLocation_CellCentered) {
        counted.cellsOf = {i, j, k};
    }
    return counted;
}

ValueRange Zone::range(int variable) const
{
    if (variable < 1 || variable > static_cast<int>(fields.size())) {
        return {};
    }
    Field const& field = fields[static_cast<std::size_t>(variable - 1)];
    if (field.isPassive()) {
        return {};
    }
    return field.group()->range(countedValues(field.location()));
}

} // namespace veldraw::kernel
