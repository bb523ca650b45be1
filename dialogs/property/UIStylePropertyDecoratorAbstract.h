#pragma once

#include "dialogs/property/UIStylePropertyAbstract.h"

#include <set>
#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// Shows a property with visibility and sensitivity in another way: the derived class converts the value, visibility and
/// sensitivity are those of the decorated property.
///
/// Changes of the decorated property, of its value as of its state, are told to the decorator's listeners too. A set
/// through the decorator is told once. While nobody listens, nothing is converted.
template <typename T, typename U>
class UIStylePropertyDecoratorAbstract : public UIStylePropertyAbstract<T>
{
public:
    ~UIStylePropertyDecoratorAbstract() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    UIStylePropertyDecoratorAbstract& operator=(UIStylePropertyDecoratorAbstract const& other);

    void setVisible(bool visible) override;
    void setVisibilityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isVisible() const override;
    void setSensitive(bool sensitive) override;
    void setSensitivityRelevance(boost::shared_ptr<RelevanceInterface const> const& relevance) override;
    bool isSensitive() const override;

protected:
    /// The decorated property must not be empty and is kept alive.
    explicit UIStylePropertyDecoratorAbstract(boost::shared_ptr<UIStylePropertyAbstract<U>> decorated);

    U decoratedValue() const;
    /// Sets the decorated property; its echo is not passed on.
    void setDecoratedValue(U const& newValue);
    /// Tells the listeners, if there are any, the value that the decorator shows now. A value that can't be converted must not fail
    /// a set that nobody wants to hear of.
    void tellListeners() const;

private:
    boost::shared_ptr<UIStylePropertyAbstract<U>> m_decorated;
    boost::signals2::scoped_connection m_valueConnection;
    boost::signals2::scoped_connection m_visibilityConnection;
    boost::signals2::scoped_connection m_sensitivityConnection;
};

extern template class UIStylePropertyDecoratorAbstract<std::string, double>;
extern template class UIStylePropertyDecoratorAbstract<std::string, int>;
extern template class UIStylePropertyDecoratorAbstract<std::set<int>, std::set<int>>;
extern template class UIStylePropertyDecoratorAbstract<std::string, VarStatus_e>;

} // namespace veldraw::sdk::ui::propertymanager
