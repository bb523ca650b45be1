#pragma once

#include "dialogs/bindings/LineEditPropertyBindingAbstract.h"
#include "dialogs/bindings/QComboBoxObservable.h"
#include "dialogs/models/ListModelInterface.h"
#include "dialogs/models/ListModelTypes.h"
#include "dialogs/models/QListModel.h"
#include "platform/signals/SignalConnectionCollection.h"

#include <QMetaObject>
#include <QObject>
#include <QPointer>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <memory>

class QComboBox;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Ties a combo box to a property through a list: the list gives the items, the property holds the value of the chosen
/// one.
///
///     ComboBoxPropertyBinding<int> zone(form.zoneComboBox, manager.zonesListModel(), manager.zone(),
///                                       BindingInterface::ModelUpdateDeferredOnBusy);
///
/// When the list changes as a whole, Qt moves the box to another row, which is not a choice of the user's: the property
/// doesn't hear of it. A value that has fallen out of the list by that moves to the first row that isn't a heading. A
/// value that wasn't in the list before is left alone: it may be waiting for its item. A heading is never a choice.
///
/// A combo box that is editable commits its text as a line edit does. What the property throws when a row is chosen goes
/// to whoever chose; the box shows the property's value again at idle.
///
/// A box over a list of thousands gets a fixed width: Qt would measure all texts before it shows the box.
///
/// It never touches a combo box that is gone or that shows another list by now.
template <typename T>
class ComboBoxPropertyBinding : public LineEditPropertyBindingAbstract<T>
{
public:
    using ListModel = models::ListModelInterface<T>;

    /// Keeps list and property alive.
    /// @param mode `ModelUpdateDeferredOnBusy`: the box isn't painted while the application is busy
    ComboBoxPropertyBinding(QComboBox* comboBox, boost::shared_ptr<ListModel const> model,
                            boost::shared_ptr<PropertyAbstract<T>> property, BindingInterface::ModelUpdateMode mode);
    ~ComboBoxPropertyBinding() override;

    /// A value that the list lacks is shown as text if the box is editable, and otherwise as the first row.
    void updateWidgetValue() override;
    void updateWidgetVisibility() override;
    void updateWidgetSensitivity() override;

private:
    class QComboBoxListener : public QComboBoxListenerInterface
    {
    public:
        explicit QComboBoxListener(ComboBoxPropertyBinding& binding);
        void currentIndexChanged(int index) override;

    private:
        ComboBoxPropertyBinding& m_binding;
    };

    /// The target of the one-shot connection that says that Qt has done with a reset.
    class ComboboxModelListener : public QObject
    {
    public:
        explicit ComboboxModelListener(std::function<void()> const& modelReset);
        void modelReset() const;

    private:
        std::function<void()> const m_modelReset;
    };

    void listenToListAndProperty();
    void setUpComboBox();
    void limitMeasuring();
    void currentIndexChanged(int index);
    void valueChanged(T const& value);
    int indexOf(T const& value) const;
    void modelResetStarts();
    void modelResetEnds();
    bool showsOurList() const;

    QPointer<QComboBox> const m_comboBox;
    std::unique_ptr<QComboBoxObservable> m_observable;
    boost::shared_ptr<ListModel const> const m_model;
    ListModel const* const m_comboModel;
    std::unique_ptr<models::QListModel> m_itemModel; // without a Qt parent: it must go before the list does
    bool m_modelResetInProgress = false;             // the box's moves are Qt's, not the user's
    bool m_valueWasInModel = false;                  // when the property was last set
    QComboBoxListener m_listener;
    ComboboxModelListener m_resetListener;
    QMetaObject::Connection m_modelResetConnection; // during a reset only
    SignalConnectionCollection m_connections;
};

extern template class ComboBoxPropertyBinding<int>;
#define VELDRAW_DECLARE(T) extern template class ComboBoxPropertyBinding<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings
