#include "app/import/table/CsvReader.h"

#include "app/import/ImportError.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <fstream>
#include <new>
#include <system_error>

namespace veldraw::app {

namespace {

constexpr std::size_t blockSize = 1 << 20;
constexpr std::size_t mostProblemsTold = 10;

// The separator that the header line has most of, outside of quotes; a tab wins over a semicolon over a comma.
char separatorOf(std::string const& text)
{
    std::array<std::pair<char, int>, 3> counts{{{'\t', 0}, {';', 0}, {',', 0}}};
    bool quoted = false;
    for (char c : text) {
        if (c == '"')
            quoted = !quoted;
        if (!quoted && (c == '\n' || c == '\r'))
            break;
        for (auto& [separator, count] : counts)
            count += !quoted && c == separator ? 1 : 0;
    }
    auto const best = std::max_element(counts.begin(), counts.end(),
                                       [](auto const& left, auto const& right) { return left.second < right.second; });
    return best->second > 0 ? best->first : ',';
}

std::string asUtf8(std::string const& text)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(text.data(), static_cast<int>(text.size()), &state);
    return state.invalidChars == 0 ? text
                                   : QString::fromLatin1(text.data(), static_cast<int>(text.size())).toStdString();
}

enum class Number
{
    Good,
    NoNumber,
    OutOfRange
};

Number toNumber(std::string const& text, double& value)
{
    char const* first = text.data();
    char const* const last = first + text.size();
    if (text.size() > 1 && *first == '+' && first[1] != '-')
        ++first;
    auto const [end, error] = std::from_chars(first, last, value);
    if (error == std::errc::result_out_of_range && end == last)
        return Number::OutOfRange;
    return error == std::errc() && end == last ? Number::Good : Number::NoNumber;
}

void checkIsText(std::string const& start)
{
    bool const wide =
        start.size() > 1 && ((start[0] == '\xff' && start[1] == '\xfe') || (start[0] == '\xfe' && start[1] == '\xff'));
    if (wide)
        throw ImportError("it is UTF-16 text; save it as UTF-8");
    if (start.find('\0') != std::string::npos)
        throw ImportError("it is no text file");
}

} // namespace

CsvReader::CsvReader(kernel::Progress& progress)
    : m_progress(progress)
{
}

ImportedZone CsvReader::read(std::string const& path, std::string const& zoneName)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw ImportError(std::strerror(errno));
    file.seekg(0, std::ios::end);
    std::int64_t const fileSize = file.tellg();
    file.seekg(0);
    std::string block(blockSize, '\0');
    std::unique_ptr<CsvTokenizer> tokenizer;
    std::int64_t done = 0;
    while (file.read(&block[0], static_cast<std::streamsize>(blockSize)) || file.gcount() > 0) {
        block.resize(static_cast<std::size_t>(file.gcount()));
        std::size_t skip = 0;
        if (!tokenizer) {
            checkIsText(block);
            skip = block.compare(0, 3, "\xef\xbb\xbf") == 0 ? 3 : 0;
            tokenizer = std::make_unique<CsvTokenizer>(separatorOf(block), static_cast<CsvTokenizer::Handler&>(*this));
            reserveRows(block, fileSize);
        }
        tokenizer->add(block.data() + skip, block.size() - skip);
        done += file.gcount();
        m_progress.reach(static_cast<double>(done) / static_cast<double>(std::max(fileSize, done)));
        m_progress.check();
        block.resize(blockSize);
    }
    if (file.bad())
        throw ImportError("reading it failed");
    if (tokenizer && !tokenizer->finish())
        throw ImportError("a quote is left open to the end of the file");
    throwOnProblems();
    return makeZone(zoneName);
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
        cellProblem("is empty");
    } else {
        Number const result = toNumber(text, value);
        if (result == Number::NoNumber)
            cellProblem("is no number: \"" + asUtf8(text.substr(0, 40)) + "\"");
        else if (result == Number::OutOfRange)
            cellProblem("is beyond the range of numbers: \"" + text.substr(0, 40) + "\"");
    }
    m_columns[m_column]->push_back(value);
}

void CsvReader::endOfRow(std::int64_t line, bool blank)
{
    if (blank) {
        m_blankLine = m_blankLine == 0 ? line : m_blankLine;
        return;
    }
    if (m_blankLine != 0 && !m_inHeader)
        problem(m_blankLine, "the line is blank");
    m_blankLine = 0;
    if (m_inHeader) {
        endHeader();
    } else if (m_column != m_columns.size()) {
        problem(line, "there are " + std::to_string(m_column) + " cells, not " + std::to_string(m_columns.size()));
    } else {
        for (auto const& [column, what] : m_rowProblems)
            problem(line, "column " + std::to_string(column + 1) + " (" + m_names[column] + ") " + what);
    }
    m_rowProblems.clear();
    m_column = 0;
}

void CsvReader::cellProblem(std::string const& what)
{
    if (m_problems.size() + m_rowProblems.size() < mostProblemsTold)
        m_rowProblems.emplace_back(m_column, what);
    else
        ++m_problemCount;
}

void CsvReader::problem(std::int64_t line, std::string const& what)
{
    ++m_problemCount;
    if (m_problems.size() < mostProblemsTold)
        m_problems.push_back("line " + std::to_string(line) + ": " + what);
}

void CsvReader::throwOnProblems() const
{
    if (m_problemCount == 0)
        return;
    std::string text = "nothing was imported because of errors";
    for (std::string const& one : m_problems)
        text += "\n" + one;
    auto const more = m_problemCount - static_cast<std::int64_t>(m_problems.size());
    if (more > 0)
        text += "\nand " + std::to_string(more) + " more";
    throw ImportError(text);
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
