#include "app/import/formats/table/TableProblems.h"

#include "app/files/ImportError.h"

namespace veldraw::app {

namespace {

constexpr std::size_t mostTold = 10;

} // namespace

void TableProblems::addOfCell(std::size_t column, std::string const& what)
{
    if (m_told.size() + m_ofCells.size() < mostTold)
        m_ofCells.emplace_back(column, what);
    else
        ++m_count;
}

void TableProblems::endRow(std::int64_t line, std::vector<std::string> const& names)
{
    for (auto const& [column, what] : m_ofCells)
        addOfLine(line, "column " + std::to_string(column + 1) + " (" + names[column] + ") " + what);
    m_ofCells.clear();
}

void TableProblems::endRow(std::int64_t line, std::string const& what)
{
    m_ofCells.clear();
    addOfLine(line, what);
}

void TableProblems::addOfLine(std::int64_t line, std::string const& what)
{
    ++m_count;
    if (m_told.size() < mostTold)
        m_told.push_back("line " + std::to_string(line) + ": " + what);
}

void TableProblems::throwIfAny() const
{
    if (m_count == 0)
        return;
    std::string text = "nothing was imported because of errors";
    for (std::string const& one : m_told)
        text += "\n" + one;
    auto const more = m_count - static_cast<std::int64_t>(m_told.size());
    if (more > 0)
        text += "\nand " + std::to_string(more) + " more";
    throw ImportError(text);
}

} // namespace veldraw::app
