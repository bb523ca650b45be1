#pragma once

#include "app/import/raw/RawType.h"
#include "app/import/xml/XmlArrayPrefix.h"
#include "app/import/xml/XmlTags.h"
#include "kernel/storage/ValueRange.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// The arrays that the header of a VTK XML file with one grid promises for points and cells, and where they stand.
class XmlArrayList
{
public:
    struct Array
    {
        std::string name;            ///< as the file spells it
        std::optional<RawType> type; ///< none: no numbers that can be loaded later
        int components = 1;
        std::vector<std::string> componentNames; ///< empty where they have none
        std::int64_t values = 0; ///< of all components in all pieces; 0 where the header does not say it

        /// Of the first value in the file, where all stand there uncompressed in one piece.
        std::optional<std::int64_t> offset;

        /// Limits that the file says, as an estimate. Those of vectors are about their lengths, so that nothing is known of
        /// the components.
        kernel::ValueRange range;

        /// Of memory, in the kernel's types.
        double bytes() const;
    };

    /// @throws ImportError when the file cannot be read
    explicit XmlArrayList(std::string const& path);

    std::vector<Array> const& ofPoints() const { return m_ofPoints.arrays; }
    std::vector<Array> const& ofCells() const { return m_ofCells.arrays; }
    std::vector<Array> const& meshArrays() const { return m_mesh.arrays; } ///< those that make up a mesh's cells
    std::vector<Array> const& coordinates() const
    {
        return m_coordinates.arrays;
    } ///< the one of a grid that stores points
    std::int64_t pointCount() const { return m_points; }
    std::int64_t cellCount() const { return m_cells; } ///< cells of unstructured grids as the file counts them
    bool isBigEndian() const { return m_format.isBigEndian; }

    /// Each piece has the same arrays in the same order; else nothing is known of them.
    bool isConsistent() const { return m_isConsistent; }

private:
    struct Section
    {
        std::vector<Array> arrays;
        std::size_t seen = 0; // of them in the present piece
    };
    struct Counts
    {
        double points = 0.0;
        double cells = 0.0;
    };

    static Counts countsOf(std::string const& extent);

    void look(XmlTags::Tag const& tag);
    void lookAtPiece(XmlTags::Tag const& tag);
    void finishPiece();
    void lookAtArray(XmlTags::Tag const& tag, Section& section);
    Section* openSection();
    void finish(Section& section, std::int64_t tuples, std::string const& path, std::int64_t start);
    void place(Array& array, std::string const& path, std::int64_t start, bool isOfAnySize) const;

    Section m_ofPoints;
    Section m_ofCells;
    Section m_coordinates;
    Section m_mesh;
    bool m_isCompressed = false;
    bool m_isConsistent = true;
    XmlArrayPrefix::Format m_format;
    int m_pieces = 0;
    std::string m_wholeExtent;
    bool m_pieceIsWhole = true;
    Counts m_inPiece;
    Counts m_inAll;
    std::int64_t m_points = 0;
    std::int64_t m_cells = 0;
    std::string m_openTag;
};

} // namespace veldraw::app
