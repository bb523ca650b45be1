#pragma once

#include "app/import/zones/AuxiliaryItems.h"

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// The lines in front of a table that begin with "#".
///
/// "# name: value" and "# name = value" are an item of auxiliary data under that name, any other line is one called Comment1, Comment2
/// and so on. A value in double quotes that could not stand otherwise (see commentValue()) is what is meant by it. Where as many numbers follow as
/// the last of the lines has cells, and no header line, that one is the header, however long it is.
class TableComments
{
public:
    /// @param file at its start; afterwards at the header line, behind the "#" of one that begins so
    explicit TableComments(std::istream& file);

    AuxiliaryItems const& items() const { return m_items; }

    /// Lines in front of the header line.
    std::int64_t lineCount() const { return m_lineCount; }

private:
    struct Line
    {
        std::streamoff start;
        std::string text; // without the line's end; of an endless one the first part
    };

    bool read(std::istream& file, Line& line) const;
    std::optional<std::streamoff> headerIn(std::istream& file, Line const& comment, Line const& row) const;
    void take(std::string const& text);

    AuxiliaryItems m_items;
    int m_comments = 0; // that have no name
    std::int64_t m_lineCount = 0;
};

} // namespace veldraw::app
