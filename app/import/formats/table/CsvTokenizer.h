#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace veldraw::app {

/// Cuts a stream of CSV text into cells and rows; the text comes in pieces of any size.
///
/// Cells stand between separators, or between double quotes, inside which separators and line ends are text and "" is one
/// quote. Lines end with LF, CR LF or CR. Blanks around an unquoted cell do not belong to it, unless the separator is a tab
/// and the blank is one too.
class CsvTokenizer
{
public:
    /// Of a cell; what it has beyond that is left out.
    static constexpr std::size_t longestCell = std::size_t{1} << 20;

    struct Handler
    {
        virtual ~Handler() = default;
        /// @param quoted the cell stood between quotes
        virtual void cell(std::string const& text, bool quoted) = 0;
        /// @param line one-based number of the line on which the row began
        /// @param blank the line held nothing at all
        virtual void endOfRow(std::int64_t line, bool blank) = 0;
    };

    /// @param firstLine one-based number of the line that comes first
    CsvTokenizer(char separator, Handler& handler, std::int64_t firstLine = 1);

    void add(char const* text, std::size_t size);

    /// Ends the last row if it has no line end. @return false when a quote was left open
    bool finish();

private:
    enum class State
    {
        CellStart,
        Plain,
        Quoted,
        QuoteInQuoted,
        AfterQuoted
    };

    void take(char c);
    void takeQuoted(char c);
    void put(char c);
    void endCell();
    void endRow();

    char m_separator;
    Handler& m_handler;
    State m_state = State::CellStart;
    std::string m_text;
    bool m_quoted = false;
    bool m_rowIsBlank = true;
    bool m_afterCarriageReturn = false;
    std::int64_t m_line;
    std::int64_t m_rowLine;
};

} // namespace veldraw::app
