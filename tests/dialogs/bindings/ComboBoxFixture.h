#pragma once

#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "tests/dialogs/bindings/ComboBoxDriver.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <QAbstractItemModelTester>

#include <boost/make_shared.hpp>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {

/// Writes down each value that is stored, and lets a test refuse or alter values.
class NotedProperty : public PropertyAbstract<int>
{
public:
    explicit NotedProperty(int value)
        : m_value(value)
    {
    }

    std::string stores; // "2 3 "
    std::function<void(int)> refusal;
    std::function<int(int)> alteration;

protected:
    void storeValue(int const& newValue) override
    {
        stores += std::to_string(newValue) + " ";
        m_value = alteration ? alteration(newValue) : newValue;
    }
    void validate(int const& newValue) const override
    {
        if (refusal)
            refusal(newValue);
    }

private:
    int retrieveValue() const override { return m_value; }
    int m_value;
};

/// A combo box over a list that the test changes at will; five rows, the property on 3.
class ComboBoxFixture : public ::testing::Test
{
protected:
    using Binding = sdk::ui::dialogs::propertybindings::ComboBoxPropertyBinding<int>;
    using BindingInterface = sdk::ui::dialogs::propertybindings::BindingInterface;

    /// Binds, watches the item model and shows the box.
    void bind(BindingInterface::ModelUpdateMode mode = BindingInterface::ModelUpdateUndeferred)
    {
        binding = std::make_unique<Binding>(comboBox.get(), list, property, mode);
        tester = std::make_unique<QAbstractItemModelTester>(comboBox->model(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        driver = std::make_unique<ComboBoxDriver>(*comboBox);
        driver->show();
    }

    std::string look() const { return ComboBoxDriver(*comboBox).look(); }

    boost::shared_ptr<ScriptedList> list = boost::make_shared<ScriptedList>(ScriptedList::numbered(5));
    boost::shared_ptr<NotedProperty> property = boost::make_shared<NotedProperty>(3);
    std::unique_ptr<QComboBox> comboBox = std::make_unique<QComboBox>();
    std::unique_ptr<ComboBoxDriver> driver;
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<Binding> binding;
};

} // namespace veldraw::tests
