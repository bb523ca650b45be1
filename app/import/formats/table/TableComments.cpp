#include "app/import/formats/table/TableComments.h"

#include "app/files/CommentValue.h"
#include "app/files/PlainText.h"
#include "app/import/formats/table/CsvTokenizer.h"
#include "app/import/formats/table/TableText.h"

#include <algorithm>
#include <limits>

namespace veldraw::app {

namespace {

constexpr std::size_t longestKey = 64;
constexpr std::size_t longestComment = AuxiliaryItems::mostBytes + 2 * longestKey; // of which all is kept

// Number of "#" that a comment line begins with.
std::size_t marksOf(std::string const& line)
{
    return std::min(line.find_first_not_of('#'), line.size());
}

// Words that could be what something is called: no sentence, no address, no time of day.
bool isName(std::string const& text)
{
    bool const startsWell =
        !text.empty() && ((text[0] >= 'a' && text[0] <= 'z') || (text[0] >= 'A' && text[0] <= 'Z') ||
                          static_cast<unsigned char>(text[0]) >= 0x80);
    bool const isShort = text.size() <= longestKey && text.find_first_of("\"',;!?/\\<>{}|") == std::string::npos;
    return kernel::AuxiliaryData::isName(text) || (startsWell && isShort);
}

// Where a value follows: behind "=", or behind a ":" that a blank or nothing follows.
std::size_t separatorIn(std::string const& text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        bool const isColon = text[at] == ':' && (at + 1 == text.size() || text[at + 1] == ' ' || text[at + 1] == '\t');
        if (isColon || text[at] == '=')
            return at;
    }
    return std::string::npos;
}

struct CellCount : CsvTokenizer::Handler
{
    void cell(std::string const& text, bool quoted) override
    {
        double ignored = 0.0;
        ++all;
        if (!quoted && toNumber(text, ignored) != Number::NoNumber)
            ++numbers;
        else if (quoted || !text.empty())
            ++texts;
    }
    void endOfRow(std::int64_t, bool) override {}

    std::int64_t all = 0;
    std::int64_t numbers = 0;
    std::int64_t texts = 0; // that are no numbers
};

bool isLineEnd(std::istream::int_type c)
{
    return c == '\n' || c == '\r' || c == std::istream::traits_type::eof();
}

// Of a line, which may be as long as a file: counting ends behind @p mostCells.
CellCount cellsAt(std::istream& file, std::streamoff start, char separator, std::int64_t mostCells)
{
    CellCount count;
    CsvTokenizer tokenizer(separator, count);
    file.clear();
    file.seekg(start);
    auto& bytes = *file.rdbuf();
    for (auto c = bytes.sbumpc(); !isLineEnd(c) && count.all <= mostCells; c = bytes.sbumpc()) {
        char const byte = std::istream::traits_type::to_char_type(c);
        tokenizer.add(&byte, 1);
    }
    tokenizer.finish();
    return count;
}

// One with a cell that is empty or wrongly typed is still a row of numbers, or it would become the header.
bool isRowOfNumbers(CellCount const& cells)
{
    return cells.numbers > 0 && cells.numbers >= cells.texts;
}

} // namespace

TableComments::TableComments(std::istream& file)
{
    constexpr std::streamoff byteOrderMark = 3;
    Line line;
    std::optional<Line> last; // of the comments
    std::int64_t lines = 0;
    std::int64_t linesBeforeLast = 0;
    for (bool isFirst = true; read(file, line); isFirst = false, ++lines) {
        if (isFirst && line.text.compare(0, byteOrderMark, "\xef\xbb\xbf") == 0) {
            line.text.erase(0, byteOrderMark);
            line.start += byteOrderMark;
        }
        bool const isComment = !line.text.empty() && line.text.front() == '#';
        if (!isComment && !trimmed(line.text).empty())
            break;
        if (!isComment)
            continue;
        if (last)
            take(last->text);
        last = line;
        linesBeforeLast = lines;
    }
    std::optional<std::streamoff> const header = last ? headerIn(file, *last, line) : std::nullopt;
    if (last && !header)
        take(last->text);
    m_lineCount = header ? linesBeforeLast : lines;
    file.clear();
    file.seekg(header.value_or(line.start));
}

// Where a comment line is one, it names the columns of the row of numbers below it. A mark that is a cell of its own is a name.
std::optional<std::streamoff> TableComments::headerIn(std::istream& file, Line const& comment, Line const& row) const
{
    char const separator = separatorOf(row.text);
    std::size_t const marks = marksOf(comment.text);
    bool const isName = comment.text.compare(marks, 1, std::string(1, separator)) == 0;
    std::streamoff const start = comment.start + (isName ? 0 : static_cast<std::streamoff>(marks));
    std::int64_t const names = cellsAt(file, start, separator, std::numeric_limits<std::int64_t>::max()).all;
    CellCount const cells = cellsAt(file, row.start, separator, names);
    return isRowOfNumbers(cells) && cells.all == names ? std::optional(start) : std::nullopt;
}

// Lines end with LF, CR LF or CR. False when there is none any more.
bool TableComments::read(std::istream& file, Line& line) const
{
    auto& bytes = *file.rdbuf();
    constexpr auto end = std::istream::traits_type::eof();
    line = {file.tellg(), {}};
    if (bytes.sgetc() == end)
        return false;
    for (auto c = bytes.sbumpc(); c != end && c != '\n'; c = bytes.sbumpc()) {
        if (c == '\r') {
            if (bytes.sgetc() == '\n')
                bytes.sbumpc();
            break;
        }
        if (line.text.size() < longestComment)
            line.text += static_cast<char>(c);
        else if (line.text.front() != '#')
            break; // enough of a line that is not to be kept
    }
    return true;
}

void TableComments::take(std::string const& text)
{
    std::string const content = trimmed(text.substr(marksOf(text)));
    if (content.empty())
        return;
    std::size_t const separator = separatorIn(content);
    std::string const name = separator == std::string::npos ? "" : trimmed(content.substr(0, separator));
    if (isName(name))
        m_items.add(name, textOfCommentValue(trimmed(content.substr(separator + 1))));
    else
        m_items.add("Comment" + std::to_string(++m_comments), content);
}

} // namespace veldraw::app
