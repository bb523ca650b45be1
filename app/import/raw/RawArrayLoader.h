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
/// Components stand side by side in the file, so that it has to be read as a whole for each of them: those of a small array, and those of
/// an array of many, come together, the latter through a temporary file.
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

    std::string whatIsLost() const override;
    Array array() const override;

    /// Whether load() maps the file, so that it takes neither time nor memory.
    bool maps() const { return canBeMapped(m_array); }

    /// The same before there is a loader.
    static bool canBeMapped(RawArray const& array);

private:
    bool comesAsAWhole() const { return isSmall() || m_array.components > mostReadAlone; }
    bool isSmall() const;
    SharedArray::Components loadWhole(kernel::Progress& progress) const;

    static constexpr int mostReadAlone = 16;

    RawArray m_array;
    std::shared_ptr<SharedArray> m_whole;
    kernel::ValueRange m_range;
    bool m_isHuge;
    std::weak_ptr<void> m_mapping; // of the values that were brought last
};

} // namespace veldraw::app
