#pragma once

#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/dialogs/support/SpinBoxDriver.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// The spin box for numbers of a type.
template <typename T>
using BoxFor = std::conditional_t<std::is_same_v<T, double>, ui::QScientificSpinBox, ui::IntegralSpinBox>;

/// The binding for numbers of a type.
template <typename T>
using BindingFor = std::conditional_t<
    std::is_same_v<T, double>, sdk::ui::dialogs::propertybindings::SpinBoxDoublePropertyBinding,
    std::conditional_t<std::is_same_v<T, int>, sdk::ui::dialogs::propertybindings::SpinBoxIntPropertyBinding,
                       sdk::ui::dialogs::propertybindings::SpinBoxLgIndexPropertyBinding>>;

/// A window with a spin box and another field, as a dialog has them, and the number, 5 at first, that the box is to be bound to.
template <typename T>
class SpinBoxBindingFixture : public ::testing::Test
{
protected:
    using Calculator = sdk::ui::propertymanager::SpinBoxIncDecCalculatorBase;

    SpinBoxBindingFixture()
    {
        auto* const layout = new QVBoxLayout(&window);
        box = new BoxFor<T>(&window);
        elsewhere = new QLineEdit(&window);
        layout->addWidget(box);
        layout->addWidget(elsewhere);
        driver = std::make_unique<SpinBoxDriver>(*box);
    }

    /// Shows the window; the focus is elsewhere.
    void show()
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        elsewhere->setFocus();
    }

    void clickElsewhere() { QTest::mouseClick(elsewhere, Qt::LeftButton); }

    static void idle() { sdk::ui::common::IdleDispatcher::flush(); }

    /// What the box shows once all writes are made.
    std::string settled()
    {
        idle();
        return driver->text();
    }

    void bind(boost::shared_ptr<Calculator> const& calculator = nullptr)
    {
        binding = std::make_unique<BindingFor<T>>(box, property, calculator);
        property->connectValueChanged([this](T value) { changes.push_back(value); });
        show();
    }

    /// The values that the property has had since the last call.
    std::vector<T> take() { return std::exchange(changes, {}); }

    QWidget window;
    BoxFor<T>* box = nullptr; // the window's
    QLineEdit* elsewhere = nullptr;
    std::unique_ptr<SpinBoxDriver> driver;
    RecordedMessages messages;
    boost::shared_ptr<PropertyAbstract<T>> property = boost::make_shared<Property<T>>(T(5));
    std::unique_ptr<BindingFor<T>> binding;
    std::vector<T> changes;
};

} // namespace veldraw::tests
