#include "dialogs/datasetinfo/NamedRowsSelection.h"

#include "dialogs/bindings/ScopedExitAction.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace veldraw::sdk::ui::dialogs::propertybindings {

NamedRowsSelection::NamedRowsSelection(QAbstractItemView& view)
    : QObject(&view)
    , m_view(view)
{
    QAbstractItemModel const* const table = view.model();
    // Behind the view's own connections, which have done their part then.
    connect(table, &QAbstractItemModel::modelReset, this, &NamedRowsSelection::restore);
    connect(table, &QAbstractItemModel::dataChanged, this, &NamedRowsSelection::restore);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, &NamedRowsSelection::note);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, &NamedRowsSelection::note);
}

NamedRowsSelection::~NamedRowsSelection() = default;

NamedRowsSelection::Cell NamedRowsSelection::cellOf(QModelIndex const& index)
{
    return {index.siblingAtColumn(0).data().toString(), index.column()};
}

void NamedRowsSelection::note()
{
    if (m_isRestoring)
        return;
    m_selected.clear();
    for (QModelIndex const& index : m_view.selectionModel()->selectedIndexes())
        m_selected.insert(cellOf(index));
    m_current = cellOf(m_view.currentIndex());
}

void NamedRowsSelection::restore()
{
    if (m_selected.isEmpty() && m_current.second < 0)
        return;
    m_isRestoring = true;
    ScopedExitAction const done([this] { m_isRestoring = false; });
    QAbstractItemModel const& table = *m_view.model();
    QItemSelection selection;
    QModelIndex current;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            QModelIndex const index = table.index(row, column);
            Cell const cell = cellOf(index);
            if (m_selected.contains(cell))
                selection.append(QItemSelectionRange(index));
            if (cell == m_current)
                current = index;
        }
    }
    m_view.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
