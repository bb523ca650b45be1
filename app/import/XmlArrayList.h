#pragma once

#include "app/import/RawType.h"
#include "app/import/XmlTags.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// The point and cell arrays that the header of a VTK XML file with one grid promises, and where they stand.
class XmlArrayList
{
public:
    struct Array
    {
        std::optional<RawType> type; ///< none: no numbers that can be loaded later
        int components = 1;
        std::int64_t values = 0;            ///< of all components
        std::optional<std::int64_t> offset; ///< of the first value in the file, where it stands there uncompressed

        /// Of memory, in the kernel's types.
        double bytes() const;
    };

    /// @throws ImportError when the file cannot be read
    explicit XmlArrayList(std::string const& path);

    std::vector<Array> const& ofPoints() const { return m_ofPoints; }
    std::vector<Array> const& ofCells() const { return m_ofCells; }
    std::int64_t pointCount() const { return m_points; } ///< of the first piece
    bool isBigEndian() const { return m_isBigEndian; }

    /// One piece; else the arrays are those of the first, and no array can be loaded later.
    bool hasOnePiece() const { return m_pieces == 1; }

private:
    void look(XmlTags::Tag const& tag);
    void lookAtPiece(XmlTags::Tag const& tag);
    void lookAtArray(XmlTags::Tag const& tag);
    void placeArrays(std::string const& path, std::int64_t position);

    std::vector<Array> m_ofPoints;
    std::vector<Array> m_ofCells;
    bool m_isBigEndian = false;
    bool m_isCompressed = false;
    int m_headerBytes = 4;
    int m_pieces = 0;
    std::int64_t m_points = 0;
    std::int64_t m_cells = 0;
    std::string m_section;
};

} // namespace veldraw::app
