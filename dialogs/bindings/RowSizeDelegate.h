#pragma once

#include <QHash>
#include <QString>
#include <QStyledItemDelegate>

class QAbstractItemView;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Shows rows as `QStyledItemDelegate` does and remembers how large they are.
///
/// After each change of its list a list view asks for the size of every row, and Qt shapes the text each time: a third of
/// a second for 100,000 rows. Rows of a `QListModel` have nothing but a text, so equal texts have equal sizes until font
/// or style change. Rows of other models, and texts that wrap, are measured as ever.
class RowSizeDelegate : public QStyledItemDelegate
{
public:
    /// Gives the view such a delegate, which belongs to it, unless somebody gave it one of another kind.
    static void install(QAbstractItemView& view);

    explicit RowSizeDelegate(QAbstractItemView& view);
    ~RowSizeDelegate() override;

    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    /// Forgets all sizes when the view's font or style changes.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAbstractItemView& m_view;
    mutable QHash<QString, QSize> m_sizes;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
