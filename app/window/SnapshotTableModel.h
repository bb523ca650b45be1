#pragma once

#include "kernel/base/Identifier.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

namespace veldraw::app {

/// A table over a list of things in the session that have identifiers: zones, variables, frames.
///
/// The model keeps a copy of what it shows. refresh() reads the session again and tells views only the difference, row by
/// row, so selection and scroll position survive. The first column has the number and, where rows can be enabled, a check
/// box; the second has the name, which can be edited in place. Edits go to the session, are refused while an AppLock is
/// held, and come back by refresh().
class SnapshotTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NumberColumn = 0,
        NameColumn = 1
    };

    /// @param headers one a column; the first two are those of number and name
    SnapshotTableModel(QStringList headers, bool isCheckable, QObject* parent = nullptr);

    /// Reads the session again.
    virtual void refresh();

    /// Identifier of the thing in a row, 0 for a row that does not exist.
    kernel::UniqueId idAt(int row) const;

    /// Row of the thing, -1 if it is not shown.
    int rowOf(kernel::UniqueId id) const;

    /// The text of a cell without computing it; a text of usual width if it is not known yet.
    virtual QString knownText(int row, int column) const;

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(QModelIndex const& index) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// An edit was not carried out.
    void editRefused();

protected:
    struct Row
    {
        kernel::UniqueId id = 0;
        QStringList texts; ///< one a column
        bool isChecked = true;
        bool isEmphasized = false;
        QString toolTip;

        bool operator==(Row const& other) const;
    };

    virtual std::vector<Row> readRows() const = 0;
    virtual bool rename(kernel::UniqueId id, QString const& name) = 0;
    virtual bool setChecked(kernel::UniqueId id, bool checked);

    /// Carries out what setData() was told. @return false when it was refused
    virtual bool edit(Row const& row, QModelIndex const& index, QVariant const& value, int role);

private:
    void removeMissing(std::vector<Row> const& rows);
    bool insertNew(std::vector<Row> const& rows);
    void updateChanged(std::vector<Row> const& rows);

    QStringList m_headers;
    bool m_isCheckable;
    std::vector<Row> m_rows;
};

} // namespace veldraw::app
