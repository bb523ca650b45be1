#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/bindings/OnIdleAfterPropertyChangeActionPerformer.h"
#include "dialogs/bindings/QtSignalConnectionCollection.h"
#include "dialogs/bindings/WidgetPropertySynchronizerInterface.h"
#include "dialogs/models/ListModelInterface.h"
#include "dialogs/models/QListModel.h"
#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/UIStylePropertyAbstract.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <QPointer>

#include <boost/shared_ptr.hpp>

#include <memory>
#include <set>

class QAbstractItemView;
class QItemSelection;
class QItemSelectionModel;

namespace veldraw::sdk::ui::dialogs::propertybindings {

using propertymanager::UIPropertyInterface;
using propertymanager::UIStylePropertyAbstract;

/// Keeps a view's selection and a property with a set of values equal, through the list that the view shows. Whoever
/// owns it tells it by `updateProperty()` that the user has changed the selection.
///
/// When the list changes as a whole, Qt empties the selection, which is not the user's doing. The property keeps its
/// values then; the selection is applied again, at the next idle moment if the mode is deferred, and only then read back.
/// So values that have vanished from the list leave the property, and nothing else does.
///
/// It never touches a view that is gone or that shows another list by now.
template <typename V>
class ListViewPropertySynchronizer : public WidgetPropertySynchronizerInterface
{
public:
    /// Makes the view show the list and the property's selection.
    ListViewPropertySynchronizer(QAbstractItemView* view,
                                 boost::shared_ptr<models::ListModelInterface<int> const> model,
                                 boost::shared_ptr<PropertyAbstract<V>> property,
                                 BindingInterface::ModelUpdateMode mode);
    /// The same for a property with a user-interface side, which the caller keeps alive.
    ListViewPropertySynchronizer(QAbstractItemView* view,
                                 boost::shared_ptr<models::ListModelInterface<int> const> model,
                                 UIStylePropertyAbstract<V>& property, BindingInterface::ModelUpdateMode mode);
    ~ListViewPropertySynchronizer() override;

    /// Selects the rows that hold the property's values, and no others.
    void updateWidget() override;
    /// Sets the property to the values on the selected rows, unless the selection isn't the user's just now.
    void updateProperty() override;

private:
    void setUp();
    void listChanged();
    void listChangeSettled();
    void applySelection(QItemSelection const& selection);
    void applyUIProperty();
    /// Null when the view is gone or shows another list.
    QItemSelectionModel* selectionModel() const;

    QPointer<QAbstractItemView> const m_view;
    boost::shared_ptr<models::ListModelInterface<int> const> const m_model;
    boost::shared_ptr<PropertyAbstract<V>> const m_sharedProperty; // empty: somebody else's
    PropertyAbstract<V>* const m_property;
    UIPropertyInterface* const m_uiProperty; // may be null
    common::OnIdleAfterPropertyChangeActionPerformer m_performer;
    bool m_selectionChangedByUpdate = false;
    std::unique_ptr<models::QListModel> const m_itemModel; // without a Qt parent: it must go before the list does
    common::OnIdleActionPerformerSingleShot m_modelPerformer;
    QtSignalConnectionCollection m_qtConnections;
    BindingInterface::ModelUpdateMode const m_updateMode;
};

extern template class VDSDKDIALOGS_DATA_QT_API ListViewPropertySynchronizer<std::set<int>>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings
