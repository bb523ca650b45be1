#pragma once

#include "dialogs/property/UIProperty.h"
#include "dialogs/property/UIStylePropertyAbstract.h"

namespace veldraw::tests {

/// A value with visibility and sensitivity, held in itself.
template <typename T>
class TestUIProperty : public sdk::ui::propertymanager::UIStylePropertyAbstract<T>,
                       public sdk::ui::propertymanager::UIProperty
{
public:
    explicit TestUIProperty(T const& value = T())
        : m_value(value)
    {
    }

protected:
    void storeValue(T const& newValue) override { m_value = newValue; }

private:
    T retrieveValue() const override { return m_value; }

    T m_value;
};

} // namespace veldraw::tests
