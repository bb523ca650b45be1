#pragma once

#include "dialogs/models/ModelIndex.h"

#include <QObject>

#include <string>

class QWidget;

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

class TableModelInterface;
class ZoneVarTableModelAbstract;

/// The value that an open cell editor edits. While the editor is open the table may be replaced and zones and variables may be
/// renumbered; so this object identifies the value by unique identifiers.
class EditedCell : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the editor.
    EditedCell(QWidget& editor, ZoneVarTableModelAbstract const& table, ModelIndex const& cell);
    ~EditedCell() override;

    /// The one of an editor, null if it has none.
    static EditedCell const* of(QWidget const& editor);

    /// Where the editor was opened.
    ModelIndex const& cell() const { return m_cell; }

    /// Whether a cell of a table stands for the value now. The table has such a cell.
    bool isAt(ModelIndex const& cell, TableModelInterface const& table) const;

    /// Writes the value, whichever table is shown and whichever frame is active. The user is told when the kernel refuses, and when
    /// the value is gone or not loaded any more.
    /// @param alterInAllSharedZones whether the zones that share the values get the value, too
    void write(std::string const& text, bool alterInAllSharedZones) const;

private:
    ModelIndex const m_cell;
    long long const m_zoneID;
    long long const m_variableID;
    long long const m_offset;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
