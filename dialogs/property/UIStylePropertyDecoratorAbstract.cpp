#include "dialogs/property/UIStylePropertyDecoratorAbstract.h"

#include <boost/signals2/shared_connection_block.hpp>

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

template <typename T, typename U>
UIStylePropertyDecoratorAbstract<T, U>::UIStylePropertyDecoratorAbstract(
    boost::shared_ptr<UIStylePropertyAbstract<U>> decorated)
    : m_decorated(std::move(decorated))
    , m_valueConnection(m_decorated->connectValueChanged([this](U const&) { tellListeners(); }))
    , m_visibilityConnection(m_decorated->connectVisibilityChanged([this] { this->signalVisibilityChanged(); }))
    , m_sensitivityConnection(m_decorated->connectSensitivityChanged([this] { this->signalSensitivityChanged(); }))
{
}

template <typename T, typename U>
UIStylePropertyDecoratorAbstract<T, U>::~UIStylePropertyDecoratorAbstract() = default;

template <typename T, typename U>
UIStylePropertyDecoratorAbstract<T, U>&
UIStylePropertyDecoratorAbstract<T, U>::operator=(UIStylePropertyDecoratorAbstract const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::setVisible(bool visible)
{
    m_decorated->setVisible(visible);
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::setVisibilityRelevance(
    boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_decorated->setVisibilityRelevance(relevance);
}

template <typename T, typename U>
bool UIStylePropertyDecoratorAbstract<T, U>::isVisible() const
{
    return m_decorated->isVisible();
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::setSensitive(bool sensitive)
{
    m_decorated->setSensitive(sensitive);
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::setSensitivityRelevance(
    boost::shared_ptr<RelevanceInterface const> const& relevance)
{
    m_decorated->setSensitivityRelevance(relevance);
}

template <typename T, typename U>
bool UIStylePropertyDecoratorAbstract<T, U>::isSensitive() const
{
    return m_decorated->isSensitive();
}

template <typename T, typename U>
U UIStylePropertyDecoratorAbstract<T, U>::decoratedValue() const
{
    return m_decorated->value();
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::setDecoratedValue(U const& newValue)
{
    boost::signals2::shared_connection_block const noEcho(m_valueConnection);
    m_decorated->setValue(newValue);
}

template <typename T, typename U>
void UIStylePropertyDecoratorAbstract<T, U>::tellListeners() const
{
    if (this->valueChangedListenerCount() > 0 || this->signalPropertyChanged.num_slots() > 0)
        this->signalValueChanged(this->value());
}

template class UIStylePropertyDecoratorAbstract<std::string, double>;
template class UIStylePropertyDecoratorAbstract<std::string, int>;
template class UIStylePropertyDecoratorAbstract<std::set<int>, std::set<int>>;
template class UIStylePropertyDecoratorAbstract<std::string, VarStatus_e>;

} // namespace veldraw::sdk::ui::propertymanager
