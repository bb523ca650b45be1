#include "app/window/PickSelection.h"

#include "app/window/ZoneTableModel.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAbstractItemView>

namespace veldraw::app {

PickSelection::PickSelection(kernel::Session& session, ZoneTableModel& model, QAbstractItemView& view)
    : m_session(session)
    , m_model(model)
    , m_view(view)
{
    listen();
}

void PickSelection::listen()
{
    m_connection =
        connect(m_view.selectionModel(), &QItemSelectionModel::selectionChanged, this, &PickSelection::takeSelection);
}

void PickSelection::refresh()
{
    disconnect(m_connection); // rows that go leave the selection, which is no choice of the user's
    m_model.refresh();
    if (!m_session.picks().empty())
        dropGonePicks();
    showPicks();
    listen();
}

bool PickSelection::isEnabledRow(int row) const
{
    return m_model.index(row, ZoneTableModel::NumberColumn).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

std::set<int> PickSelection::selectedRows() const
{
    std::set<int> rows;
    for (QItemSelectionRange const& range : m_view.selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.insert(row);
    return rows;
}

void PickSelection::takeSelection()
{
    std::set<int> const selected = selectedRows();
    std::set<kernel::UniqueId> listed;
    std::set<kernel::UniqueId> wanted;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        listed.insert(m_model.idAt(row));
        if (selected.count(row) != 0 && isEnabledRow(row))
            wanted.insert(m_model.idAt(row));
    }
    // The order in which things were picked is kept.
    std::vector<kernel::Pick> picks;
    for (kernel::Pick const& pick : m_session.picks())
        if (listed.count(pick.zone) == 0 || wanted.erase(pick.zone) != 0)
            picks.push_back(pick);
    bool const isSame = wanted.empty() && picks.size() == m_session.picks().size();
    if (isSame || sdk::AppLock::depth() > 0)
        return;
    for (kernel::UniqueId const zone : wanted)
        picks.push_back({kernel::Pick::zoneType, zone});
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    m_session.setPicks(std::move(picks));
}

// A pick whose zone is in no data set any more is over.
void PickSelection::dropGonePicks()
{
    std::set<kernel::UniqueId> zones;
    for (auto const& page : m_session.pages().all())
        for (auto const& frame : page->frames)
            for (int number = 1; frame->dataSet && number <= frame->dataSet->zoneCount(); ++number)
                zones.insert(frame->dataSet->zone(number)->id);
    std::vector<kernel::Pick> picks;
    for (kernel::Pick const& pick : m_session.picks())
        if (zones.count(pick.zone) != 0)
            picks.push_back(pick);
    if (picks.size() == m_session.picks().size())
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    m_session.setPicks(std::move(picks));
}

void PickSelection::showPicks()
{
    std::set<kernel::UniqueId> picked;
    for (kernel::Pick const& pick : m_session.picks())
        picked.insert(pick.zone);
    std::set<int> const selected = selectedRows();
    QItemSelection selection;
    bool isSame = true;
    int const rowCount = m_model.rowCount();
    for (int row = 0, first = 0; row <= rowCount; ++row) {
        bool const wasSelected = selected.count(row) != 0;
        bool const isSelected =
            row < rowCount && (isEnabledRow(row) ? picked.count(m_model.idAt(row)) != 0 : wasSelected);
        isSame = isSame && isSelected == wasSelected;
        if (isSelected)
            continue;
        if (first < row) // rows side by side are one range
            selection.select(m_model.index(first, 0), m_model.index(row - 1, m_model.columnCount() - 1));
        first = row + 1;
    }
    if (!isSame)
        m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace veldraw::app
