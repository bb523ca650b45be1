#include "tests/kernel/support/SampleLoader.h"

#include "tests/kernel/support/SampleData.h"

namespace veldraw::tests {

using namespace kernel;

namespace sample {

std::shared_ptr<Buffer> Loader::load(Progress& progress)
{
    if (before) {
        before(progress);
    }
    ++loads;
    auto buffer = Buffer::allocate(m_type, static_cast<std::int64_t>(m_values.size()));
    for (std::size_t at = 0; at < m_values.size(); ++at) {
        buffer->setValue(static_cast<std::int64_t>(at), m_values[at]);
    }
    return buffer;
}

Field Loader::field(std::shared_ptr<Loader> const& loader, ValueLocation_e location)
{
    auto const size = static_cast<std::int64_t>(loader->m_values.size());
    return {std::make_shared<ShareGroup>(loader->m_type, size, loader), location};
}

ZoneDimensions SizeLoader::load(Progress& progress)
{
    if (before) {
        before(progress);
    }
    ++loads;
    return m_size;
}

} // namespace sample

} // namespace veldraw::tests
