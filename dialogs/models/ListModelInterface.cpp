#include "dialogs/models/ListModelInterface.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// All listeners of lists sit in one group, at its back: so they run in the order of their connection.
constexpr int listenerGroup = 1;

} // namespace

template <typename T>
ListModelInterface<T>::ListModelInterface() = default;

template <typename T>
ListModelInterface<T>::~ListModelInterface() = default;

template <typename T>
boost::signals2::connection ListModelInterface<T>::connectDataChanged(DataChangedSignal::slot_type const& slot) const
{
    boost::signals2::connection const connection = signalDataChanged.connect(listenerGroup, slot);
    signalDataChangedConnected();
    return connection;
}

template <typename T>
boost::signals2::connection ListModelInterface<T>::connectItemChanged(ItemChangedSignal::slot_type const& slot) const
{
    boost::signals2::connection const connection = signalItemChanged.connect(listenerGroup, slot);
    signalItemChangedConnected();
    return connection;
}

template <typename T>
boost::signals2::connection
ListModelInterface<T>::connectItemsInserted(ItemsInsertedSignal::slot_type const& slot) const
{
    boost::signals2::connection const connection = signalItemsInserted.connect(listenerGroup, slot);
    signalItemsInsertedConnected();
    return connection;
}

template <typename T>
boost::signals2::connection
ListModelInterface<T>::connectItemsAboutToBeRemoved(ItemsAboutToBeRemovedSignal::slot_type const& slot) const
{
    boost::signals2::connection const connection = signalItemsAboutToBeRemoved.connect(listenerGroup, slot);
    signalItemsAboutToBeRemovedConnected();
    return connection;
}

template <typename T>
boost::signals2::connection ListModelInterface<T>::connectItemsRemoved(ItemsRemovedSignal::slot_type const& slot) const
{
    boost::signals2::connection const connection = signalItemsRemoved.connect(listenerGroup, slot);
    signalItemsRemovedConnected();
    return connection;
}

template <typename T>
void ListModelInterface<T>::signalDataChangedConnected() const
{
}

template <typename T>
void ListModelInterface<T>::signalItemChangedConnected() const
{
}

template <typename T>
void ListModelInterface<T>::signalItemsInsertedConnected() const
{
}

template <typename T>
void ListModelInterface<T>::signalItemsAboutToBeRemovedConnected() const
{
}

template <typename T>
void ListModelInterface<T>::signalItemsRemovedConnected() const
{
}

template class ListModelInterface<int>;
template class ListModelInterface<double>;
#define VELDRAW_INSTANTIATE(T) template class ListModelInterface<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
