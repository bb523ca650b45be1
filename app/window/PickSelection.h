#pragma once

#include "app/window/SessionFollower.h"

#include <QItemSelection>
#include <QObject>

#include <set>

class QAbstractItemView;

namespace veldraw::app {

class ZoneTableModel;

/// Keeps what is selected in the table of zones and what is picked in the plots the same, for enabled zones: whoever has no
/// mouse picks with the arrow keys.
///
/// Zones that are in no data set any more are not picked any more. Picked zones of other data sets than the active frame's stay picked. Disabled zones can be selected, but are not picked.
class PickSelection : public QObject
{
    Q_OBJECT

public:
    /// @param view shows @p model; both must outlive this object
    PickSelection(kernel::Session& session, ZoneTableModel& model, QAbstractItemView& view);

    /// Brings the model up to date, takes zones that are gone out of the picks, and selects what is picked.
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
