#include "app/import/raw/RawArrayLoader.h"

#include "app/files/SizeCheck.h"
#include "app/import/raw/RawArray.h"

namespace veldraw::app {

namespace {

constexpr std::int64_t smallestMapping = 1 << 24; // reading less takes some milliseconds
constexpr double hugeShareOfMemory = 0.5;

// Counts what load() would map or read: the whole array, or the component alone.
bool isHuge(RawArray const& array)
{
    std::int64_t const bytes = RawArrayLoader::canBeMapped(array)
                                   ? array.bytes()
                                   : kernel::Buffer::bytesOf(kernelTypeOf(array.type), array.tuples);
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
    if (!maps())
        return m_isHuge ? copyToScratch(m_array, progress) : readValues(m_array, progress);
    m_array.file.checkUnchanged(); // though it may be mapped already
    return m_whole->take(m_array.component, [this] { return mapComponents(m_array); });
}

} // namespace veldraw::app
