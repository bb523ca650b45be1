#include "dialogs/models/ListModelInterface.h"

#include "platform/signals/WholeConnection.h"

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
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalDataChanged.connect(listenerGroup, whole); },
        [this] { signalDataChangedConnected(); });
}

template <typename T>
boost::signals2::connection ListModelInterface<T>::connectItemChanged(ItemChangedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalItemChanged.connect(listenerGroup, whole); },
        [this] { signalItemChangedConnected(); });
}

template <typename T>
boost::signals2::connection
ListModelInterface<T>::connectItemsInserted(ItemsInsertedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalItemsInserted.connect(listenerGroup, whole); },
        [this] { signalItemsInsertedConnected(); });
}

template <typename T>
boost::signals2::connection
ListModelInterface<T>::connectItemsAboutToBeRemoved(ItemsAboutToBeRemovedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalItemsAboutToBeRemoved.connect(listenerGroup, whole); },
        [this] { signalItemsAboutToBeRemovedConnected(); });
}

template <typename T>
boost::signals2::connection ListModelInterface<T>::connectItemsRemoved(ItemsRemovedSignal::slot_type const& slot) const
{
    return sdk::connectWhole(
        slot, [this](auto const& whole) { return signalItemsRemoved.connect(listenerGroup, whole); },
        [this] { signalItemsRemovedConnected(); });
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
