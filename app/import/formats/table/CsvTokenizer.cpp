#include "app/import/formats/table/CsvTokenizer.h"

namespace veldraw::app {

CsvTokenizer::CsvTokenizer(char separator, Handler& handler, std::int64_t firstLine)
    : m_separator(separator)
    , m_handler(handler)
    , m_line(firstLine)
    , m_rowLine(firstLine)
{
}

void CsvTokenizer::add(char const* text, std::size_t size)
{
    for (std::size_t n = 0; n < size; ++n) {
        char const c = text[n];
        bool const secondHalf = m_afterCarriageReturn && c == '\n';
        m_afterCarriageReturn = c == '\r';
        if (m_state == State::Quoted)
            takeQuoted(c);
        else if (!secondHalf)
            take(c);
    }
}

bool CsvTokenizer::finish()
{
    if (m_state == State::Quoted)
        return false;
    if (!m_rowIsBlank)
        endRow();
    return true;
}

void CsvTokenizer::takeQuoted(char c)
{
    if (c == '\n')
        ++m_line;
    if (c == '"')
        m_state = State::QuoteInQuoted;
    else
        put(c);
}

void CsvTokenizer::take(char c)
{
    if (c == '\n' || c == '\r') {
        endRow();
        return;
    }
    m_rowIsBlank = false;
    if (c == m_separator) {
        endCell();
    } else if (c == '"' && m_state == State::QuoteInQuoted) {
        put(c);
        m_state = State::Quoted;
    } else if (c == '"' && m_state == State::CellStart) {
        m_state = State::Quoted;
        m_quoted = true;
    } else if (c == ' ' || c == '\t') {
        if (m_state == State::Plain)
            put(c);
        else if (m_state == State::QuoteInQuoted)
            m_state = State::AfterQuoted;
    } else {
        put(c);
        m_state = m_quoted ? State::AfterQuoted : State::Plain;
    }
}

void CsvTokenizer::put(char c)
{
    if (m_text.size() < longestCell)
        m_text += c;
}

void CsvTokenizer::endCell()
{
    if (!m_quoted && m_text.size() < longestCell) {
        std::size_t const last = m_text.find_last_not_of(" \t");
        m_text.erase(last == std::string::npos ? 0 : last + 1);
    }
    m_handler.cell(m_text, m_quoted);
    m_text.clear();
    m_quoted = false;
    m_state = State::CellStart;
}

void CsvTokenizer::endRow()
{
    bool const blank = m_rowIsBlank;
    if (!blank)
        endCell();
    m_handler.endOfRow(m_rowLine, blank);
    m_rowLine = ++m_line;
    m_rowIsBlank = true;
    m_state = State::CellStart;
}

} // namespace veldraw::app
