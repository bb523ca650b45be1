#include "dialogs/bindings/ListViewPropertySynchronizer.h"

#include "dialogs/bindings/ListViewSelection.h"
#include "dialogs/bindings/ScopedExitAction.h"
#include "dialogs/bindings/WidgetVote.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// How many pairs of ranges Qt may compare without a delay that a user notices.
constexpr long long mostComparedRanges = 10000;

template <typename V>
ListViewPropertySynchronizer<V>::ListViewPropertySynchronizer(
    QAbstractItemView* view, boost::shared_ptr<models::ListModelInterface<int> const> model,
    boost::shared_ptr<PropertyAbstract<V>> property, BindingInterface::ModelUpdateMode mode)
    : m_view(view)
    , m_model(model)
    , m_sharedProperty(property)
    , m_property(property.get())
    , m_uiProperty(nullptr)
    , m_performer(*property, [this] { updateWidget(); })
    , m_itemModel(new models::QListModel(*model))
    , m_modelPerformer([this] { listChangeSettled(); })
    , m_updateMode(mode)
{
    setUp();
}

template <typename V>
ListViewPropertySynchronizer<V>::ListViewPropertySynchronizer(
    QAbstractItemView* view, boost::shared_ptr<models::ListModelInterface<int> const> model,
    UIStylePropertyAbstract<V>& property, BindingInterface::ModelUpdateMode mode)
    : m_view(view)
    , m_model(model)
    , m_property(&property)
    , m_uiProperty(&property)
    , m_performer(property, [this] { updateWidget(); })
    , m_itemModel(new models::QListModel(*model))
    , m_modelPerformer([this] { listChangeSettled(); })
    , m_updateMode(mode)
{
    setUp();
}

template <typename V>
ListViewPropertySynchronizer<V>::~ListViewPropertySynchronizer()
{
    m_qtConnections.clear();
    // Taken away while it still lives: Qt complains when it has to clear the selection in a model that is gone.
    if (selectionModel())
        m_view->setModel(nullptr);
}

// The view gets the model first, so that on each of the model's signals it has done its own part before ours.
template <typename V>
void ListViewPropertySynchronizer<V>::setUp()
{
    m_view->setModel(m_itemModel.get());
    m_qtConnections.add(
        QObject::connect(m_itemModel.get(), &QAbstractItemModel::rowsRemoved, [this] { listChanged(); }));
    m_qtConnections.add(
        QObject::connect(m_itemModel.get(), &QAbstractItemModel::modelReset, [this] { listChanged(); }));
    m_qtConnections.add(
        QObject::connect(m_itemModel.get(), &QAbstractItemModel::dataChanged, [this] { updateProperty(); }));
    updateWidget();
}

template <typename V>
void ListViewPropertySynchronizer<V>::listChanged()
{
    m_selectionChangedByUpdate = true;
    if (m_updateMode == BindingInterface::ModelUpdateDeferredOnBusy)
        m_modelPerformer.enableNotification();
    else
        listChangeSettled();
}

template <typename V>
void ListViewPropertySynchronizer<V>::listChangeSettled()
{
    m_selectionChangedByUpdate = false;
    updateWidget();
    updateProperty();
}

template <typename V>
void ListViewPropertySynchronizer<V>::updateWidget()
{
    m_selectionChangedByUpdate = true;
    ScopedExitAction const reset([this] { m_selectionChangedByUpdate = false; });
    if (selectionModel())
        applySelection(selectionOfValues(m_property->value(), *m_model, *m_itemModel));
}

template <typename V>
void ListViewPropertySynchronizer<V>::applySelection(QItemSelection const& selection)
{
    // A view that paints works out the region of every row that changed; painting all that is visible is cheaper.
    bool const pausesPainting = m_view->updatesEnabled();
    if (pausesPainting)
        m_view->setUpdatesEnabled(false);
    ScopedExitAction const resume([this, pausesPainting] {
        if (pausesPainting && m_view)
            m_view->setUpdatesEnabled(true);
    });
    // Qt compares each range of the old selection with each of the new one; with many of both that takes minutes.
    QItemSelectionModel& selected = *selectionModel();
    if (static_cast<long long>(selected.selection().size()) * selection.size() > mostComparedRanges)
        selected.clearSelection();
    selected.select(selection, QItemSelectionModel::ClearAndSelect);
}

// A listener of the property may end this synchronizer, and with it the last owner of the property.
template <typename V>
void ListViewPropertySynchronizer<V>::updateProperty()
{
    if (m_selectionChangedByUpdate || !selectionModel())
        return;
    QPointer<QObject> const self = m_itemModel.get();
    boost::shared_ptr<PropertyAbstract<V>> const keptProperty = m_sharedProperty;
    V const values = valuesOfSelection(selectionModel()->selection(), *m_model);
    if (m_updateMode == BindingInterface::ModelUpdateDeferredOnBusy) {
        m_performer.enable(false);
        ScopedExitAction const listenAgain([this, self] {
            if (self)
                m_performer.enable(true);
        });
        m_property->setValue(values);
        return;
    }
    m_property->setValue(values);
    if (!self)
        return;
    updateWidget();
    applyUIProperty();
}

template <typename V>
void ListViewPropertySynchronizer<V>::applyUIProperty()
{
    if (!m_uiProperty || !m_view)
        return;
    WidgetVote::castFor(m_uiProperty, m_view, WidgetVote::Enabled, m_uiProperty->isSensitive());
    WidgetVote::castFor(m_uiProperty, m_view, WidgetVote::Visible, m_uiProperty->isVisible());
}

template <typename V>
QItemSelectionModel* ListViewPropertySynchronizer<V>::selectionModel() const
{
    return m_view && m_view->model() == m_itemModel.get() ? m_view->selectionModel() : nullptr;
}

template class ListViewPropertySynchronizer<std::set<int>>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
