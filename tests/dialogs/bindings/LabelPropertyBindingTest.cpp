#include "dialogs/bindings/LabelPropertyBinding.h"

#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/TestUIProperty.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using TextProperty = Property<std::string>;

TEST(LabelPropertyBinding, ShowsTheTextAtOnceAndFollowsItAtIdle)
{
    QLabel label(QStringLiteral("from the form"));
    auto const property = boost::make_shared<TextProperty>("one");
    LabelPropertyBinding const binding(&label, property, BindingInterface::UpdateOnIdle);
    EXPECT_EQ(label.text(), QStringLiteral("one"));
    property->setValue("two");
    property->setValue("three");
    EXPECT_EQ(label.text(), QStringLiteral("one"));
    IdleDispatcher::flush();
    EXPECT_EQ(label.text(), QStringLiteral("three"));
}

TEST(LabelPropertyBinding, FollowsAtOnceInTheImmediateMode)
{
    QLabel label;
    auto const property = boost::make_shared<TextProperty>("one");
    LabelPropertyBinding const binding(&label, property, BindingInterface::UpdateImmediately);
    property->setValue("two");
    EXPECT_EQ(label.text(), QStringLiteral("two"));
}

TEST(LabelPropertyBinding, AgreesByVoteWithARuleOnTheSameLabel)
{
    QLabel label;
    TestUIProperty<std::string> property;
    LabelPropertyBinding const binding(&label, property);
    auto const rule = boost::make_shared<SwitchedRelevance>(false);
    RelevanceApplier const applier(rule, &label, RelevanceApplier::EnableDisable, BindingInterface::UpdateOnIdle);
    property.setSensitive(false);
    property.setSensitive(true);
    IdleDispatcher::flush();
    EXPECT_FALSE(label.isEnabled());
    rule->set(true);
    IdleDispatcher::flush();
    EXPECT_TRUE(label.isEnabled());
    property.setSensitive(false);
    IdleDispatcher::flush();
    rule->set(true);
    IdleDispatcher::flush();
    EXPECT_FALSE(label.isEnabled());
}

TEST(LabelPropertyBinding, ErasesTheTextOfTheFormForAnEmptyProperty)
{
    QLabel label(QStringLiteral("from the form"));
    LabelPropertyBinding const binding(&label, boost::make_shared<TextProperty>(), BindingInterface::UpdateOnIdle);
    EXPECT_EQ(label.text(), QString());
}

TEST(LabelPropertyBinding, ShowsAnyScript)
{
    QLabel label;
    std::string const text = "Größe Δp \xF0\x9F\x8C\x8A";
    LabelPropertyBinding const binding(&label, boost::make_shared<TextProperty>(text), BindingInterface::UpdateOnIdle);
    EXPECT_EQ(label.text().toStdString(), text);
}

TEST(LabelPropertyBinding, ShowsWhatLooksLikeMarkupAsItIs)
{
    TestUIProperty<std::string> property("<b>Wing</b>");
    QLabel first;
    QLabel second;
    LabelPropertyBinding const firstBinding(&first, boost::make_shared<TextProperty>("<b>Wing</b>"),
                                            BindingInterface::UpdateOnIdle);
    LabelPropertyBinding const secondBinding(&second, property);
    int const whole = first.fontMetrics().horizontalAdvance(QStringLiteral("<b>Wing</b>"));
    EXPECT_GE(first.sizeHint().width(), whole);
    EXPECT_GE(second.sizeHint().width(), whole);
}

TEST(LabelPropertyBinding, LeavesRichTextToTheForm)
{
    QLabel label;
    label.setTextFormat(Qt::RichText);
    LabelPropertyBinding const binding(&label, boost::make_shared<TextProperty>("<b>i</b>"),
                                       BindingInterface::UpdateOnIdle);
    EXPECT_LT(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(QStringLiteral("<b>i</b>")));
}

TEST(LabelPropertyBinding, KeepsMnemonicsWorking)
{
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit first;
    QLabel label;
    QLineEdit second;
    for (QWidget* const widget :
         {static_cast<QWidget*>(&first), static_cast<QWidget*>(&label), static_cast<QWidget*>(&second)})
        layout.addWidget(widget);
    label.setBuddy(&second);
    LabelPropertyBinding const binding(&label, boost::make_shared<TextProperty>("Va&lue:"),
                                       BindingInterface::UpdateOnIdle);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(second.hasFocus());
}

TEST(LabelPropertyBinding, WritesTheTextOfAButton)
{
    QPushButton button;
    auto const property = boost::make_shared<TextProperty>("I=1");
    LabelPropertyBinding const binding(&button, property, BindingInterface::UpdateOnIdle);
    EXPECT_EQ(button.text(), QStringLiteral("I=1"));
    property->setValue("J=2");
    IdleDispatcher::flush();
    EXPECT_EQ(button.text(), QStringLiteral("J=2"));
}

TEST(LabelPropertyBinding, FollowsVisibilityAndSensitivityOfAUserInterfaceProperty)
{
    QWidget window;
    QLabel label(&window);
    TestUIProperty<std::string> property("one");
    property.setSensitive(false);
    LabelPropertyBinding const binding(&label, property);
    EXPECT_EQ(label.text(), QStringLiteral("one"));
    EXPECT_FALSE(label.isEnabled());
    EXPECT_FALSE(label.isHidden());
    property.setSensitive(true);
    property.setVisible(false);
    property.setValue("two");
    EXPECT_FALSE(label.isEnabled());
    IdleDispatcher::flush();
    EXPECT_TRUE(label.isEnabled());
    EXPECT_TRUE(label.isHidden());
    EXPECT_EQ(label.text(), QStringLiteral("two"));
}

TEST(LabelPropertyBinding, StartsHiddenWithAHiddenUserInterfaceProperty)
{
    QWidget window;
    auto* const hidden = new QLabel(&window);
    auto* const shown = new QLabel(&window);
    TestUIProperty<std::string> hiddenProperty;
    TestUIProperty<std::string> shownProperty;
    hiddenProperty.setVisible(false);
    LabelPropertyBinding const hiddenBinding(hidden, hiddenProperty);
    LabelPropertyBinding const shownBinding(shown, shownProperty);
    window.show();
    EXPECT_FALSE(hidden->isVisible());
    EXPECT_TRUE(shown->isVisible());
}

TEST(LabelPropertyBinding, MayGoWhileAWriteIsPending)
{
    QLabel label;
    TestUIProperty<std::string> property("one");
    auto binding = std::make_unique<LabelPropertyBinding>(&label, property);
    property.setValue("two");
    property.setVisible(false);
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    EXPECT_EQ(label.text(), QStringLiteral("one"));
}

TEST(LabelPropertyBinding, OutlivesItsWidgetAndKeepsThePropertyAlive)
{
    auto label = std::make_unique<QLabel>();
    auto button = std::make_unique<QPushButton>();
    auto property = boost::make_shared<TextProperty>("one");
    boost::weak_ptr<TextProperty> const watch = property;
    auto first = std::make_unique<LabelPropertyBinding>(label.get(), property, BindingInterface::UpdateOnIdle);
    auto second = std::make_unique<LabelPropertyBinding>(button.get(), property, BindingInterface::UpdateImmediately);
    label.reset();
    button.reset();
    property->setValue("two");
    IdleDispatcher::flush();
    property.reset();
    EXPECT_FALSE(watch.expired());
    first.reset();
    second.reset();
    EXPECT_TRUE(watch.expired());
}

} // namespace
} // namespace veldraw::tests
