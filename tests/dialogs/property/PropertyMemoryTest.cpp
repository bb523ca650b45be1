#include "dialogs/property/Property.h"
#include "dialogs/property/UIProperty.h"
#include "tests/dialogs/support/ListenersWithoutMemory.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

namespace veldraw::tests {

TEST(PropertyMemory, LeavesNoListenerToItsValueBehind)
{
    for (auto const position : {boost::signals2::at_back, boost::signals2::at_front})
        expectNoListenerLeftBehind(
            [] { return std::make_unique<Property<int>>(1); },
            [&](Property<int>& property, auto const& slot) { return property.connectValueChanged(slot, position); },
            [](Property<int>& property) { property.setValue(property.value() + 1); });
}

TEST(PropertyMemory, LeavesNoListenerToAnyChangeBehind)
{
    for (auto const position : {boost::signals2::at_back, boost::signals2::at_front})
        expectNoListenerLeftBehind(
            [] { return std::make_unique<Property<int>>(1); },
            [&](Property<int>& property, auto const& slot) { return property.connectPropertyChanged(slot, position); },
            [](Property<int>& property) { property.setValue(property.value() + 1); });
}

TEST(PropertyMemory, LeavesNoListenerToARuleBehind)
{
    expectNoListenerLeftBehind(
        [] { return std::make_unique<SwitchedRelevance>(true); },
        [](SwitchedRelevance& rule, auto const& slot) { return rule.connectRelevanceChanged(slot); },
        [](SwitchedRelevance& rule) { rule.set(!rule.isRelevant()); });
}

TEST(PropertyMemory, LeavesNoListenerToVisibilityOrSensitivityBehind)
{
    using sdk::ui::propertymanager::UIProperty;
    auto const make = [] { return std::make_unique<UIProperty>(); };
    expectNoListenerLeftBehind(
        make, [](UIProperty& property, auto const& slot) { return property.connectVisibilityChanged(slot); },
        [](UIProperty& property) { property.setVisible(!property.isVisible()); });
    expectNoListenerLeftBehind(
        make, [](UIProperty& property, auto const& slot) { return property.connectSensitivityChanged(slot); },
        [](UIProperty& property) { property.setSensitive(!property.isSensitive()); });
}

} // namespace veldraw::tests
