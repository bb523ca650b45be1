#pragma once

#include "app/import/RawArray.h"
#include "kernel/data/ValueLoader.h"

namespace veldraw::app {

/// Brings an uncompressed array of a file: mapped where the file's bytes are what the kernel wants and the array is large,
/// else read. Small arrays are read, so that nothing that happens to the file can change them.
class RawArrayLoader : public kernel::ValueLoader
{
public:
    /// @param knownRange what the file says of its values
    explicit RawArrayLoader(RawArray array, kernel::ValueRange const& knownRange = {});

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override { return m_range; }

    /// Whether the array is mapped and so large that nobody should go through all of it unasked.
    bool isMapped() const override { return m_isHuge; }

    /// Whether load() maps, so that it takes neither time nor memory.
    bool maps() const { return m_maps; }

private:
    RawArray m_array;
    kernel::ValueRange m_range;
    bool m_maps;
    bool m_isHuge;
};

} // namespace veldraw::app
