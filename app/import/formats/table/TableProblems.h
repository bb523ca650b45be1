#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::app {

/// What is wrong in a table: all of it is counted, the first ten are told with line and column.
class TableProblems
{
public:
    /// A problem of a cell in the present row, whose line is not known yet. @param column from 0
    void addOfCell(std::size_t column, std::string const& what);

    /// Ends the present row. @param names of the columns
    void endRow(std::int64_t line, std::vector<std::string> const& names);

    /// Ends the present row, which is wrong as a whole: what its cells have does not count.
    void endRow(std::int64_t line, std::string const& what);

    void addOfLine(std::int64_t line, std::string const& what);

    /// @throws ImportError if there are any
    void throwIfAny() const;

private:
    std::vector<std::pair<std::size_t, std::string>> m_ofCells; // of the present row
    std::vector<std::string> m_told;
    std::int64_t m_count = 0;
};

} // namespace veldraw::app
