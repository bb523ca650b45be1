#include "dialogs/bindings/ListViewSelection.h"

#include "dialogs/models/ReadingAsTold.h"

#include <QAbstractItemModel>

#include <algorithm>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

/// Answers whether a set has a value. Lists are mostly ascending, as the set is, so it looks behind the last hit first.
class AscendingLookup
{
public:
    explicit AscendingLookup(std::set<int> const& values)
        : m_values(values)
        , m_next(values.begin())
    {
    }

    bool contains(int value)
    {
        if (m_next == m_values.end() || *m_next != value)
            m_next = m_values.lower_bound(value);
        if (m_next == m_values.end() || *m_next != value)
            return false;
        ++m_next;
        return true;
    }

private:
    std::set<int> const& m_values;
    std::set<int>::const_iterator m_next;
};

} // namespace

QItemSelection selectionOfValues(std::set<int> const& values, models::ListModelInterface<int> const& list,
                                 QAbstractItemModel const& itemModel)
{
    QItemSelection selection;
    if (values.empty())
        return selection;
    AscendingLookup lookup(values);
    models::ReadingAsTold const asTold; // as the item model has its rows
    int const size = list.size();
    for (int row = 0; row < size; ++row) {
        if (!lookup.contains(list.get(row)))
            continue;
        int const first = row;
        while (row + 1 < size && lookup.contains(list.get(row + 1)))
            ++row;
        selection.append(QItemSelectionRange(itemModel.index(first, 0), itemModel.index(row, 0)));
    }
    return selection;
}

std::set<int> valuesOfSelection(QItemSelection const& selection, models::ListModelInterface<int> const& list)
{
    std::vector<int> values;
    models::ReadingAsTold const asTold;
    int const size = list.size();
    for (QItemSelectionRange const& range : selection) {
        for (int row = range.top(); row <= range.bottom() && row < size; ++row) {
            if (!list.isHeader(row))
                values.push_back(list.get(row));
        }
    }
    // A set is built in linear time from ascending values only.
    std::sort(values.begin(), values.end());
    return std::set<int>(values.begin(), values.end());
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
