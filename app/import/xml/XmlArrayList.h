#pragma once

#include "app/import/raw/RawType.h"
#include "app/import/xml/XmlArrayPrefix.h"
#include "app/import/xml/XmlTags.h"
#include "kernel/storage/ValueRange.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
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
        std::vector<std::string> purposes;       ///< for which its section names it, such as "Vectors"
        std::int64_t values = 0; ///< of all components in all pieces; 0 where the header does not say it

        /// Place of the first value in the file, in bytes; none unless all values stand there uncompressed, one after the other.
        std::optional<std::int64_t> offset;

        /// Limits that the file says, as an estimate. Those of vectors are about their lengths, so that nothing is known of
        /// the components.
        kernel::ValueRange range;

        /// Of memory, in the kernel's types.
        double bytes() const;
    };

    /// @throws ImportError when the file cannot be read; kernel::Interrupted
    XmlArrayList(std::string const& path, kernel::Progress const& progress);

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

    /// Whether the pieces agree about coordinates and cells; else nothing is known of these.
    bool isConsistent() const { return m_coordinates.isAlike() && m_mesh.isAlike(); }

    /// Names of the arrays that not every piece with values has, or has with another type or number of components. VTK's reader would
    /// leave memory as it was where a piece has none.
    std::set<std::string> const& unevenOfPoints() const { return m_ofPoints.uneven; }
    std::set<std::string> const& unevenOfCells() const { return m_ofCells.uneven; }

    /// Whether a piece has its arrays in another order than the first one: VTK's reader counts arrays in a piece and does not look at their
    /// names, so that each has to be read alone.
    bool isReordered() const { return m_ofPoints.isReordered || m_ofCells.isReordered; }

private:
    struct Section
    {
        std::vector<Array> arrays; // of the first piece
        std::vector<Array> here;   // of the present one, if it is another
        std::set<std::string> uneven;
        bool isReordered = false;

        bool isAlike() const { return uneven.empty() && !isReordered; }
        void comparePiece();
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
    XmlArrayPrefix::Format m_format;
    int m_pieces = 0;
    std::string m_wholeExtent;
    bool m_pieceIsWhole = true;
    Counts m_inPiece;
    Counts m_inAll;
    std::int64_t m_points = 0;
    std::int64_t m_cells = 0;
    std::string m_openTag;
    std::vector<std::pair<std::string, std::string>> m_activeArrays; // of the open section: purpose and name
};

} // namespace veldraw::app
