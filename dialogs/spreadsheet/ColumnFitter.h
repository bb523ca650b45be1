#pragma once

#include "dialogs/models/TableModelInterface.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <QObject>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <functional>
#include <set>

class QModelIndex;
class QTableView;

namespace veldraw::sdk::ui::propertymanager {

/// Widens the columns of a table view, at idle, so that their names and the cells in view can be read: when it shows another
/// table, which another format makes too, and when a cell is edited. All columns get the room that the widest cell needs.
///
/// No cell out of view is measured, and nothing happens while the user scrolls. No column is narrowed before a table of another
/// size comes, and none is touched that was resized by hand. A table with more columns than anybody walks through keeps its
/// widths.
class ColumnFitter : public QObject
{
    Q_OBJECT

public:
    using Table = dialogs::propertybindings::models::TableModelInterface;
    using TableInView = std::function<boost::shared_ptr<Table>()>;

    /// Belongs to the view, which has its model already.
    /// @param tableInView what the model stands for at the moment
    ColumnFitter(QTableView& view, TableInView const& tableInView);
    ~ColumnFitter() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void listenToModel();
    void onDataChanged(QModelIndex const& first, QModelIndex const& last);
    void onSectionResized(int column, int oldWidth, int newWidth);
    void measureLater();
    void fitLater();
    void fit();
    void measureCells();
    bool isCurrentInView() const;

    QTableView& m_view;
    TableInView const m_tableInView;
    boost::weak_ptr<Table> m_measured;
    int m_widthOfCells = 0; // that the widest cell needed which was measured
    bool m_isMeasuringDue = false;
    bool m_isSizeNew = false;
    bool m_isFitting = false; // sections are resized by us and not by hand
    std::set<int> m_resizedByHand;
    common::OnIdleActionPerformerSingleShot m_performer;
};

} // namespace veldraw::sdk::ui::propertymanager
