#include "dialogs/models/ListModelProxy.h"

#include "platform/signals/SignalConnectionCollection.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template <typename T>
struct ListModelProxy<T>::Record
{
    boost::shared_ptr<ListModelInterface<T>> model;
    SignalConnectionCollection connections;
};

template <typename T>
ListModelProxy<T>::ListModelProxy(boost::shared_ptr<ListModelInterface<T>> model)
    : m_record(new Record)
{
    setModel(model);
}

template <typename T>
ListModelProxy<T>::~ListModelProxy() = default;

template <typename T>
void ListModelProxy<T>::setModel(boost::shared_ptr<ListModelInterface<T>> const& model) const
{
    // The argument may refer to the record's own pointer. The old list is released last, after all its connections.
    boost::shared_ptr<ListModelInterface<T>> const newModel = model;
    boost::shared_ptr<ListModelInterface<T>> const oldModel = std::exchange(m_record->model, newModel);

    SignalConnectionCollection& connections = m_record->connections;
    connections.clear();
    connections.add(newModel->connectDataChanged(this->signalDataChanged));
    connections.add(newModel->connectItemChanged(this->signalItemChanged));
    connections.add(newModel->connectItemsInserted(this->signalItemsInserted));
    connections.add(newModel->connectItemsAboutToBeRemoved(this->signalItemsAboutToBeRemoved));
    connections.add(newModel->connectItemsRemoved(this->signalItemsRemoved));

    this->signalDataChanged();
}

template <typename T>
int ListModelProxy<T>::size() const
{
    return m_record->model->size();
}

template <typename T>
T ListModelProxy<T>::get(int index) const
{
    return m_record->model->get(index);
}

template <typename T>
std::string ListModelProxy<T>::getStr(int index) const
{
    return m_record->model->getStr(index);
}

template <typename T>
void ListModelProxy<T>::set(T value, int index)
{
    m_record->model->set(value, index);
}

template <typename T>
bool ListModelProxy<T>::isHeader(int index) const
{
    return m_record->model->isHeader(index);
}

template <typename T>
int ListModelProxy<T>::indexOf(T const& value) const
{
    return m_record->model->indexOf(value);
}

template class ListModelProxy<int>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
