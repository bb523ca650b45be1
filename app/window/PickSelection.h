#pragma once

#include "app/window/SessionFollower.h"

#include <QItemSelection>
#include <QObject>

#include <set>

class QAbstractItemView;

namespace veldraw::app {

class ZoneTableModel;

/// Keeps the selection in the table of zones equal to the picks in the plots, so that zones can be picked by the keyboard.
///
/// Disabled zones can be selected, but are not picked. Zones of other data sets than the active frame's stay picked. A deleted
/// zone is no longer picked.
class PickSelection : public QObject
{
    Q_OBJECT

public:
    /// @param view shows @p model; both must outlive this object
    PickSelection(kernel::Session& session, ZoneTableModel& model, QAbstractItemView& view);

    /// Updates the model, removes deleted zones from the picks, and selects the picked zones.
    void refresh();

private:
    void listen();
    void showPicks();
    void takeSelection();
    void dropGonePicks();
    std::set<int> selectedRows() const;
    bool isEnabledRow(int row) const;

    kernel::Session& m_session;
    ZoneTableModel& m_model;
    QAbstractItemView& m_view;
    QMetaObject::Connection m_connection;
};

} // namespace veldraw::app
