#pragma once

#include "dialogs/models/ListModelTypes.h"
#include "dialogs/property/DialogsApi.h"

#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

#include <string>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A typed, observable, read-mostly sequence: position i has a value, which is what a property holds, and a text, which
/// is what a person reads. Every choice or selection in a dialog reads such a list, so a binding goes from a row to a
/// property's value and back without knowing Qt.
///
/// Rows count from 0; callers pass rows from 0 to size() - 1 only. A signal says only that something may have changed:
/// the listener asks again. Listeners run in the order of their connection. While a signal runs:
/// - who connects is called from the next signal on, who disconnects is not called any more;
/// - a listener may change the list; that change is told at once, inside, and the outer run then goes on;
/// - a listener that throws ends the run, and its exception reaches whoever changed the list; the list stays changed;
/// - the list itself has to live until the run has ended.
///
/// The connect operations are const: one listens to a list that one only reads. Listeners that end before the list
/// disconnect, best through a `SignalConnectionCollection`.
template <typename T>
class ListModelInterface
{
public:
    using DataChangedSignal = boost::signals2::signal<void()>;
    using ItemChangedSignal = boost::signals2::signal<void(int)>;
    using ItemsInsertedSignal = boost::signals2::signal<void(int, int)>;
    using ItemsAboutToBeRemovedSignal = boost::signals2::signal<void(int, int)>;
    using ItemsRemovedSignal = boost::signals2::signal<void()>;

    ListModelInterface();
    ListModelInterface(ListModelInterface const&) = delete;
    ListModelInterface& operator=(ListModelInterface const&) = delete;

    virtual int size() const = 0;
    virtual T get(int index) const = 0;
    virtual std::string getStr(int index) const = 0;
    /// The text that an editor starts with.
    virtual std::string getStrForEdit(int index) const = 0;
    virtual void set(T value, int index) = 0;
    /// Takes a text that a person edited. @return whether it was accepted
    virtual bool setEditedItem(std::string const& text, int index) const = 0;
    virtual bool isEditable() const = 0;
    /// Whether the row is a heading that can't be chosen.
    virtual bool isHeader(int index) const = 0;
    /// The first row with exactly this value, -1 if there is none.
    virtual int indexOf(T const& value) const = 0;

private:
    // Run after each connection, so a list can start to watch its source when somebody begins to listen.
    virtual void signalDataChangedConnected() const;
    virtual void signalItemChangedConnected() const;
    virtual void signalItemsInsertedConnected() const;
    virtual void signalItemsAboutToBeRemovedConnected() const;
    virtual void signalItemsRemovedConnected() const;

public:
    virtual ~ListModelInterface();

    /// The whole list may have changed.
    boost::signals2::connection connectDataChanged(DataChangedSignal::slot_type const& slot) const;
    /// The item at one row changed.
    boost::signals2::connection connectItemChanged(ItemChangedSignal::slot_type const& slot) const;
    /// Items went in; first and last row of the range, both included.
    boost::signals2::connection connectItemsInserted(ItemsInsertedSignal::slot_type const& slot) const;
    /// Items are about to go; first and last row of the range, both included.
    boost::signals2::connection connectItemsAboutToBeRemoved(ItemsAboutToBeRemovedSignal::slot_type const& slot) const;
    /// The removal announced before is done.
    boost::signals2::connection connectItemsRemoved(ItemsRemovedSignal::slot_type const& slot) const;

protected:
    mutable DataChangedSignal signalDataChanged;
    mutable ItemChangedSignal signalItemChanged;
    mutable ItemsInsertedSignal signalItemsInserted;
    mutable ItemsAboutToBeRemovedSignal signalItemsAboutToBeRemoved;
    mutable ItemsRemovedSignal signalItemsRemoved;
};

extern template class VDSDKDIALOGS_DATA_QT_API ListModelInterface<int>;
extern template class VDSDKDIALOGS_DATA_QT_API ListModelInterface<double>;
extern template class VDSDKDIALOGS_DATA_QT_API ListModelInterface<FourierPlotDisplayType_e>;
extern template class VDSDKDIALOGS_DATA_QT_API ListModelInterface<WindowFunction_e>;
#define VELDRAW_DECLARE(T) extern template class ListModelInterface<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
