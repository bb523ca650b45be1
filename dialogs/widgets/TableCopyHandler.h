#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QObject>
#include <QString>

#include <functional>

class QTableView;

namespace veldraw::ui {

/// Copies the selected cells of a table view to the clipboard as text: cells parted by tabs, rows by line feeds, without
/// headers, every value as it is edited, with all its digits. Cells of the selection's rectangle that aren't selected are
/// left empty. Ctrl+C in the table does it.
class VDSDKDIALOGS_DATA_QT_API TableCopyHandler : public QObject
{
    Q_OBJECT

public:
    /// It belongs to the table.
    explicit TableCopyHandler(QTableView* table);
    ~TableCopyHandler() override;

    /// For a view that shows only a part of its table: gives the text of what is selected in the whole of it. A null text
    /// leaves the clipboard alone.
    void setSelectedText(std::function<QString()> const& selectedText);

    /// The text of what is selected in the view; null when nothing is.
    QString textOfView() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    /// With nothing selected the clipboard stays as it is.
    void copyToClipboard();

private:
    QTableView& m_table;
    std::function<QString()> m_selectedText;
};

} // namespace veldraw::ui
