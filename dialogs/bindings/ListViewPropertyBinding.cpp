#include "dialogs/bindings/ListViewPropertyBinding.h"

#include "dialogs/bindings/RowSizeDelegate.h"
#include "dialogs/bindings/WidgetVote.h"

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
void ListViewPropertyBinding::init()
{
    if (m_view->selectionMode() == QAbstractItemView::SingleSelection)
        m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    RowSizeDelegate::install(*m_view);
    m_qtConnections.add(connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                                [this] { m_synchronizer->updateProperty(); }));
}

void ListViewPropertyBinding::follow(UIPropertyInterface& uiProperty)
{
    auto const applyUIState = [this, &uiProperty] {
        WidgetVote::castFor(&uiProperty, m_view, WidgetVote::Enabled, uiProperty.isSensitive());
        WidgetVote::castFor(&uiProperty, m_view, WidgetVote::Visible, uiProperty.isVisible());
    };
    applyUIState();
    m_uiStateUpdater = std::make_unique<common::OnIdleActionPerformerSingleShot>(applyUIState);
    m_connections.add(uiProperty.connectSensitivityChanged([this] { m_uiStateUpdater->enableNotification(); }));
    m_connections.add(uiProperty.connectVisibilityChanged([this] { m_uiStateUpdater->enableNotification(); }));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
