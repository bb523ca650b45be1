#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/ComboBoxPropertyBinding.h"
#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"
#include "dialogs/bindings/TextEditPropertyBinding.h"
#include "dialogs/bindings/TextFieldPropertyBinding.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/BoundControl.h"
#include "tests/dialogs/bindings/ListViewDriver.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTextEdit>

#include <gtest/gtest.h>
#include <ostream>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using Binding = std::unique_ptr<BindingInterface>;

template <typename T>
using Shared = boost::shared_ptr<PropertyAbstract<T>>;

boost::shared_ptr<models::ListModelInterface<int> const> threeRows()
{
    return boost::make_shared<ScriptedList>(ScriptedList::numbered(3));
}

auto const textOf = [](auto const& control) { return control.text(); };

template <typename T>
std::unique_ptr<BoundControl> textField(std::array<T, 3> const& values)
{
    return boundControl(
        values, std::make_unique<QLineEdit>(),
        [](QLineEdit& field, Shared<T> const& property) -> Binding {
            return std::make_unique<TextFieldPropertyBinding<T>>(&field, property);
        },
        textOf);
}

std::unique_ptr<BoundControl> label(BindingInterface::WidgetUpdateMode_e mode)
{
    return boundControl(
        std::array<std::string, 3>{"a", "b", "c"}, std::make_unique<QLabel>(),
        [mode](QLabel& control, Shared<std::string> const& property) -> Binding {
            return std::make_unique<LabelPropertyBinding>(&control, property, mode);
        },
        textOf);
}

template <typename T, typename SpinBinding, typename Box>
std::unique_ptr<BoundControl> spinBox()
{
    return boundControl(
        std::array<T, 3>{T(1), T(2), T(3)}, std::make_unique<Box>(),
        [](Box& box, Shared<T> const& property) -> Binding {
            return std::make_unique<SpinBinding>(&box, property, nullptr);
        },
        textOf);
}

std::unique_ptr<BoundControl> textEdit()
{
    return boundControl(
        std::array<std::string, 3>{"a", "b\nb", "c"}, std::make_unique<QTextEdit>(),
        [](QTextEdit& edit, Shared<std::string> const& property) -> Binding {
            return std::make_unique<TextEditPropertyBinding>(&edit, property, false);
        },
        [](QTextEdit const& edit) { return edit.toPlainText(); });
}

std::unique_ptr<BoundControl> comboBox()
{
    return boundControl(
        std::array<int, 3>{1, 2, 3}, std::make_unique<QComboBox>(),
        [](QComboBox& box, Shared<int> const& property) -> Binding {
            return std::make_unique<ComboBoxPropertyBinding<int>>(&box, threeRows(), property,
                                                                  BindingInterface::ModelUpdateUndeferred);
        },
        [](QComboBox const& box) { return QString::number(box.currentIndex()); });
}

std::unique_ptr<BoundControl> listView(BindingInterface::ModelUpdateMode mode)
{
    return boundControl(
        std::array<std::set<int>, 3>{std::set<int>{1}, std::set<int>{2, 3}, std::set<int>{}},
        std::make_unique<QListView>(),
        [mode](QListView& view, Shared<std::set<int>> const& property) -> Binding {
            return std::make_unique<ListViewPropertyBinding>(&view, threeRows(), property, mode);
        },
        [](QListView& view) {
            return view.model() ? QString::fromStdString(ListViewDriver(view).look()) : QStringLiteral("no list");
        });
}

struct Kind
{
    char const* name;
    std::function<std::unique_ptr<BoundControl>()> make;
    /// The binding listens to the untyped signal, which runs before that with the value.
    bool hearsFirst = false;
};

void PrintTo(Kind const& kind, std::ostream* stream)
{
    *stream << kind.name;
}

Kind const kindsOfThreeLooks[] = {
    {"TextField",
     [] {
         return textField<std::string>({"a", "b", "c"});
     }},
    {"NumberField",
     [] {
         return textField<double>({0.5, 1.5, 2.5});
     }},
    {"LabelAtIdle", [] { return label(BindingInterface::UpdateOnIdle); }},
    {"LabelAtOnce", [] { return label(BindingInterface::UpdateImmediately); }},
    {"SpinBoxInt", [] { return spinBox<int, SpinBoxIntPropertyBinding, veldraw::ui::IntegralSpinBox>(); }},
    {"SpinBoxLgIndex",
     [] { return spinBox<long long, SpinBoxLgIndexPropertyBinding, veldraw::ui::IntegralSpinBox>(); }},
    {"SpinBoxDouble", [] { return spinBox<double, SpinBoxDoublePropertyBinding, veldraw::ui::QScientificSpinBox>(); }},
    {"TextEdit", [] { return textEdit(); }},
    {"ComboBox", [] { return comboBox(); }},
    {"ListView", [] { return listView(BindingInterface::ModelUpdateUndeferred); }, true},
    {"ListViewDeferred", [] { return listView(BindingInterface::ModelUpdateDeferredOnBusy); }, true},
};

/// A binding while its property's signal runs.
class BindingInAPropertysSignal : public testing::TestWithParam<Kind>
{
protected:
    BindingInAPropertysSignal()
    {
        control->bind();
        for (int const which : {2, 1, 0}) {
            control->set(which);
            IdleDispatcher::flush();
            looks[static_cast<std::size_t>(which)] = control->look();
        }
        EXPECT_NE(looks[0], looks[1]);
        EXPECT_NE(looks[1], looks[2]);
        EXPECT_NE(looks[2], looks[0]);
    }

    /// The listener hears the property before the binding does.
    void listenBefore(std::function<void()> const& slot)
    {
        control->binding.reset();
        connection = control->connect(slot);
        control->bind();
        IdleDispatcher::flush();
    }

    void listenBehind(std::function<void()> const& slot) { connection = control->connect(slot); }

    std::unique_ptr<BoundControl> const control = GetParam().make();
    std::array<QString, 3> looks;
    boost::signals2::scoped_connection connection;
};

TEST_P(BindingInAPropertysSignal, MayBeDestroyedBeforeItHears)
{
    listenBefore([this] { control->binding.reset(); });
    control->set(1);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    QString const look = control->look();
    EXPECT_NE(look, looks[1]);
    connection.disconnect();
    control->set(2);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), look);
    EXPECT_EQ(control->value(), 2);
}

TEST_P(BindingInAPropertysSignal, MayBeDestroyedAfterItHasHeard)
{
    listenBehind([this] { control->binding.reset(); });
    control->set(1);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    QString const look = control->look();
    connection.disconnect();
    control->set(2);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), look);
    EXPECT_EQ(control->value(), 2);
}

TEST_P(BindingInAPropertysSignal, MayBeReplacedByAnotherOnTheSameControl)
{
    bool isReplaced = false;
    listenBefore([this, &isReplaced] {
        if (std::exchange(isReplaced, true))
            return;
        control->binding.reset();
        control->bind();
    });
    control->set(1);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[1]);
    control->set(2);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[2]);
}

TEST_P(BindingInAPropertysSignal, ShowsTheValueThatAListenerBeforeItSet)
{
    listenBefore([this] {
        if (control->value() == 1)
            control->set(2);
    });
    control->set(1);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[2]);
    EXPECT_EQ(control->value(), 2);
}

TEST_P(BindingInAPropertysSignal, ShowsTheValueThatAListenerBehindItSet)
{
    listenBehind([this] {
        if (control->value() == 1)
            control->set(2);
    });
    control->set(1);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[2]);
    EXPECT_EQ(control->value(), 2);
}

TEST_P(BindingInAPropertysSignal, HearsTheNextChangeAfterAListenerBeforeItThrew)
{
    listenBefore([this] {
        if (control->value() == 1)
            throw std::runtime_error("listener");
    });
    EXPECT_THROW(control->set(1), std::runtime_error);
    EXPECT_EQ(control->value(), 1);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), GetParam().hearsFirst ? looks[1] : looks[0]);
    control->set(2);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[2]);
}

TEST_P(BindingInAPropertysSignal, ShowsTheValueAlsoWhenAListenerBehindItThrew)
{
    listenBehind([] { throw std::runtime_error("listener"); });
    EXPECT_THROW(control->set(1), std::runtime_error);
    IdleDispatcher::flush();
    EXPECT_EQ(control->look(), looks[1]);
    EXPECT_EQ(control->value(), 1);
}

TEST_P(BindingInAPropertysSignal, StandsAControlThatIsDestroyed)
{
    listenBefore([this] { control->widget.reset(); });
    control->set(1);
    IdleDispatcher::flush();
    control->set(2);
    IdleDispatcher::flush();
    EXPECT_EQ(control->value(), 2);
}

INSTANTIATE_TEST_SUITE_P(EveryBinding, BindingInAPropertysSignal, testing::ValuesIn(kindsOfThreeLooks),
                         [](testing::TestParamInfo<Kind> const& kind) { return std::string(kind.param.name); });

/// The same for buttons, which show only whether the property has their value.
TEST(ButtonsInAPropertysSignal, MayLoseTheirBindingBeforeItHears)
{
    boost::shared_ptr<PropertyAbstract<bool>> const property = boost::make_shared<Property<bool>>(false);
    QRadioButton radio;
    QCheckBox check;
    std::vector<Binding> bindings;
    boost::signals2::scoped_connection const first =
        property->connectValueChanged([&bindings](bool) { bindings.clear(); });
    bindings.push_back(std::make_unique<RadioButtonPropertyBinding<bool>>(&radio, property, true));
    bindings.push_back(std::make_unique<CheckButtonPropertyBinding>(&check, property, false));
    property->setValue(true);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    EXPECT_FALSE(radio.isChecked());
    EXPECT_FALSE(check.isChecked());
}

TEST(ButtonsInAPropertysSignal, ShowTheValueThatAListenerSet)
{
    boost::shared_ptr<PropertyAbstract<bool>> const property = boost::make_shared<Property<bool>>(false);
    QRadioButton radio;
    QCheckBox check;
    boost::signals2::scoped_connection const first = property->connectValueChanged([&property](bool value) {
        if (value)
            property->setValue(false);
    });
    RadioButtonPropertyBinding<bool> const radioBinding(&radio, property, false);
    CheckButtonPropertyBinding const checkBinding(&check, property, true);
    IdleDispatcher::flush();
    property->setValue(true);
    IdleDispatcher::flush();
    EXPECT_TRUE(radio.isChecked());
    EXPECT_TRUE(check.isChecked());
}

} // namespace
} // namespace veldraw::tests
