#include "app/import/formats/vtkxml/GridArrays.h"

#include "app/import/cells/ImportedCells.h"
#include "app/import/raw/RawArray.h"
#include "app/import/raw/RawArrayLoader.h"

#include <array>

namespace veldraw::app {

GridArrays::GridArrays(std::string const& path, std::string const& extension, kernel::Progress& progress)
    : m_progress(progress)
    , m_file(path)
    , m_extension(extension)
    , m_list(path, progress)
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

// Null where the types of cells are not at hand.
XmlArrayList::Array const* GridArrays::cellTypes() const
{
    if (m_extension != "vtu" || !m_list.isConsistent())
        return nullptr;
    for (XmlArrayList::Array const& array : m_list.meshArrays()) {
        bool const isThere = array.type == RawType::UInt8 && array.offset && array.values == m_list.cellCount();
        if (array.name == "types" && isThere)
            return &array;
    }
    return nullptr;
}

double GridArrays::bytesOfCells() const
{
    if (!cellTypes())
        return 0.0;
    double bytes = 0.0;
    for (XmlArrayList::Array const& array : m_list.meshArrays())
        bytes += static_cast<double>(array.values) *
                 static_cast<double>(array.name == "types" ? sizeof(std::uint8_t) : sizeof(std::int64_t));
    return bytes;
}

std::optional<DeferredCells> GridArrays::plainCells() const
{
    XmlArrayList::Array const* const types = cellTypes();
    if (!types || types->values == 0)
        return std::nullopt;
    kernel::Progress part(m_progress, 0);
    auto const values = readValues(rawArray(*types), part);
    auto const* const first = static_cast<unsigned char const*>(values->data());
    std::array<bool, 256> isThere{};
    for (std::int64_t n = 0; n < values->size(); ++n)
        isThere[first[n]] = true;
    DeferredCells cells{m_file, m_list.pointCount(), m_list.cellCount(), {}};
    for (int type = 0; type < 256; ++type) {
        if (!isThere[static_cast<std::size_t>(type)])
            continue;
        if (!isPlainCell(static_cast<unsigned char>(type)))
            return std::nullopt;
        cells.kinds.push_back(static_cast<unsigned char>(type));
    }
    return cells;
}

double GridArrays::bytesToLoad(LoadingPlan const& plan) const
{
    double bytes = bytesOfCells() + (plan.mayCompute(m_list.pointCount()) ? bytesOfComputedCoordinates() : 0.0);
    for (auto const* arrays : {&m_list.coordinates(), &m_list.ofPoints(), &m_list.ofCells()}) {
        for (XmlArrayList::Array const& array : *arrays)
            bytes += arrays != &m_list.ofCells() && canBeMapped(array) ? 0.0 : array.bytes();
    }
    return bytes;
}

} // namespace veldraw::app
