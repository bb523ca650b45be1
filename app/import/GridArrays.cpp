#include "app/import/GridArrays.h"

#include "app/import/RawArrayLoader.h"

namespace veldraw::app {

GridArrays::GridArrays(std::string const& path, std::string const& extension)
    : m_file(path)
    , m_extension(extension)
    , m_list(path)
{
}

double GridArrays::bytesOfComputedCoordinates() const
{
    return storesNoPoints() ? static_cast<double>(m_list.pointCount()) * 3.0 * sizeof(double) : 0.0;
}

RawArray GridArrays::rawArray(XmlArrayList::Array const& array) const
{
    return {m_file, *array.offset,       *array.type, array.values / array.components, array.components,
            0,      m_list.isBigEndian()};
}

bool GridArrays::canBeMapped(XmlArrayList::Array const& array) const
{
    return array.type && array.offset && RawArrayLoader::canBeMapped(rawArray(array));
}

double GridArrays::bytesToLoad(LoadingPlan const& plan) const
{
    double bytes = plan.mayCompute(m_list.pointCount()) ? bytesOfComputedCoordinates() : 0.0;
    for (auto const* arrays : {&m_list.coordinates(), &m_list.ofPoints(), &m_list.ofCells()}) {
        for (XmlArrayList::Array const& array : *arrays)
            bytes += arrays != &m_list.ofCells() && canBeMapped(array) ? 0.0 : array.bytes();
    }
    return bytes;
}

} // namespace veldraw::app
