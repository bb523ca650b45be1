#include "app/import/formats/table/CsvReader.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"
#include "app/handover/HandedArray.h"
#include "app/import/formats/table/TableComments.h"
#include "app/import/formats/table/TableText.h"

#include <algorithm>
#include <fstream>

namespace veldraw::app {

namespace {

constexpr std::size_t blockSize = 1 << 20;

} // namespace

CsvReader::CsvReader(kernel::Progress& progress)
    : m_progress(progress)
{
}

ImportedZone CsvReader::read(std::string const& path, std::string const& zoneName)
{
    std::ifstream file = openToRead(path);
    file.seekg(0, std::ios::end);
    std::int64_t const fileSize = file.tellg();
    file.seekg(0);
    std::string block(blockSize, '\0');
    file.read(&block[0], static_cast<std::streamsize>(blockSize));
    checkIsText(block.substr(0, static_cast<std::size_t>(file.gcount())));
    file.clear();
    file.seekg(0);
    TableComments const comments(file);
    std::unique_ptr<CsvTokenizer> tokenizer;
    std::int64_t done = file.tellg();
    while (file.read(&block[0], static_cast<std::streamsize>(blockSize)) || file.gcount() > 0) {
        block.resize(static_cast<std::size_t>(file.gcount()));
        if (!tokenizer) {
            tokenizer = std::make_unique<CsvTokenizer>(separatorOf(block), static_cast<CsvTokenizer::Handler&>(*this),
                                                       comments.lineCount() + 1);
            reserveRows(block, fileSize);
        }
        tokenizer->add(block.data(), block.size());
        done += file.gcount();
        m_progress.reach(static_cast<double>(done) / static_cast<double>(std::max(fileSize, done)));
        m_progress.check();
        block.resize(blockSize);
    }
    if (file.bad())
        throw ImportError("reading it failed");
    if (tokenizer && !tokenizer->finish())
        throw ImportError("a quote is left open to the end of the file");
    m_problems.throwIfAny();
    for (std::string const& text : comments.items().remarks())
        m_remarks.push_back("Data set: " + text);
    ImportedZone table = makeZone(zoneName);
    table.notesOnDataSet = comments.items().data();
    return table;
}

// Rows are as long as in the first block, as a rule; memory that is reserved for nothing is never touched.
void CsvReader::reserveRows(std::string const& start, std::int64_t fileSize)
{
    auto const lines = static_cast<std::int64_t>(std::count(start.begin(), start.end(), '\n')) + 1;
    auto const expected = fileSize / std::max<std::int64_t>(static_cast<std::int64_t>(start.size()) / lines, 1);
    m_expectedRows = static_cast<std::size_t>(expected + expected / 50 + 1);
}

void CsvReader::cell(std::string const& text, bool quoted)
{
    if (m_inHeader)
        headerCell(text, quoted);
    else
        valueCell(text);
    ++m_column;
}

void CsvReader::headerCell(std::string const& text, bool quoted)
{
    if (text.size() > handover::longestName)
        throw ImportError("the name of column " + std::to_string(m_column + 1) + " has more than " +
                          std::to_string(handover::longestName) + " bytes");
    double ignored = 0.0;
    m_headerHasText = m_headerHasText || quoted || toNumber(text, ignored) == Number::NoNumber;
    std::string name = asUtf8(text);
    if (name.empty()) {
        name = "Column " + std::to_string(m_column + 1);
        m_remarks.push_back("Column " + std::to_string(m_column + 1) + " has no name in the header line");
    }
    m_names.push_back(name);
}

void CsvReader::endHeader()
{
    if (!m_headerHasText)
        throw ImportError("its first line is no header line: it has numbers only");
    m_inHeader = false;
    for (std::size_t column = 0; column < m_names.size(); ++column) {
        m_columns.push_back(std::make_shared<Column>());
        m_columns.back()->reserve(m_expectedRows);
    }
}

void CsvReader::valueCell(std::string const& text)
{
    if (m_column >= m_columns.size())
        return;
    double value = 0.0;
    if (text.empty()) {
        m_problems.addOfCell(m_column, "is empty");
    } else if (text.size() == CsvTokenizer::longestCell) {
        m_problems.addOfCell(m_column, "is too long for a number");
    } else {
        Number const result = toNumber(text, value);
        if (result == Number::NoNumber)
            m_problems.addOfCell(m_column, "is no number: \"" + shortened(asUtf8(text), 40) + "\"");
        else if (result == Number::OutOfRange)
            m_problems.addOfCell(m_column, "is beyond the range of numbers: \"" + text.substr(0, 40) + "\"");
    }
    m_columns[m_column]->push_back(value);
}

void CsvReader::endOfRow(std::int64_t line, bool blank)
{
    if (blank) {
        m_blankLine = m_blankLine == 0 ? line : m_blankLine;
        return;
    }
    bool const isFirstRow = !m_columns.empty() && m_columns.front()->size() == 1;
    if (m_blankLine != 0 && !m_inHeader && !isFirstRow)
        m_problems.addOfLine(m_blankLine, "the line is blank");
    m_blankLine = 0;
    if (m_inHeader) {
        endHeader();
    } else if (m_column != m_columns.size()) {
        m_problems.endRow(line,
                          "there are " + std::to_string(m_column) + " cells, not " + std::to_string(m_columns.size()));
    } else {
        m_problems.endRow(line, m_names);
    }
    m_column = 0;
}

ImportedZone CsvReader::makeZone(std::string const& zoneName)
{
    if (m_columns.empty() || m_columns.front()->empty())
        throw ImportError("it has no values, so there are no points");
    auto const rows = static_cast<std::int64_t>(m_columns.front()->size());
    ImportedZone result;
    result.zone = std::make_shared<kernel::Zone>(zoneName, ZoneType_Ordered, rows, 1, 1);
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        auto const& values = m_columns[column];
        auto buffer = kernel::Buffer::adopt(FieldDataType_Double, rows, values->data(), 1, values);
        result.addField(m_names[column],
                        kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal));
    }
    return result;
}

} // namespace veldraw::app
