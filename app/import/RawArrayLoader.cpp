#include "app/import/RawArrayLoader.h"

#include "app/import/RawArrayValues.h"
#include "app/import/SizeCheck.h"

namespace veldraw::app {

namespace {

constexpr std::int64_t smallestMapping = 1 << 24; // reading less takes some milliseconds
constexpr double hugeShareOfMemory = 0.5;

} // namespace

RawArrayLoader::RawArrayLoader(RawArray array, kernel::ValueRange const& knownRange)
    : m_array(std::move(array))
    , m_range(knownRange)
    , m_maps(m_array.canBeMapped() && m_array.bytes() >= smallestMapping)
    , m_isHuge(m_maps && static_cast<double>(m_array.bytes()) > hugeShareOfMemory * availableMemory())
{
}

std::shared_ptr<kernel::Buffer> RawArrayLoader::load(kernel::Progress& progress)
{
    return m_maps ? mapValues(m_array) : readValues(m_array, progress);
}

} // namespace veldraw::app
