#pragma once

#include "dialogs/models/TableModelAbstract.h"
#include "dialogs/models/TableModelListenerInterface.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace veldraw::tests {

namespace tables = sdk::ui::dialogs::propertybindings::models;

/// A table of any size that holds nothing but what was written to it: an untouched cell reads "row,column".
class FakeTable : public tables::TableModelAbstract
{
public:
    FakeTable(unsigned long long rows, unsigned long long columns, std::string prefix = {})
        : m_rows(rows)
        , m_columns(columns)
        , m_prefix(std::move(prefix))
    {
    }

    unsigned long long columnCount() const override { return m_columns; }
    unsigned long long rowCount() const override { return m_rows; }
    std::string columnName(unsigned long long column) const override { return "c" + std::to_string(column + 1); }
    std::string rowName(unsigned long long row) const override { return std::to_string(row + 1); }
    bool isEditable(tables::ModelIndex const& index) const override { return editable && index.row != lockedRow; }
    std::string getStr(tables::ModelIndex const& index) const override
    {
        ++reads;
        auto const written = m_written.find({index.row, index.column});
        if (written != m_written.end())
            return written->second;
        return m_prefix + std::to_string(index.row) + "," + std::to_string(index.column);
    }
    bool setStr(tables::ModelIndex const& index, std::string const& text) override
    {
        if (!editable)
            return false;
        m_written[{index.row, index.column}] = text;
        notifyOfItemChanged(index);
        return true;
    }

    void resize(unsigned long long rows, unsigned long long columns)
    {
        m_rows = rows;
        m_columns = columns;
        notifyOfDataChanged();
    }
    void alterAll(std::string prefix)
    {
        m_prefix = std::move(prefix);
        notifyOfDataChanged();
    }
    void insertRows(unsigned long long first, unsigned long long last)
    {
        m_rows += last - first + 1;
        listeners().tell([&](tables::TableModelListenerInterface& heard) { heard.rowsInserted(first, last, *this); });
    }
    void removeRows(unsigned long long first, unsigned long long last)
    {
        m_rows -= last - first + 1;
        listeners().tell([&](tables::TableModelListenerInterface& heard) { heard.rowsRemoved(first, last, *this); });
    }
    using TableModelAbstract::notifyOfDataChanged;
    using TableModelAbstract::notifyOfItemChanged;

    bool editable = true;
    unsigned long long lockedRow = ~0ull;
    mutable int reads = 0;

private:
    unsigned long long m_rows;
    unsigned long long m_columns;
    std::string m_prefix;
    std::map<std::pair<unsigned long long, unsigned long long>, std::string> m_written;
};

/// Writes down what it hears, and from whom.
class TableLog : public tables::TableModelListenerInterface
{
public:
    explicit TableLog(tables::TableModelInterface& table)
        : m_table(table)
    {
        m_table.addListener(this);
    }
    ~TableLog() override { m_table.removeListener(this); }
    TableLog(TableLog const&) = delete;
    TableLog& operator=(TableLog const&) = delete;

    std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    void dataChanged(tables::TableModelInterface& from) override { note("data", from); }
    void itemChanged(tables::ModelIndex const& index, tables::TableModelInterface& from) override
    {
        note("item " + std::to_string(index.row) + "," + std::to_string(index.column), from);
    }
    void rowsInserted(unsigned long long first, unsigned long long last, tables::TableModelInterface& from) override
    {
        note("inserted " + std::to_string(first) + "-" + std::to_string(last), from);
    }
    void rowsRemoved(unsigned long long first, unsigned long long last, tables::TableModelInterface& from) override
    {
        note("removed " + std::to_string(first) + "-" + std::to_string(last), from);
    }
    void note(std::string const& what, tables::TableModelInterface const& from)
    {
        m_lines.push_back(&from == &m_table ? what : what + " of another table");
    }

    tables::TableModelInterface& m_table;
    std::vector<std::string> m_lines;
};

} // namespace veldraw::tests
