#pragma once

#include "kernel/data/DimensionsLoader.h"
#include "kernel/storage/ValueLoader.h"
#include "tests/kernel/data/StormModel.h"

namespace veldraw::tests {

namespace storm {

/// What befalls loaders.
enum class Trouble
{
    None,
    Error,
    NoMemory,
    Cancel,
    ShortFile
};

/// Fails or cancels as @p trouble says. @return whether less is to be brought than was announced
bool meet(Trouble trouble, kernel::Progress& progress);

/// Brings the values of a storage.
class Loader : public kernel::ValueLoader
{
public:
    Loader(Storage storage, kernel::ValueRange const& known, bool isMapped, Trouble const& trouble)
        : m_storage(std::move(storage))
        , m_known(known)
        , m_isMapped(isMapped)
        , m_trouble(trouble)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override { return m_known; }
    bool isMapped() const override { return m_isMapped; }

private:
    Storage m_storage;
    kernel::ValueRange m_known;
    bool m_isMapped;
    Trouble const& m_trouble;
};

/// Brings the size of all zones of the storm.
class SizeLoader : public kernel::DimensionsLoader
{
public:
    explicit SizeLoader(Trouble const& trouble)
        : m_trouble(trouble)
    {
    }

    kernel::ZoneDimensions load(kernel::Progress& progress) override
    {
        return {iPoints, jPoints, meet(m_trouble, progress) ? -1 : 1, {}};
    }

private:
    Trouble const& m_trouble;
};

/// A buffer with these values.
std::shared_ptr<kernel::Buffer> bufferOf(Storage const& storage, std::int64_t size = slots);

} // namespace storm

} // namespace veldraw::tests
