#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/UIProperty.h"
#include "dialogs/property/UIStylePropertyAbstract.h"

#include <utility>

namespace veldraw::tests {

/// A property of the application's own, on a base that the library exports.
template <typename T>
class ApplicationProperty : public PropertyAbstract<T>
{
public:
    using PropertyAbstract<T>::PropertyAbstract;
    using PropertyAbstract<T>::operator=;
    explicit ApplicationProperty(T value)
        : m_value(std::move(value))
    {
    }

protected:
    void storeValue(T const& newValue) override { m_value = newValue; }

private:
    T retrieveValue() const override { return m_value; }

    T m_value{};
};

/// The same with visibility and sensitivity.
template <typename T>
class ApplicationUIProperty : public sdk::ui::propertymanager::UIStylePropertyAbstract<T>
{
public:
    using Relevance = boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const>;

    explicit ApplicationUIProperty(T value)
        : m_value(std::move(value))
    {
    }

    void setVisible(bool visible) override { m_state.setVisible(visible); }
    void setVisibilityRelevance(Relevance const& rule) override { m_state.setVisibilityRelevance(rule); }
    bool isVisible() const override { return m_state.isVisible(); }
    void setSensitive(bool sensitive) override { m_state.setSensitive(sensitive); }
    void setSensitivityRelevance(Relevance const& rule) override { m_state.setSensitivityRelevance(rule); }
    bool isSensitive() const override { return m_state.isSensitive(); }

protected:
    void storeValue(T const& newValue) override { m_value = newValue; }

private:
    T retrieveValue() const override { return m_value; }

    T m_value;
    sdk::ui::propertymanager::UIProperty m_state;
};

} // namespace veldraw::tests
