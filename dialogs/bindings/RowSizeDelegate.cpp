#include "dialogs/bindings/RowSizeDelegate.h"

#include "dialogs/models/QListModel.h"

#include <QAbstractItemView>
#include <QEvent>

#include <typeinfo>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

// Texts that have left the list are kept for their return, but not for ever.
int mostTextsKept(int rows)
{
    return 2 * rows + 1000;
}

bool changesSizes(QEvent const& event)
{
    return event.type() == QEvent::StyleChange || event.type() == QEvent::FontChange ||
           event.type() == QEvent::ScreenChangeInternal;
}

} // namespace

void RowSizeDelegate::install(QAbstractItemView& view)
{
    QAbstractItemDelegate const* const present = view.itemDelegate();
    if (present && typeid(*present) == typeid(QStyledItemDelegate))
        view.setItemDelegate(new RowSizeDelegate(view));
}

RowSizeDelegate::RowSizeDelegate(QAbstractItemView& view)
    : QStyledItemDelegate(&view)
    , m_view(view)
{
    view.installEventFilter(this);
}

RowSizeDelegate::~RowSizeDelegate() = default;

QSize RowSizeDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    auto const* const list = dynamic_cast<models::QListModel const*>(index.model());
    if (!list || option.features.testFlag(QStyleOptionViewItem::WrapText))
        return QStyledItemDelegate::sizeHint(option, index);
    QString const text = list->data(index, Qt::DisplayRole).toString();
    auto const known = m_sizes.constFind(text);
    if (known != m_sizes.constEnd())
        return *known;
    QSize const size = QStyledItemDelegate::sizeHint(option, index);
    if (m_sizes.size() >= mostTextsKept(list->rowCount()))
        m_sizes.clear();
    m_sizes.insert(text, size);
    return size;
}

bool RowSizeDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != &m_view)
        return QStyledItemDelegate::eventFilter(watched, event);
    if (changesSizes(*event))
        m_sizes.clear();
    return false;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
