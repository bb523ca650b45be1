#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/bindings/ListViewPropertySynchronizer.h"
#include "dialogs/bindings/QtSignalConnectionCollection.h"
#include "dialogs/property/DialogsApi.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QAbstractItemView>
#include <QListView>
#include <QObject>
#include <QPointer>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties the selection of a list view to a property that holds the selected values, through the list that the view shows.
///
///     ListViewPropertyBinding zones(form.zoneList, manager.zonesListModel(), manager.selectedZones(),
///                                   BindingInterface::ModelUpdateDeferredOnBusy);
///
/// A view whose form leaves the single selection of Qt gets extended selection. While a list that the view can show is
/// changing, see `ListViewPropertySynchronizer`.
///
/// With the deferred mode the user's selection goes to the property and isn't echoed. A property that corrects what it is
/// given, such as one that enforces a selection, needs the undeferred mode, in which the view shows the correction.
class VDSDKDIALOGS_DATA_QT_API ListViewPropertyBinding : public QObject, public BindingInterface
{
    Q_OBJECT

public:
    /// Keeps list and property alive. The property is any `PropertyAbstract` of a set of values.
    template <typename P>
    ListViewPropertyBinding(QListView* view, boost::shared_ptr<models::ListModelInterface<int> const> model,
                            boost::shared_ptr<P> property, ModelUpdateMode mode)
        : m_view(view)
        , m_synchronizer(new ListViewPropertySynchronizer<decltype(property->value())>(view, model, property, mode))
    {
        init();
    }

    /// The view follows the property's visibility and sensitivity too. The caller keeps the property alive.
    template <typename V>
    ListViewPropertyBinding(QListView* view, boost::shared_ptr<models::ListModelInterface<int> const> model,
                            UIStylePropertyAbstract<V>& property, ModelUpdateMode mode)
        : m_view(view)
        , m_synchronizer(new ListViewPropertySynchronizer<V>(view, model, property, mode))
    {
        follow(property);
        init();
    }

    ~ListViewPropertyBinding() override;

    void setSelectionMode(QAbstractItemView::SelectionMode mode);

private:
    void init();
    void follow(UIPropertyInterface& uiProperty);

    QPointer<QListView> const m_view;
    std::unique_ptr<WidgetPropertySynchronizerInterface> const m_synchronizer;
    std::unique_ptr<common::OnIdleActionPerformerSingleShot> m_uiStateUpdater; // null without a user-interface property
    SignalConnectionCollection m_connections;
    QtSignalConnectionCollection m_qtConnections;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
