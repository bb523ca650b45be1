#pragma once

#include "app/import/raw/RawArray.h"
#include "app/import/raw/SharedArray.h"
#include "kernel/storage/ValueLoader.h"

namespace veldraw::app {

/// Brings one component of an uncompressed array of a file. There are three ways:
///   - the file itself is mapped where its bytes are what the kernel wants and the array is large. Small arrays are read, so
///     that nothing that happens to the file can change them;
///   - else the values are read, and converted where need be;
///   - where they would take too much of the memory, they are read into a temporary file that is mapped.
class RawArrayLoader : public kernel::ValueLoader
{
public:
    /// @param whole      the same for all components of the array
    /// @param knownRange what the file says of the component's values
    RawArrayLoader(RawArray array, std::shared_ptr<SharedArray> whole, kernel::ValueRange const& knownRange = {});

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override { return m_range; }
    bool canLoad() const override { return m_array.file.isUnchanged(); }

    /// Whether the array is mapped and so large that nobody should go through all of it unasked.
    bool isMapped() const override { return m_isHuge; }

    /// Whether load() maps the file, so that it takes neither time nor memory.
    bool maps() const { return canBeMapped(m_array); }

    /// The same before there is a loader.
    static bool canBeMapped(RawArray const& array);

private:
    RawArray m_array;
    std::shared_ptr<SharedArray> m_whole;
    kernel::ValueRange m_range;
    bool m_isHuge;
};

} // namespace veldraw::app
