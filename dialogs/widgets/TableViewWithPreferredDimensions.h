#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QTableView>

namespace veldraw::dialogs::common {

/// A table view that asks for room for a number of rows and columns, whatever the size of its table.
class VDSDKDIALOGS_DATA_QT_API TableViewWithPreferredDimensions : public QTableView
{
    Q_OBJECT

public:
    explicit TableViewWithPreferredDimensions(QWidget* parent = nullptr);
    ~TableViewWithPreferredDimensions() override;

    /// Without a preference, or with one below 1, the size hint is that of every table view.
    void setPreferredNumberOfRows(int count);
    void setPreferredNumberOfColumns(int count);

    /// Headers, frame and scroll bars around the preferred sections of default size.
    QSize sizeHint() const override;

    /// Brings scroll bars and headers in line with the item model now instead of at the next event.
    void layOutNow();

    /// The editor of the current cell, null while none is open.
    QWidget* openEditor() const;

    /// Takes what is being typed in the current cell and closes its editor, as when the focus leaves it.
    void finishEdit();

private:
    int m_preferredRows = 0;
    int m_preferredColumns = 0;
};

} // namespace veldraw::dialogs::common
