#pragma once

#include "dialogs/models/ListModelInterface.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <string>
#include <utility>

namespace veldraw::tests {

/// Writes down what a list tells, in its order: "data; item 3; inserted 1-2; removing 1-2; removed".
class ListLog
{
public:
    template <typename T>
    explicit ListLog(sdk::ui::dialogs::propertybindings::models::ListModelInterface<T> const& list)
    {
        m_connections.add(list.connectDataChanged([this] { note("data"); }));
        m_connections.add(list.connectItemChanged([this](int row) { note("item " + std::to_string(row)); }));
        m_connections.add(
            list.connectItemsInserted([this](int first, int last) { note(range("inserted", first, last)); }));
        m_connections.add(
            list.connectItemsAboutToBeRemoved([this](int first, int last) { note(range("removing", first, last)); }));
        m_connections.add(list.connectItemsRemoved([this] { note("removed"); }));
    }

    /// What was told since the last call.
    std::string take() { return std::exchange(m_text, std::string()); }

private:
    static std::string range(char const* what, int first, int last)
    {
        return std::string(what) + " " + std::to_string(first) + "-" + std::to_string(last);
    }

    void note(std::string const& text) { m_text += (m_text.empty() ? "" : "; ") + text; }

    std::string m_text;
    SignalConnectionCollection m_connections;
};

} // namespace veldraw::tests
