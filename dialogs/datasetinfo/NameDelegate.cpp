#include "dialogs/datasetinfo/NameDelegate.h"

#include <QLineEdit>
#include <QListView>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

// Of an editor: the unique identifier of what is edited.
constexpr char editedThing[] = "editedThing";

} // namespace

NameDelegate::NameDelegate(QListView& view, propertymanager::NamedThings things)
    : RowSizeDelegate(view)
    , m_things(std::move(things))
    , m_performer([this] { renameAll(); })
{
    view.setUniformItemSizes(true);
}

NameDelegate::~NameDelegate() = default;

void NameDelegate::follow(QAbstractItemModel const& model)
{
    // An editor that the user has given up is hidden, as is one whose window is off the screen.
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        m_longestRow.reset();
        if (m_editor && m_editor->isVisible())
            take(*m_editor);
    });
    connect(&model, &QAbstractItemModel::dataChanged, this, [this] { m_longestRow.reset(); });
    m_longestRow.reset();
}

// A layout asks several times, and there may be very many names.
int NameDelegate::longestRow() const
{
    if (!m_longestRow)
        m_longestRow = m_things.longestRow();
    return *m_longestRow;
}

// The view asks for its first row only.
QSize NameDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    return RowSizeDelegate::sizeHint(option, index.siblingAtRow(longestRow()));
}

QWidget* NameDelegate::createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    QWidget* const editor = RowSizeDelegate::createEditor(parent, option, index);
    m_editor = qobject_cast<QLineEdit*>(editor);
    if (m_editor)
        m_editor->setProperty(editedThing, m_things.idOf(index.data(Qt::UserRole).toInt()));
    return editor;
}

void NameDelegate::setModelData(QWidget* editor, QAbstractItemModel*, QModelIndex const&) const
{
    if (auto* const lineEdit = qobject_cast<QLineEdit*>(editor))
        take(*lineEdit);
}

void NameDelegate::take(QLineEdit& editor) const
{
    if (!editor.isModified())
        return;
    editor.setModified(false);
    m_typed.emplace_back(editor.property(editedThing).toLongLong(), editor.text().toStdString());
    m_performer.enableNotification();
}

void NameDelegate::renameAll()
{
    // A message runs an event loop, in which more may be typed, and which may end this delegate.
    std::vector<std::pair<long long, std::string>> const typed = std::exchange(m_typed, {});
    propertymanager::NamedThings const things = m_things;
    for (auto const& [id, name] : typed)
        things.rename(id, name);
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
