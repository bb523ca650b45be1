#pragma once

#include "app/window/NumberChooser.h"
#include "app/window/SnapshotTableModel.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/session/Session.h"

#include <set>

namespace veldraw::app {

/// The line maps of the active frame, if that is a line plot: what each shows and what it looks like. An edit of one of several rows that
/// go together alters all of them alike, but for the name.
class LineMapTableModel : public SnapshotTableModel
{
    Q_OBJECT

public:
    enum LineMapColumn
    {
        ZoneColumn = NameColumn + 1,
        XColumn,
        YColumn,
        ColourColumn,
        LineColumn,
        WidthColumn,
        SymbolsColumn,
        AxisColumn,
        ColumnCount
    };

    static constexpr int otherColour = -2; ///< in the choices of a colour: one that is not among them

    explicit LineMapTableModel(kernel::Session& session, QObject* parent = nullptr);

    /// What can be chosen in a cell, none where text or a number is typed; Qt::EditRole of the cell is the number of the present choice.
    NumberChooser::Choices choices(QModelIndex const& index) const;

    /// Has these line maps altered together.
    void setTogether(std::set<kernel::UniqueId> maps) { m_together = std::move(maps); }

    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(QModelIndex const& index) const override;

    /// The active frame where it shows curves of data; null otherwise.
    static std::shared_ptr<kernel::Frame> linePlot(kernel::Session const& session);

protected:
    std::vector<Row> readRows() const override;
    bool rename(kernel::UniqueId id, QString const& name) override;
    bool edit(Row const& row, QModelIndex const& index, QVariant const& value, int role) override;

private:
    kernel::LineMap const* mapAt(int row) const;
    QVariant numberAt(kernel::LineMap const& map, int column) const;
    kernel::NumberSet numbersWith(kernel::UniqueId map) const;

    kernel::Session& m_session;
    std::set<kernel::UniqueId> m_together;
};

} // namespace veldraw::app
