#include "dialogs/bindings/ButtonBinding.h"
#include "dialogs/bindings/CheckButtonPropertyBinding.h"
#include "dialogs/bindings/LabelPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/bindings/ListViewPropertySynchronizer.h"
#include "dialogs/bindings/QButtonListenerInterface.h"
#include "dialogs/bindings/QButtonObservable.h"
#include "dialogs/bindings/QComboBoxListenerInterface.h"
#include "dialogs/bindings/QComboBoxObservable.h"
#include "dialogs/bindings/QTextEditObservable.h"
#include "dialogs/bindings/QTextFieldObservable.h"
#include "dialogs/bindings/QtSignalConnectionCollection.h"
#include "dialogs/bindings/SpinBoxDoublePropertyBinding.h"
#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"
#include "dialogs/bindings/SpinBoxLgIndexPropertyBinding.h"
#include "dialogs/bindings/StringMassager.h"
#include "dialogs/bindings/TextEditPropertyBinding.h"
#include "dialogs/bindings/WidgetUpdateDeferrerOnBusy.h"
#include "dialogs/models/ListModelAbstract.h"
#include "dialogs/property/BoundedValueValidator.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/library/ApplicationProperty.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTreeView>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

template <typename T>
boost::shared_ptr<ApplicationProperty<T>> make(T value)
{
    return boost::make_shared<ApplicationProperty<T>>(std::move(value));
}

TEST(ExportedBindings, TieButtons)
{
    QCheckBox box;
    auto const isOn = make(false);
    CheckButtonPropertyBinding const binding(&box, isOn, false);
    box.click();
    EXPECT_TRUE(isOn->value());
    QPushButton button;
    int runs = 0;
    ButtonBinding const action(button, [&runs] { ++runs; });
    button.click();
    EXPECT_EQ(runs, 1);
}

TEST(ExportedBindings, TieTexts)
{
    QLabel label, second;
    auto const text = make(std::string("one"));
    ApplicationUIProperty<std::string> other("three");
    LabelPropertyBinding const binding(&label, text, BindingInterface::UpdateImmediately);
    LabelPropertyBinding const uiBinding(&second, other);
    QPushButton button;
    LabelPropertyBinding const onButton(&button, text, BindingInterface::UpdateOnIdle);
    QTextEdit field;
    TextEditPropertyBinding const multiLine(&field, text, false);
    text->setValue("two");
    IdleDispatcher::flush();
    EXPECT_EQ(label.text(), QStringLiteral("two"));
    EXPECT_EQ(second.text(), QStringLiteral("three"));
    EXPECT_EQ(button.text(), QStringLiteral("two"));
    EXPECT_EQ(field.toPlainText(), QStringLiteral("two"));
}

template <typename Binding, typename Box, typename T>
void expectTied(T first, T second)
{
    Box box;
    box.setRange(-100, 100);
    auto const property = make(first);
    Binding const binding(&box, property, {});
    int arrows = 0;
    binding.connectArrowsUsed([&arrows] { ++arrows; });
    EXPECT_EQ(static_cast<T>(box.value()), first);
    property->setValue(second);
    IdleDispatcher::flush();
    EXPECT_EQ(static_cast<T>(box.value()), second);
    EXPECT_EQ(arrows, 0);
}

TEST(ExportedBindings, TieSpinBoxes)
{
    expectTied<SpinBoxDoublePropertyBinding, veldraw::ui::QScientificSpinBox>(1.5, -2.5);
    expectTied<SpinBoxIntPropertyBinding, veldraw::ui::IntegralSpinBox>(3, 4);
    expectTied<SpinBoxLgIndexPropertyBinding, veldraw::ui::IntegralSpinBox>(5LL, 6LL);
}

template <typename Binding, typename T>
void expectLimited()
{
    using Bounds = BoundedValueValidator<T>;
    veldraw::ui::IntegralSpinBox box;
    auto const bounds = boost::make_shared<Bounds>(T{2}, T{8}, Bounds::LowerInclusive, Bounds::UpperInclusive);
    auto const property = boost::make_shared<ApplicationProperty<T>>(bounds);
    Binding const binding(&box, property, {});
    EXPECT_EQ(box.minimum(), 2);
    EXPECT_EQ(box.maximum(), 8);
}

TEST(ExportedBindings, TakeTheRangeOfASpinBoxFromTheBoundsOfItsProperty)
{
    expectLimited<SpinBoxIntPropertyBinding, int>();
    expectLimited<SpinBoxLgIndexPropertyBinding, long long>();
}

TEST(ExportedBindings, AreWrittenToThroughTheirInterfaces)
{
    using Base = SpinBoxPropertyBinding<double, veldraw::ui::QScientificSpinBox>;
    veldraw::ui::QScientificSpinBox box;
    auto const property = make(1.0);
    std::unique_ptr<Base> const binding = std::make_unique<SpinBoxDoublePropertyBinding>(
        &box, property, boost::shared_ptr<sdk::ui::propertymanager::SpinBoxIncDecCalculatorBase>());
    property->setValue(2.0);
    PropertyBindingInterface& untyped = *binding;
    untyped.updateWidgetValue();
    EXPECT_EQ(box.value(), 2.0);
}

/// 1, 2, 3
class Numbers : public models::ListModelAbstract<int>
{
public:
    int size() const override { return 3; }
    int get(int index) const override { return index + 1; }
    std::string getStr(int index) const override { return std::to_string(index + 1); }
};

TEST(ExportedBindings, TieSelections)
{
    QListView view;
    auto const selection = make(std::set<int>{2});
    ListViewPropertyBinding binding(&view, boost::make_shared<Numbers>(), selection,
                                    BindingInterface::ModelUpdateDeferredOnBusy);
    binding.setSelectionMode(QAbstractItemView::MultiSelection);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1, {}));
    view.selectionModel()->select(view.model()->index(2, 0), QItemSelectionModel::Select);
    EXPECT_EQ(selection->value(), (std::set<int>{2, 3}));

    ApplicationUIProperty<std::set<int>> uiSelection({1});
    QListView second;
    ListViewPropertyBinding const uiBinding(&second, boost::make_shared<Numbers>(), uiSelection,
                                            BindingInterface::ModelUpdateUndeferred);
    EXPECT_TRUE(second.selectionModel()->isRowSelected(0, {}));
}

TEST(ExportedBindings, KeepTheSelectionOfAnyViewAndAPropertyEqual)
{
    QTreeView view;
    auto const selection = make(std::set<int>{2});
    ListViewPropertySynchronizer<std::set<int>> synchronizer(&view, boost::make_shared<Numbers>(), selection,
                                                             BindingInterface::ModelUpdateUndeferred);
    WidgetPropertySynchronizerInterface& base = synchronizer;
    base.updateWidget();
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1, {}));
    view.selectionModel()->select(view.model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
    base.updateProperty();
    EXPECT_EQ(selection->value(), (std::set<int>{1}));
}

/// A binding of the application's own between a line edit's text and a property.
template <typename Base, typename T>
class OwnBinding : public Base
{
public:
    OwnBinding(QLineEdit& field, boost::shared_ptr<PropertyAbstract<T>> property)
        : Base(std::move(property), BindingInterface::UpdateOnIdle)
        , m_field(field)
    {
    }
    void updateWidgetValue() override
    {
        std::ostringstream text;
        text << this->property().value();
        m_field.setText(QString::fromStdString(text.str()));
    }
    void updateWidgetVisibility() override {}
    void updateWidgetSensitivity() override {}

private:
    QLineEdit& m_field;
};

template <template <typename> class Base, typename T>
void expectUsableAsABase(T value, char const* text)
{
    QLineEdit field;
    auto const property = make(T{});
    OwnBinding<Base<T>, T> const binding(field, property);
    property->setValue(value);
    IdleDispatcher::flush();
    EXPECT_EQ(field.text().toStdString(), text);
}

TEST(ExportedBindings, AreBasesForBindingsOfTheApplication)
{
    expectUsableAsABase<UIPropertyBindingAbstract>(std::string("text"), "text");
    expectUsableAsABase<QObjectPropertyBinding>(std::string("text"), "text");
    expectUsableAsABase<QObjectPropertyBinding>(true, "1");
    expectUsableAsABase<QObjectPropertyBinding>(2, "2");
    expectUsableAsABase<QObjectPropertyBinding>(3LL, "3");
    expectUsableAsABase<QObjectPropertyBinding>(4.5, "4.5");
}

TEST(ExportedObservables, WatchWidgets)
{
    struct : QButtonListenerInterface, QComboBoxListenerInterface
    {
        void buttonStateChanged(QButtonObservable& observable) override
        {
            told += observable.buttonWidget() ? "button " : "?";
        }
        void currentIndexChanged(int index) override { told += std::to_string(index) + " "; }
        std::string told;
    } listener;
    QCheckBox box;
    QButtonObservable buttons(&box);
    buttons.addListener(&listener);
    box.click();
    buttons.removeListener(&listener);
    QComboBox comboBox;
    comboBox.addItems({QStringLiteral("a"), QStringLiteral("b")});
    QComboBoxObservable comboBoxes(&comboBox);
    comboBoxes.addListener(&listener);
    comboBox.setCurrentIndex(1);
    comboBoxes.removeListener(&listener);
    QLineEdit field;
    QTextFieldObservable const fields(field, [&listener] {
        listener.told += "text";
        return true;
    });
    QTest::keyClicks(&field, QStringLiteral("a"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(listener.told, "button 1 text");
}

TEST(ExportedObservables, TellTheEndOfAText)
{
    QWidget window;
    QTextEdit text(&window);
    QLineEdit other(&window);
    int finished = 0;
    QTextEditObservable const observable(text, [&finished] { ++finished; });
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("a"));
    EXPECT_EQ(finished, 0);
    other.setFocus();
    EXPECT_EQ(finished, 1);
}

TEST(ExportedObservables, AreHeardAsLongAsACollectionHoldsTheConnection)
{
    QLineEdit field;
    int changes = 0;
    {
        QtSignalConnectionCollection connections;
        connections.add(QObject::connect(&field, &QLineEdit::textChanged, [&changes] { ++changes; }));
        field.setText(QStringLiteral("a"));
    }
    field.setText(QStringLiteral("b"));
    EXPECT_EQ(changes, 1);
}

TEST(ExportedObservables, HoldBackAndPrepare)
{
    QComboBox comboBox;
    WidgetUpdateDeferrerOnBusy* const deferrer = new WidgetUpdateDeferrerOnBusy(comboBox);
    EXPECT_EQ(deferrer->parent(), &comboBox);
    ApplicationProperty<double> number;
    QString text = QStringLiteral("1.5");
    StringMassager().prepareText(number, text);
    EXPECT_EQ(text, QStringLiteral("1.5"));
}

} // namespace
} // namespace veldraw::tests
