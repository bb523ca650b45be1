#pragma once

#include "app/import/formats/table/CsvTokenizer.h"
#include "app/import/formats/table/TableProblems.h"
#include "app/import/zones/ImportedZone.h"
#include "kernel/base/Progress.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// Reads a text table with a header line: each column becomes a double variable of one I-ordered zone.
///
/// The separator is the one of tab, semicolon and comma that the header line has most of. Numbers have a decimal point and
/// may be nan or inf. Names are UTF-8 (Latin-1 where they are not valid UTF-8); a byte-order mark is skipped. Blank lines at the
/// end do not count. Comment lines in front of the table are auxiliary data of the data set (TableComments). A row with more or fewer cells than the header, an empty cell and a cell that is no number are errors; the
/// first ten are told, with line and column.
class CsvReader : private CsvTokenizer::Handler
{
public:
    explicit CsvReader(kernel::Progress& progress);

    /// @throws ImportError with the errors found; kernel::Interrupted
    ImportedZone read(std::string const& path, std::string const& zoneName);

    std::vector<std::string> const& remarks() const { return m_remarks; }

private:
    using Column = std::vector<double>;

    void cell(std::string const& text, bool quoted) override;
    void endOfRow(std::int64_t line, bool blank) override;
    void headerCell(std::string const& text, bool quoted);
    void endHeader();
    void valueCell(std::string const& text);
    void reserveRows(std::string const& start, std::int64_t fileSize);
    ImportedZone makeZone(std::string const& zoneName);

    kernel::Progress& m_progress;
    std::vector<std::string> m_remarks;
    std::vector<std::string> m_names;
    std::vector<std::shared_ptr<Column>> m_columns;
    bool m_inHeader = true;
    bool m_headerHasText = false;
    std::size_t m_column = 0;
    std::size_t m_expectedRows = 0;
    std::int64_t m_blankLine = 0; // the first of a run of blank lines, 0 = none
    TableProblems m_problems;
};

} // namespace veldraw::app
