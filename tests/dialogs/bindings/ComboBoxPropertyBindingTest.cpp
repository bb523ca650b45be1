#include "dialogs/bindings/ComboBoxPropertyBinding.h"

#include "dialogs/models/EnumerationLabels.h"
#include "dialogs/models/PremappedListModel.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/ComboBoxFixture.h"
#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/dialogs/support/Wheel.h"

#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <boost/weak_ptr.hpp>

#include <locale>
#include <stdexcept>
#include <string>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

class ComboBoxPropertyBindingTest : public ComboBoxFixture
{
};

// ---- set-up -------------------------------------------------------------------------------------------------------

TEST_F(ComboBoxPropertyBindingTest, ShowsListAndValueFromTheStart)
{
    Binding const fresh(comboBox.get(), list, property, BindingInterface::ModelUpdateUndeferred);
    EXPECT_EQ(look(), "1 2 [3] 4 5");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, ReplacesTheItemsOfTheForm)
{
    comboBox->addItems({QStringLiteral("Degrees"), QStringLiteral("Radians")});
    bind();
    EXPECT_EQ(look(), "1 2 [3] 4 5");
}

TEST_F(ComboBoxPropertyBindingTest, ShowsTheFirstRowForAValueThatTheListLacksAndLeavesTheProperty)
{
    property = boost::make_shared<NotedProperty>(77);
    bind();
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1] 2 3 4 5");
    EXPECT_EQ(property->value(), 77);
}

TEST_F(ComboBoxPropertyBindingTest, KeepsTheValueWhenItStartsOverHeadingsOnly)
{
    list->reset({{0, "Zones", true}, {1, "Maps", true}});
    bind();
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, StartsOnTheValueBehindHeadings)
{
    list->reset({{0, "Zones", true}, {3, "three"}, {0, "Maps", true}, {4, "four"}});
    property = boost::make_shared<NotedProperty>(4);
    bind();
    EXPECT_EQ(look(), "Zones three Maps [four]");
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, LeavesTheBoxAloneOverAnEmptyList)
{
    list->reset({});
    bind();
    list->claimDataChanged();
    property->setValue(4);
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentIndex(), -1);
    EXPECT_EQ(property->stores, "4 ");
    EXPECT_EQ(list->getCalls, 0);
}

TEST_F(ComboBoxPropertyBindingTest, PreparesTheBoxForManyItemsAndNoNewOnes)
{
    bind();
    EXPECT_EQ(comboBox->insertPolicy(), QComboBox::NoInsert);
    ASSERT_NE(qobject_cast<QListView*>(comboBox->view()), nullptr);
    EXPECT_TRUE(qobject_cast<QListView*>(comboBox->view())->uniformItemSizes());
}

TEST_F(ComboBoxPropertyBindingTest, LeavesTheWidthOfTheFormUnlessThereAreThousandsOfTextsToMeasure)
{
    bind();
    EXPECT_EQ(comboBox->sizeAdjustPolicy(), QComboBox::AdjustToContentsOnFirstShow);
    QComboBox wide;
    list->reset(ScriptedList::numbered(5000));
    Binding const bound(&wide, list, property, BindingInterface::ModelUpdateUndeferred);
    EXPECT_EQ(wide.sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
    EXPECT_GT(wide.sizeHint().width(), wide.fontMetrics().horizontalAdvance(QStringLiteral("100000: Zone 100000")));
}

TEST_F(ComboBoxPropertyBindingTest, HoldsPaintingBackWhileBusyInTheDeferredModeOnly)
{
    bind(BindingInterface::ModelUpdateDeferredOnBusy);
    QComboBox other;
    Binding const undeferred(&other, list, property, BindingInterface::ModelUpdateUndeferred);
    sdk::WaitState const busy;
    EXPECT_FALSE(comboBox->updatesEnabled());
    EXPECT_TRUE(other.updatesEnabled());
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->value(), 4);
}

// ---- from the person to the property ------------------------------------------------------------------------------

TEST_F(ComboBoxPropertyBindingTest, TakesKeysAtOnce)
{
    bind();
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->stores, "4 ");
    driver->press(Qt::Key_Home);
    EXPECT_EQ(property->stores, "4 1 ");
    QTest::keyClicks(comboBox.get(), QStringLiteral("5"));
    EXPECT_EQ(property->stores, "4 1 5 ");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 3 4 [5]");
    EXPECT_EQ(property->stores, "4 1 5 ");
}

TEST_F(ComboBoxPropertyBindingTest, TakesTheRowThatIsPickedFromTheOpenList)
{
    bind();
    driver->pick(1);
    EXPECT_EQ(property->stores, "2 ");
    driver->open();
    QTest::keyClick(comboBox->view(), Qt::Key_Down);
    EXPECT_EQ(property->stores, "2 ");
    QTest::keyClick(comboBox->view(), Qt::Key_Return);
    EXPECT_EQ(property->stores, "2 3 ");
}

TEST_F(ComboBoxPropertyBindingTest, TakesNothingFromAListThatIsClosedWithoutAChoice)
{
    bind();
    driver->open();
    QTest::keyClick(comboBox->view(), Qt::Key_Down);
    QTest::keyClick(comboBox->view(), Qt::Key_Escape);
    driver->pick(2);
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, StepsOverHeadings)
{
    list->reset({{0, "Zones", true}, {3, "three"}, {0, "Maps", true}, {4, "four"}});
    bind();
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->stores, "4 ");
    driver->pick(2);
    QTest::keyClick(comboBox->view(), Qt::Key_Escape);
    driver->press(Qt::Key_Home);
    EXPECT_EQ(property->stores, "4 3 ");
}

TEST_F(ComboBoxPropertyBindingTest, TakesTheWheelOnlyWithTheFocus)
{
    bind();
    comboBox->clearFocus();
    turnWheel(*comboBox);
    EXPECT_EQ(property->stores, "");
    EXPECT_EQ(look(), "1 2 [3] 4 5");
    comboBox->setFocus();
    turnWheel(*comboBox);
    EXPECT_EQ(property->stores, "4 ");
}

TEST_F(ComboBoxPropertyBindingTest, KeepsTheValueWhenNoRowIsTheCurrentOne)
{
    bind();
    comboBox->setCurrentIndex(-1);
    EXPECT_EQ(property->stores, "");
    driver->press(Qt::Key_Home);
    EXPECT_EQ(property->stores, "1 ");
}

TEST_F(ComboBoxPropertyBindingTest, TakesTheValueOfTheRowNotOfTheEnumerationsOrder)
{
    auto const points = boost::make_shared<models::PremappedListModel<PtSelection_e>>(models::ptSelectionLabels);
    auto const selection = boost::make_shared<Property<PtSelection_e>>(PtSelection_Octant);
    ComboBoxPropertyBinding<PtSelection_e> const bound(comboBox.get(), points, selection,
                                                       BindingInterface::ModelUpdateUndeferred);
    EXPECT_EQ(look(), "Nearest N [Octant] All");
    ComboBoxDriver person(*comboBox);
    person.show();
    person.press(Qt::Key_Up);
    EXPECT_EQ(selection->value(), PtSelection_NearestN);
    person.press(Qt::Key_End);
    EXPECT_EQ(selection->value(), PtSelection_All);
}

TEST_F(ComboBoxPropertyBindingTest, LetsARefusalThroughAndShowsTheOldValueAgainAtIdle)
{
    bind();
    property->refusal = [](int value) {
        if (value == 4)
            throw InvalidPropertyValueException("Not this one.");
    };
    EXPECT_THROW(driver->announce(3), InvalidPropertyValueException);
    EXPECT_EQ(property->value(), 3);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 [3] 4 5");
    property->refusal = nullptr;
    driver->press(Qt::Key_Up);
    EXPECT_EQ(property->value(), 2);
}

TEST_F(ComboBoxPropertyBindingTest, KeepsAValueWhoseListenerThrows)
{
    bind();
    {
        boost::signals2::scoped_connection const broken =
            property->connectValueChanged([this](int) { throw std::runtime_error(look()); });
        EXPECT_THROW(driver->announce(3), std::runtime_error);
    }
    IdleDispatcher::flush();
    EXPECT_EQ(property->value(), 4);
    EXPECT_EQ(look(), "1 2 3 [4] 5");
}

// ---- from the property to the box ---------------------------------------------------------------------------------

TEST_F(ComboBoxPropertyBindingTest, FollowsThePropertyAtIdleOnce)
{
    bind();
    QSignalSpy const moves(comboBox.get(), QOverload<int>::of(&QComboBox::currentIndexChanged));
    for (int turn = 0; turn < 1000; ++turn)
        property->setValue(1 + turn % 5);
    property->setValue(2);
    EXPECT_EQ(look(), "1 2 [3] 4 5");
    property->stores.clear();
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 [2] 3 4 5");
    EXPECT_EQ(moves.count(), 1);
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, ShowsTheValueThatThePropertyReallyTook)
{
    bind();
    property->alteration = [](int value) { return value == 4 ? 5 : value; };
    driver->press(Qt::Key_Down);
    EXPECT_EQ(look(), "1 2 3 [4] 5");
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "1 2 3 4 [5]");
}

TEST_F(ComboBoxPropertyBindingTest, GivesThePropertyTheFirstRowForAValueThatTheListLacks)
{
    bind();
    property->setValue(77);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1] 2 3 4 5");
    EXPECT_EQ(property->stores, "77 1 ");
}

TEST_F(ComboBoxPropertyBindingTest, KeepsAValueThatTheListLacksWhenTheFirstRowIsTheCurrentOneAlready)
{
    property->setValue(1);
    bind();
    property->stores.clear();
    property->setValue(77);
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1] 2 3 4 5");
    EXPECT_EQ(property->stores, "77 ");
}

TEST_F(ComboBoxPropertyBindingTest, WaitsForTheEndOfALock)
{
    bind();
    {
        sdk::AppLock const lock(sdk::AppLock::ImplicitMacroRecording(0));
        property->setValue(1);
        IdleDispatcher::flush();
        EXPECT_EQ(look(), "1 2 [3] 4 5");
    }
    IdleDispatcher::flush();
    EXPECT_EQ(look(), "[1] 2 3 4 5");
}

TEST_F(ComboBoxPropertyBindingTest, TakesAPropertyWhoseSlotsSetItAgain)
{
    bind();
    boost::signals2::scoped_connection const correction = property->connectValueChanged([this](int value) {
        if (value == 4)
            property->setValue(1);
    });
    driver->press(Qt::Key_Down);
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "4 1 ");
    EXPECT_EQ(look(), "[1] 2 3 4 5");
}

// ---- editable boxes -----------------------------------------------------------------------------------------------

TEST_F(ComboBoxPropertyBindingTest, ShowsAValueThatTheListLacksAsTextOfAnEditableBox)
{
    comboBox->setEditable(true);
    bind();
    EXPECT_EQ(comboBox->currentText(), QStringLiteral("edit 3"));
    property->setValue(77);
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentText(), QStringLiteral("77"));
    EXPECT_EQ(property->stores, "77 ");
    property->setValue(5);
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentText(), QStringLiteral("edit 5"));
}

TEST_F(ComboBoxPropertyBindingTest, TakesTheTextOfAnEditableBoxWhenItsFieldCommits)
{
    comboBox->setEditable(true);
    bind();
    comboBox->lineEdit()->selectAll();
    QTest::keyClicks(comboBox->lineEdit(), QStringLiteral("42"));
    EXPECT_EQ(property->stores, "");
    QTest::keyClick(comboBox->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(property->stores, "42 ");
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentText(), QStringLiteral("42"));
    EXPECT_EQ(comboBox->count(), 5);
}

TEST_F(ComboBoxPropertyBindingTest, ReadsNoEnumerationFromTheTextOfAnEditableBox)
{
    comboBox->setEditable(true);
    auto const drift = boost::make_shared<Property<Drift_e>>(Drift_Linear);
    auto const drifts = boost::make_shared<models::PremappedListModel<Drift_e>>(models::driftLabels);
    ComboBoxPropertyBinding<Drift_e> const bound(comboBox.get(), drifts, drift,
                                                 BindingInterface::ModelUpdateUndeferred);
    driver = std::make_unique<ComboBoxDriver>(*comboBox);
    driver->show();
    RecordedMessages messages;
    comboBox->lineEdit()->selectAll();
    QTest::keyClicks(comboBox->lineEdit(), QStringLiteral("2"));
    QTest::keyClick(comboBox->lineEdit(), Qt::Key_Return);
    IdleDispatcher::flush();
    EXPECT_EQ(drift->value(), Drift_Linear);
    EXPECT_EQ(comboBox->currentText(), QStringLiteral("2"));
    EXPECT_TRUE(messages.take().empty());
}

/// An editable box whose text is finished without a choice of a row.
class EditableComboBoxTest : public ComboBoxFixture
{
protected:
    void SetUp() override
    {
        comboBox->setEditable(true);
        property->setValue(77);
        property->stores.clear();
    }

    void type(char const* text)
    {
        comboBox->setFocus();
        comboBox->lineEdit()->selectAll();
        QTest::keyClick(comboBox->lineEdit(), Qt::Key_Delete);
        QTest::keyClicks(comboBox->lineEdit(), QString::fromUtf8(text));
    }
    void finish() { QTest::keyClick(comboBox->lineEdit(), Qt::Key_Return); }
    std::string text() const { return comboBox->currentText().toStdString(); }

    RecordedMessages messages;
};

TEST_F(EditableComboBoxTest, SilentlyRestoresTheValueForATextThatIsNoNumber)
{
    bind();
    for (char const* const nothing : {"", "-"}) {
        type(nothing);
        finish();
        EXPECT_EQ(text(), "77") << nothing;
        EXPECT_TRUE(comboBox->hasFocus());
    }
    EXPECT_EQ(property->stores, "");
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(EditableComboBoxTest, TellsWhyATextIsRefusedAndRestoresTheValue)
{
    bind();
    property->refusal = [](int) { throw InvalidPropertyValueException("Not this one."); };
    type("42");
    finish();
    EXPECT_EQ(messages.take(), std::vector<std::string>{"error: Not this one."});
    EXPECT_EQ(text(), "77");
    EXPECT_TRUE(comboBox->hasFocus());
    EXPECT_EQ(property->value(), 77);
}

TEST_F(EditableComboBoxTest, KeepsATextThatNoEnumerationCanBeReadFrom)
{
    auto const points = boost::make_shared<models::PremappedListModel<PtSelection_e>>(models::ptSelectionLabels);
    auto const selection = boost::make_shared<Property<PtSelection_e>>(PtSelection_Octant);
    ComboBoxPropertyBinding<PtSelection_e> const bound(comboBox.get(), points, selection,
                                                       BindingInterface::ModelUpdateUndeferred);
    ComboBoxDriver(*comboBox).show();
    type("2");
    finish();
    EXPECT_EQ(text(), "2");
    EXPECT_EQ(selection->value(), PtSelection_Octant);
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(EditableComboBoxTest, WritesANumberAsItIsReadWhateverTheLocaleOfStreams)
{
    class Groups : public std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Groups));
    property->setValue(1234567);
    property->stores.clear();
    bind();
    EXPECT_EQ(text(), "1234567");
    finish();
    std::locale::global(before);
    EXPECT_EQ(text(), "1234567");
    EXPECT_EQ(property->stores, "");
}

// ---- lifetime -----------------------------------------------------------------------------------------------------

TEST_F(ComboBoxPropertyBindingTest, TakesTheListAwayFromTheBoxWithoutTouchingTheProperty)
{
    bind();
    tester.reset();
    binding.reset();
    EXPECT_EQ(comboBox->count(), 0);
    EXPECT_EQ(property->stores, "");
    comboBox->update();
    QCoreApplication::processEvents();
    property->setValue(1);
    list->claimDataChanged();
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "1 ");
}

TEST_F(ComboBoxPropertyBindingTest, MayGoWhileItsListIsOpen)
{
    bind();
    driver->open();
    tester.reset();
    binding.reset();
    list.reset();
    QTest::qWait(20);
    EXPECT_EQ(comboBox->count(), 0);
    EXPECT_FALSE(comboBox->view()->isVisible());
    EXPECT_EQ(property->stores, "");
}

TEST_F(ComboBoxPropertyBindingTest, MayGoWhileIdleWorkIsPending)
{
    bind();
    property->setValue(1);
    tester.reset();
    binding.reset();
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentIndex(), -1);
}

TEST_F(ComboBoxPropertyBindingTest, MayGoInsideTheSignalOfAChoice)
{
    bind();
    property->connectValueChanged([this](int) {
        tester.reset();
        binding.reset();
    });
    boost::weak_ptr<NotedProperty> const watched = property;
    property.reset();
    driver->press(Qt::Key_Down);
    IdleDispatcher::flush();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(comboBox->count(), 0);
}

TEST_F(ComboBoxPropertyBindingTest, MayGoInsideAChoiceThatFails)
{
    bind();
    property->connectValueChanged([this](int) {
        tester.reset();
        binding.reset();
        throw std::runtime_error("closed");
    });
    EXPECT_THROW(driver->announce(3), std::runtime_error);
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->count(), 0);
}

TEST_F(ComboBoxPropertyBindingTest, StandsABoxThatGoesFirst)
{
    bind();
    tester.reset();
    comboBox.reset();
    property->setValue(4);
    list->reset(ScriptedList::numbered(2));
    IdleDispatcher::flush();
    EXPECT_EQ(property->stores, "4 ");
    binding.reset();
}

TEST_F(ComboBoxPropertyBindingTest, LeavesABoxAloneThatShowsAnotherList)
{
    bind();
    QStandardItemModel other(3, 1);
    comboBox->setModel(&other);
    comboBox->setCurrentIndex(2);
    property->stores.clear();
    property->setValue(1);
    list->reset(ScriptedList::numbered(2));
    IdleDispatcher::flush();
    EXPECT_EQ(comboBox->currentIndex(), 2);
    comboBox->setCurrentIndex(1);
    EXPECT_EQ(property->stores, "1 ");
    tester.reset();
    binding.reset();
    EXPECT_EQ(comboBox->count(), 3);
}

TEST_F(ComboBoxPropertyBindingTest, MayBeReplacedByAnotherOnTheSameBox)
{
    bind();
    tester.reset();
    binding.reset();
    auto const names = boost::make_shared<ScriptedList>(std::vector<ScriptedList::Item>{{3, "three"}, {1, "one"}});
    Binding const second(comboBox.get(), names, property, BindingInterface::ModelUpdateDeferredOnBusy);
    EXPECT_EQ(look(), "[three] one");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(property->stores, "1 ");
}

TEST_F(ComboBoxPropertyBindingTest, KeepsListAndPropertyAlive)
{
    bind();
    boost::weak_ptr<ScriptedList> const watchedList = list;
    boost::weak_ptr<NotedProperty> const watchedProperty = property;
    list.reset();
    property.reset();
    driver->press(Qt::Key_Down);
    EXPECT_EQ(watchedProperty.lock()->value(), 4);
    EXPECT_FALSE(watchedList.expired());
    tester.reset();
    binding.reset();
    EXPECT_TRUE(watchedList.expired());
    EXPECT_TRUE(watchedProperty.expired());
}

} // namespace
} // namespace veldraw::tests
