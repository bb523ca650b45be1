#include "dialogs/bindings/ListViewPropertyBinding.h"

#include <QItemSelectionModel>

namespace veldraw::sdk::ui::dialogs::propertybindings {

ListViewPropertyBinding::~ListViewPropertyBinding()
{
    // Taking the list away from the view must not look like a user who deselects everything.
    m_qtConnections.clear();
    m_connections.clear();
}

void ListViewPropertyBinding::setSelectionMode(QAbstractItemView::SelectionMode mode)
{
    if (m_view)
        m_view->setSelectionMode(mode);
}

// Runs after the synchronizer has given the view its list, since that gives it a new selection model as well.
void ListViewPropertyBinding::init(ModelUpdateMode)
{
    if (m_view->selectionMode() == QAbstractItemView::SingleSelection)
        m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_qtConnections.add(connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                                [this] { m_synchronizer->updateProperty(); }));
}

void ListViewPropertyBinding::follow(UIPropertyInterface& uiProperty)
{
    m_view->setEnabled(uiProperty.isSensitive());
    m_view->setVisible(uiProperty.isVisible());
    m_uiStateUpdater.reset(new common::OnIdleActionPerformerSingleShot([this, &uiProperty] {
        if (!m_view)
            return;
        m_view->setEnabled(uiProperty.isSensitive());
        m_view->setVisible(uiProperty.isVisible());
    }));
    m_connections.add(uiProperty.connectSensitivityChanged([this] { m_uiStateUpdater->enableNotification(); }));
    m_connections.add(uiProperty.connectVisibilityChanged([this] { m_uiStateUpdater->enableNotification(); }));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
