#pragma once

#include "app/files/SizeCheck.h"
#include "app/import/xml/XmlArrayPrefix.h"
#include "app/import/xml/XmlTags.h"

#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::app {

/// Holds the header of a VTK XML file with one grid against the file's size before the file is read.
class XmlHeaderCheck
{
public:
    /// @param fileSize bytes
    /// @param progress outlives this; its interrupt ends run()
    XmlHeaderCheck(std::string const& path, std::int64_t fileSize, kernel::Progress const& progress);

    /// Memory for point and cell arrays, and for coordinates, is not counted: they may be loaded later.
    void leaveOutValues() { m_countsValues = false; }

    /// @throws ImportError when the file cannot contain what its header promises, or memory cannot; kernel::Interrupted
    void run();

    /// An array among point and cell values that cannot be read.
    struct Useless
    {
        bool ofPoints; ///< else of cells
        std::string name;
        std::string reason; ///< "has no numbers"
    };

    /// After run(): those arrays, each once.
    std::vector<Useless> useless() const;

    /// After run(): whether the grid stands in more than one piece.
    bool hasSeveralPieces() const { return m_pieces > 1; }

    /// After run(): false when the header says that there are no points at all.
    bool hasPoints() const { return m_allPoints > 0.0; }

private:
    struct Binary
    {
        double offset; // from the underscore that starts the data, if it is appended
        double bytes;  // 0 where the header does not say how many there are
        std::string name;
        bool areCoordinates; // along one axis
    };

    using Extent = std::array<double, 6>; // first and last of I, J and K

    static Extent extentOf(std::string const& text);
    void look(XmlTags::Tag const& tag);
    void lookAtGrid(XmlTags::Tag const& tag);
    void lookIntoSection(XmlTags::Tag const& tag);
    void lookAtPiece(XmlTags::Tag const& tag);
    void lookAtArray(XmlTags::Tag const& tag);
    void lookAtExtent(XmlTags::Tag const& tag, char const* attribute);
    double valuesOf(XmlTags::Tag const& tag) const;
    void checkCover(bool ofCells) const;
    void findEndOfValues();
    void checkText(double coordinates, std::string const& name) const;
    void checkAppended(bool isBase64);
    void checkValues(std::int64_t position, bool isBase64, Binary const& array);
    double announcedBytes(XmlArrayPrefix const& prefix) const;
    void checkLength(std::int64_t position, bool isBase64, double bytes, std::string const& name);
    std::int64_t decodedBytes(std::int64_t position, double most);
    void checkBlocks(XmlArrayPrefix const& prefix, std::string const& name);

    std::string m_path;
    kernel::Progress const& m_progress;
    XmlTags m_tags;
    std::int64_t m_fileSize;
    std::int64_t m_endOfValues; // of those that are appended
    SizeCheck m_size;
    bool m_compressed = false;
    XmlArrayPrefix::Format m_format;
    bool m_countsValues = true;
    bool m_hasValues = false;
    bool m_hasCellValues = false;
    std::size_t m_arraysOfSection = 0; // with values
    double m_decodedBytes = 0.0;       // of all base64
    double m_computedPoints = 0.0;
    bool m_uniform = false;
    double m_points = 0.0; // of the present piece
    double m_allPoints = 0.0;
    double m_wholePoints = 0.0;
    std::optional<Extent> m_whole;
    std::vector<Extent> m_extents; // of all pieces
    Extent m_extent{};             // of the present piece
    std::size_t m_axis = 0;        // of the next coordinates
    double m_cells = 0.0;
    std::string m_section; // that is open; empty outside of all
    int m_depthOfSection = 0;
    int m_depth = 0; // tags that are open
    bool m_hasGrid = false;
    std::vector<Binary> m_appended;
    int m_pieces = 0;
    std::set<std::pair<bool, std::string>> m_texts; // of points?, name
    std::set<std::pair<bool, std::string>> m_bits;
};

} // namespace veldraw::app
