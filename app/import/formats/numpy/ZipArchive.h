#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace veldraw::app {

/// A zip archive in memory, whose files are stored or deflated. Form: PKWARE's APPNOTE.TXT.
class ZipArchive
{
public:
    struct Entry
    {
        std::string name;
        int method = 0; ///< 0: stored, 8: deflated
        std::uint32_t checksum = 0;
        std::uint64_t packed = 0; ///< bytes in the archive
        std::uint64_t size = 0;   ///< bytes of the file
        std::uint64_t start = 0;  ///< where it stands in the archive, with its header
    };

    /// @param bytes live as long as this @throws ImportError where it is damaged, incomplete, or of a kind that is not read
    explicit ZipArchive(std::string_view bytes);

    std::vector<Entry> const& entries() const { return m_entries; }

    /// The content of a file. @throws ImportError where it is damaged
    std::string content(Entry const& entry) const;

private:
    std::uint32_t number(std::uint64_t at, int bytes) const;
    Entry entryAt(std::uint64_t at) const;

    std::string_view m_bytes;
    std::vector<Entry> m_entries;
};

} // namespace veldraw::app
