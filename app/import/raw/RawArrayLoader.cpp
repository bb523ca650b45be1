#include "app/import/raw/RawArrayLoader.h"

#include "app/files/MappedMemory.h"
#include "app/files/SizeCheck.h"
#include "app/import/raw/RawArray.h"

namespace veldraw::app {

namespace {

constexpr std::int64_t smallestMapping = 1 << 24; // reading less takes some milliseconds
constexpr double hugeShareOfMemory = 0.5;

std::int64_t bytesInMemory(RawArray const& array, int components)
{
    return kernel::Buffer::bytesOf(kernelTypeOf(array.type), array.tuples * components);
}

// Counts what load() would map or read: the whole array, or the component alone.
bool isHuge(RawArray const& array)
{
    std::int64_t const bytes = RawArrayLoader::canBeMapped(array) ? array.bytes() : bytesInMemory(array, 1);
    return bytes > smallestMapping && static_cast<double>(bytes) > hugeShareOfMemory * availableMemory();
}

} // namespace

RawArrayLoader::RawArrayLoader(RawArray array, std::shared_ptr<SharedArray> whole, kernel::ValueRange const& knownRange)
    : m_array(std::move(array))
    , m_whole(std::move(whole))
    , m_range(knownRange)
    , m_isHuge(isHuge(m_array))
{
}

bool RawArrayLoader::canBeMapped(RawArray const& array)
{
    return array.standsAsWanted() && array.bytes() >= smallestMapping;
}

std::shared_ptr<kernel::Buffer> RawArrayLoader::load(kernel::Progress& progress)
{
    if (!maps() && !comesAsAWhole())
        return m_isHuge ? copyToScratch(m_array, progress) : readValues(m_array, progress);
    m_array.file.checkUnchanged(); // though it may be at hand
    auto values = m_whole->take(m_array.component, [&] { return loadWhole(progress); });
    if (maps())
        m_mapping = values->owner();
    return values;
}

std::string RawArrayLoader::whatIsLost() const
{
    auto const mapping = m_mapping.lock();
    return mapping ? lossAt(mapping.get()) : std::string();
}

SharedArray::Components RawArrayLoader::loadWhole(kernel::Progress& progress) const
{
    if (maps())
        return mapComponents(m_array);
    kernel::Progress ofWhole(progress, m_array.tuples);
    ofWhole.setTotal(m_array.tuples * m_array.components);
    return isSmall() ? readComponents(m_array, ofWhole) : copyComponentsToScratch(m_array, ofWhole);
}

bool RawArrayLoader::isSmall() const
{
    return m_array.components > 1 && bytesInMemory(m_array, m_array.components) <= smallestMapping;
}

kernel::ValueLoader::Array RawArrayLoader::array() const
{
    if (maps() || !isSmall())
        return {};
    return {m_whole.get(), m_whole->isAtHand(m_array.component) ? 0 : bytesInMemory(m_array, m_array.components)};
}

} // namespace veldraw::app
