#include "app/import/formats/table/TableComments.h"

#include "app/files/CommentValue.h"
#include "app/files/PlainText.h"
#include "app/import/formats/table/CsvTokenizer.h"
#include "app/import/formats/table/TableText.h"

#include <algorithm>
#include <optional>

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

struct NumberCount : CsvTokenizer::Handler
{
    void cell(std::string const& text, bool quoted) override
    {
        double ignored = 0.0;
        areNumbers = areNumbers && !quoted && toNumber(text, ignored) != Number::NoNumber;
        ++cells;
    }
    void endOfRow(std::int64_t, bool) override {}

    int cells = 0;
    bool areNumbers = true;
};

NumberCount cellsOf(std::string const& line, char separator)
{
    NumberCount count;
    CsvTokenizer tokenizer(separator, count);
    tokenizer.add(line.data(), line.size());
    tokenizer.finish();
    return count;
}

// Whether a line that begins with "#" names the columns of the row of numbers below it.
bool isHeaderOf(std::string const& comment, std::string const& row)
{
    char const separator = separatorOf(row);
    NumberCount const numbers = cellsOf(row, separator);
    return numbers.areNumbers && numbers.cells > 0 && cellsOf(comment, separator).cells == numbers.cells;
}

} // namespace

TableComments::TableComments(std::istream& file)
{
    constexpr std::streamoff byteOrderMark = 3;
    Line line;
    std::optional<Line> last;
    std::int64_t lines = 0;
    std::int64_t linesBeforeLast = 0;
    for (bool isFirst = true; read(file, line); isFirst = false, ++lines) {
        if (isFirst && line.text.compare(0, byteOrderMark, "\xef\xbb\xbf") == 0) {
            line.text.erase(0, byteOrderMark);
            line.start += byteOrderMark;
        }
        bool const isComment = !line.text.empty() && line.text.front() == '#';
        bool const isBlank = trimmed(line.text).empty();
        if (!isComment && !isBlank)
            break;
        if (last)
            take(last->text);
        last = isComment ? std::optional(line) : std::nullopt;
        linesBeforeLast = lines;
    }
    bool const isHeader = last && isHeaderOf(last->text.substr(marksOf(last->text)), line.text);
    if (last && !isHeader)
        take(last->text);
    m_lineCount = isHeader ? linesBeforeLast : lines;
    file.clear();
    file.seekg(isHeader ? last->start + static_cast<std::streamoff>(marksOf(last->text)) : line.start);
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
