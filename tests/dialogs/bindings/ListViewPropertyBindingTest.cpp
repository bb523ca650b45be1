#include "dialogs/bindings/ListViewPropertyBinding.h"

#include "dialogs/bindings/RelevanceApplier.h"
#include "dialogs/models/ListModelProxy.h"
#include "dialogs/property/Property.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/bindings/ListViewDriver.h"
#include "tests/dialogs/bindings/TestUIProperty.h"
#include "tests/dialogs/models/ScriptedList.h"
#include "tests/dialogs/support/SwitchedRelevance.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;
using Values = std::set<int>;
using ValuesProperty = Property<Values>;

constexpr auto deferred = BindingInterface::ModelUpdateDeferredOnBusy;
constexpr auto undeferred = BindingInterface::ModelUpdateUndeferred;

/// Never empty: an empty set becomes {1}.
class EnforcedSelection : public PropertyAbstract<Values>
{
protected:
    void storeValue(Values const& newValue) override { m_value = newValue.empty() ? Values{1} : newValue; }
    bool isEqual(Values const& other) const override { return !other.empty() && other == m_value; }

private:
    Values retrieveValue() const override { return m_value; }
    Values m_value{1};
};

class AtMostTwo : public virtual ValidatorInterface<Values>
{
public:
    ValidationResult validate(Values const& value) const override
    {
        ValidationResult result;
        if (value.size() > 2)
            result.setErrorString("At most two.");
        return result;
    }
};

class ListViewPropertyBindingTest : public ::testing::Test
{
protected:
    void bind(BindingInterface::ModelUpdateMode mode = deferred)
    {
        binding = std::make_unique<ListViewPropertyBinding>(&view, list, property, mode);
        tester = std::make_unique<QAbstractItemModelTester>(view.model(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
        driver.show();
        IdleDispatcher::flush();
    }

    std::string chosen() const { return text(property->value()); }

    boost::shared_ptr<ScriptedList> const list = boost::make_shared<ScriptedList>(ScriptedList::numbered(5));
    boost::shared_ptr<ValuesProperty> property = boost::make_shared<ValuesProperty>(Values{2, 3});
    QListView view;
    ListViewDriver driver{view};
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<ListViewPropertyBinding> binding;
};

// ---- set-up -------------------------------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, ShowsListAndSelectionFromTheStart)
{
    ListViewPropertyBinding const fresh(&view, list, property, deferred);
    EXPECT_EQ(driver.look(), "1 [2] [3] 4 5");
}

TEST_F(ListViewPropertyBindingTest, GivesExtendedSelectionToAViewThatHasQtsSingleOne)
{
    bind();
    EXPECT_EQ(view.selectionMode(), QAbstractItemView::ExtendedSelection);
    binding->setSelectionMode(QAbstractItemView::SingleSelection);
    EXPECT_EQ(view.selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(ListViewPropertyBindingTest, LeavesASelectionModeOfTheForm)
{
    view.setSelectionMode(QAbstractItemView::MultiSelection);
    bind();
    EXPECT_EQ(view.selectionMode(), QAbstractItemView::MultiSelection);
}

// ---- from the person to the property ------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, TakesClicks)
{
    bind();
    driver.click(0);
    EXPECT_EQ(chosen(), "1");
    driver.click(3, Qt::ControlModifier);
    EXPECT_EQ(chosen(), "1 4");
    driver.click(0, Qt::ControlModifier);
    EXPECT_EQ(chosen(), "4");
    driver.click(0);
    driver.click(1, Qt::ShiftModifier);
    EXPECT_EQ(driver.look(), "[1] [2] 3 4 5");
    EXPECT_EQ(chosen(), "1 2");
}

TEST_F(ListViewPropertyBindingTest, TakesKeys)
{
    bind();
    driver.click(1);
    driver.press(Qt::Key_Down);
    EXPECT_EQ(chosen(), "3");
    driver.press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(chosen(), "3 4");
    driver.press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(chosen(), "1 2 3 4 5");
    driver.press(Qt::Key_Home);
    EXPECT_EQ(chosen(), "1");
}

TEST_F(ListViewPropertyBindingTest, TogglesRowsOfAMultiSelection)
{
    view.setSelectionMode(QAbstractItemView::MultiSelection);
    bind();
    driver.click(1);
    driver.click(4);
    EXPECT_EQ(chosen(), "3 5");
}

TEST_F(ListViewPropertyBindingTest, DoesNotEchoAPersonsSelection)
{
    bind();
    driver.click(4);
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
}

TEST_F(ListViewPropertyBindingTest, DoesNotSelectHeadings)
{
    list->reset({{9, "Heading", true}, {1, "1"}, {2, "2"}});
    bind();
    driver.click(1);
    driver.press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(chosen(), "1 2");
    driver.click(2);
    driver.click(0);
    EXPECT_EQ(chosen(), "2");
}

TEST_F(ListViewPropertyBindingTest, GivesOneNumberForAValueOnTwoRows)
{
    list->reset({{7, "a"}, {8, "b"}, {7, "c"}});
    property->setValue({7});
    bind();
    EXPECT_EQ(driver.look(), "[a] b [c]");
    driver.click(1, Qt::ControlModifier);
    EXPECT_EQ(driver.look(), "[a] [b] [c]");
    EXPECT_EQ(chosen(), "7 8");
    driver.click(1, Qt::ControlModifier);
    EXPECT_EQ(chosen(), "7");
}

// ---- from the property to the view --------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, FollowsThePropertyAtIdleOnce)
{
    bind();
    QSignalSpy const changes(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    property->setValue({1});
    property->setValue({4, 5});
    EXPECT_EQ(driver.look(), "1 [2] [3] 4 5");
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 3 [4] [5]");
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(chosen(), "4 5");
}

TEST_F(ListViewPropertyBindingTest, ClearsTheSelectionForAnEmptySet)
{
    bind();
    property->setValue({});
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 3 4 5");
    EXPECT_EQ(chosen(), "");
}

TEST_F(ListViewPropertyBindingTest, KeepsANumberThatTheListLacksUntilTheListChanges)
{
    bind();
    property->setValue({3, 77});
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 [3] 4 5");
    EXPECT_EQ(chosen(), "3 77");
    list->claimDataChanged();
    IdleDispatcher::flush();
    EXPECT_EQ(chosen(), "3");
}

TEST_F(ListViewPropertyBindingTest, AsksAnEmptyListForNoItem)
{
    list->reset({});
    list->getCalls = 0;
    bind();
    property->setValue({1, 4});
    list->claimDataChanged();
    IdleDispatcher::flush();
    EXPECT_EQ(list->getCalls, 0);
    EXPECT_EQ(chosen(), "");
}

TEST_F(ListViewPropertyBindingTest, LeavesPaintingToAViewThatMustNotPaint)
{
    bind();
    view.setUpdatesEnabled(false);
    property->setValue({1});
    IdleDispatcher::flush();
    EXPECT_FALSE(view.updatesEnabled());
    view.setUpdatesEnabled(true);
    property->setValue({2});
    IdleDispatcher::flush();
    EXPECT_TRUE(view.updatesEnabled());
}

// ---- when the list changes ----------------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, KeepsTheSelectionThroughAChangeOfTheWholeAndDropsWhatVanished)
{
    bind();
    list->reset({{3, "3"}, {1, "1"}});
    EXPECT_EQ(chosen(), "2 3");
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "[3] 1");
    EXPECT_EQ(chosen(), "3");
}

TEST_F(ListViewPropertyBindingTest, SettlesAtOnceInTheUndeferredMode)
{
    bind(undeferred);
    list->reset({{3, "3"}, {1, "1"}});
    EXPECT_EQ(driver.look(), "[3] 1");
    EXPECT_EQ(chosen(), "3");
}

TEST_F(ListViewPropertyBindingTest, TakesNoSelectionBetweenAChangeOfTheListAndIdle)
{
    bind();
    list->reset(ScriptedList::numbered(4));
    driver.click(0);
    EXPECT_EQ(chosen(), "2 3");
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 [2] [3] 4");
    EXPECT_EQ(chosen(), "2 3");
    driver.click(0);
    EXPECT_EQ(chosen(), "1");
}

TEST_F(ListViewPropertyBindingTest, CollapsesManyChangesOfTheList)
{
    bind();
    int changes = 0;
    boost::signals2::scoped_connection const connection =
        property->connectValueChanged([&](Values const&) { ++changes; });
    list->reset({});
    list->reset({{9, "9"}});
    list->reset(ScriptedList::numbered(3));
    IdleDispatcher::flush();
    EXPECT_EQ(chosen(), "2 3");
    EXPECT_EQ(changes, 0);
}

TEST_F(ListViewPropertyBindingTest, AppliesTheNewestSelectionAfterBothHaveChanged)
{
    bind();
    property->setValue({1, 5});
    list->reset(ScriptedList::numbered(3));
    property->setValue({1, 2, 5});
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "[1] [2] 3");
    EXPECT_EQ(chosen(), "1 2");
}

TEST_F(ListViewPropertyBindingTest, DropsRemovedRowsAtOnce)
{
    bind();
    list->remove(1, 1);
    EXPECT_EQ(chosen(), "3");
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 [3] 4 5");
    list->remove(0, 0);
    EXPECT_EQ(chosen(), "3");
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "[3] 4 5");
    EXPECT_EQ(chosen(), "3");
}

TEST_F(ListViewPropertyBindingTest, DropsANumberThatTheListLacksWhenAnotherRowIsRemoved)
{
    bind();
    property->setValue({3, 77});
    IdleDispatcher::flush();
    list->remove(4, 4);
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 [3] 4");
    EXPECT_EQ(chosen(), "3");
}

TEST_F(ListViewPropertyBindingTest, KeepsTheSelectionWhenRowsAreInserted)
{
    bind();
    list->insert(0, {{8, "8"}, {9, "9"}});
    EXPECT_EQ(driver.look(), "8 9 1 [2] [3] 4 5");
    IdleDispatcher::flush();
    EXPECT_EQ(chosen(), "2 3");
}

TEST_F(ListViewPropertyBindingTest, ReadsTheSelectionAgainWhenAnItemChanged)
{
    bind();
    list->change(1, {20, "20"});
    EXPECT_EQ(chosen(), "3 20");
    EXPECT_EQ(driver.look(), "1 [20] [3] 4 5");
}

TEST_F(ListViewPropertyBindingTest, StandsAListThatShrinksInsideItsOwnSignal)
{
    bool shrunk = false;
    boost::signals2::scoped_connection const connection = list->connectDataChanged([&] {
        if (!std::exchange(shrunk, true))
            list->reset(ScriptedList::numbered(2));
    });
    bind();
    list->reset(ScriptedList::numbered(9));
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 [2]");
    EXPECT_EQ(chosen(), "2");
}

TEST_F(ListViewPropertyBindingTest, FollowsAListThatIsReplacedBehindAProxy)
{
    auto const proxy = boost::make_shared<models::ListModelProxy<int>>(list);
    ListViewPropertyBinding const overProxy(&view, proxy, property, deferred);
    proxy->setModel(boost::make_shared<ScriptedList>(std::vector<ScriptedList::Item>{{3, "three"}, {6, "six"}}));
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "[three] six");
    EXPECT_EQ(chosen(), "3");
}

// ---- properties that correct or refuse ----------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, ShowsACorrectionInTheUndeferredMode)
{
    auto const enforced = boost::make_shared<EnforcedSelection>();
    ListViewPropertyBinding const corrected(&view, list, enforced, undeferred);
    driver.show();
    view.selectionModel()->clearSelection();
    EXPECT_EQ(text(enforced->value()), "1");
    EXPECT_EQ(driver.look(), "[1] 2 3 4 5");
}

TEST_F(ListViewPropertyBindingTest, DoesNotEchoACorrectionInTheDeferredMode)
{
    auto const enforced = boost::make_shared<EnforcedSelection>();
    ListViewPropertyBinding const corrected(&view, list, enforced, deferred);
    driver.show();
    view.selectionModel()->clearSelection();
    IdleDispatcher::flush();
    EXPECT_EQ(text(enforced->value()), "1");
    EXPECT_EQ(driver.look(), "1 2 3 4 5");
}

// Without QListView::selectAll(), which leaks its ranges when a listener throws.
void selectEveryRow(QListView& view)
{
    QAbstractItemModel const& rows = *view.model();
    view.selectionModel()->select(QItemSelection(rows.index(0, 0), rows.index(rows.rowCount() - 1, 0)),
                                  QItemSelectionModel::ClearAndSelect);
}

TEST_F(ListViewPropertyBindingTest, FollowsThePropertyAgainAfterItHasRefusedASelection)
{
    property = boost::make_shared<ValuesProperty>(Values{2, 3}, boost::make_shared<AtMostTwo>());
    bind();
    EXPECT_THROW(selectEveryRow(view), InvalidPropertyValueException);
    EXPECT_EQ(chosen(), "2 3");
    property->setValue({5});
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 3 4 [5]");
}

TEST_F(ListViewPropertyBindingTest, FollowsThePropertyAgainAfterAListenerHasThrown)
{
    bind();
    bool fails = true;
    boost::signals2::scoped_connection const connection = property->connectValueChanged([&fails](Values const&) {
        if (fails)
            throw std::runtime_error("listener");
    });
    EXPECT_THROW(selectEveryRow(view), std::runtime_error);
    EXPECT_EQ(chosen(), "1 2 3 4 5");
    fails = false;
    property->setValue({4});
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "1 2 3 [4] 5");
}

// ---- the user-interface side of a property ------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, FollowsVisibilityAndSensitivityOfAUserInterfaceProperty)
{
    TestUIProperty<Values> uiProperty(Values{1});
    uiProperty.setSensitive(false);
    ListViewPropertyBinding const bound(&view, list, uiProperty, deferred);
    EXPECT_FALSE(view.isEnabled());
    uiProperty.setSensitive(true);
    uiProperty.setVisible(false);
    IdleDispatcher::flush();
    EXPECT_TRUE(view.isEnabled());
    EXPECT_TRUE(view.isHidden());
    uiProperty.setVisible(true);
    IdleDispatcher::flush();
    EXPECT_FALSE(view.isHidden());
    driver.show();
    driver.click(2);
    EXPECT_EQ(text(uiProperty.value()), "3");
}

TEST_F(ListViewPropertyBindingTest, AppliesTheUserInterfaceSideWithEverySelectionInTheUndeferredMode)
{
    TestUIProperty<Values> uiProperty(Values{1});
    ListViewPropertyBinding const bound(&view, list, uiProperty, undeferred);
    driver.show();
    boost::signals2::scoped_connection const connection =
        uiProperty.connectValueChanged([&uiProperty](Values const&) { uiProperty.setSensitive(false); });
    driver.click(3);
    EXPECT_EQ(text(uiProperty.value()), "4");
    EXPECT_FALSE(view.isEnabled());
}

TEST_F(ListViewPropertyBindingTest, SharesTheViewsStateWithRulesOnTheSameView)
{
    auto const rule = boost::make_shared<SwitchedRelevance>(true);
    TestUIProperty<Values> uiProperty(Values{1});
    ListViewPropertyBinding const bound(&view, list, uiProperty, undeferred);
    uiProperty.setSensitive(false);
    IdleDispatcher::flush();
    RelevanceApplier const applier(rule, &view, RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle);
    EXPECT_FALSE(view.isEnabled()) << "the rule allows what the property forbids";
    rule->set(false);
    uiProperty.setSensitive(true);
    IdleDispatcher::flush();
    EXPECT_FALSE(view.isEnabled()) << "the property allows what the rule forbids";
    rule->set(true);
    IdleDispatcher::flush();
    EXPECT_TRUE(view.isEnabled());
}

// ---- editing ------------------------------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, LetsEditableRowsBeEditedInPlace)
{
    list->editable = true;
    bind();
    driver.edit(1, QStringLiteral("two"));
    EXPECT_EQ(list->edits, (std::vector<std::string>{"1: two"}));
}

// ---- life and death -----------------------------------------------------------------------------------------------

TEST_F(ListViewPropertyBindingTest, MayGoWhileIdleWorkIsPending)
{
    bind();
    property->setValue({1});
    list->reset(ScriptedList::numbered(3));
    EXPECT_GT(IdleDispatcher::pendingCount(), 0);
    tester.reset();
    binding.reset();
    EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    IdleDispatcher::flush();
    QCoreApplication::processEvents();
    EXPECT_EQ(chosen(), "1");
    list->reset(ScriptedList::numbered(2));
    property->setValue({2});
    IdleDispatcher::flush();
    view.repaint();
    EXPECT_EQ(view.model() ? view.model()->rowCount() : 0, 0);
}

TEST_F(ListViewPropertyBindingTest, MayBeEndedByAListenerThatHearsASelection)
{
    for (auto const mode : {deferred, undeferred}) {
        property = boost::make_shared<ValuesProperty>(Values{2, 3});
        bind(mode);
        tester.reset();
        property->connectValueChanged([this](Values const&) {
            binding.reset();
            property.reset();
        });
        driver.click(0);
        EXPECT_FALSE(binding);
        EXPECT_EQ(view.model(), nullptr);
        EXPECT_EQ(IdleDispatcher::pendingCount(), 0);
    }
}

TEST_F(ListViewPropertyBindingTest, TakesTheListAwayFromTheViewWithoutTouchingTheProperty)
{
    bind();
    int changes = 0;
    boost::signals2::scoped_connection const connection =
        property->connectValueChanged([&](Values const&) { ++changes; });
    tester.reset();
    binding.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(chosen(), "2 3");
}

TEST_F(ListViewPropertyBindingTest, StandsAViewThatGoesFirst)
{
    auto shortLived = std::make_unique<QListView>();
    ListViewPropertyBinding other(shortLived.get(), list, property, deferred);
    list->reset(ScriptedList::numbered(4));
    property->setValue({1});
    shortLived.reset();
    IdleDispatcher::flush();
    list->reset(ScriptedList::numbered(3));
    IdleDispatcher::flush();
    other.setSelectionMode(QAbstractItemView::SingleSelection);
    EXPECT_EQ(chosen(), "1");
}

TEST_F(ListViewPropertyBindingTest, LeavesAViewAloneThatShowsAnotherList)
{
    bind();
    auto const other = boost::make_shared<ValuesProperty>(Values{1});
    ListViewPropertyBinding const second(&view, list, other, deferred);
    property->setValue({4});
    list->claimDataChanged();
    IdleDispatcher::flush();
    EXPECT_EQ(driver.look(), "[1] 2 3 4 5");
    EXPECT_EQ(chosen(), "4");
    driver.click(4);
    EXPECT_EQ(text(other->value()), "5");
    EXPECT_EQ(chosen(), "4");
}

TEST_F(ListViewPropertyBindingTest, KeepsListAndPropertyAlive)
{
    auto otherList = boost::make_shared<ScriptedList>(ScriptedList::numbered(2));
    auto otherProperty = boost::make_shared<ValuesProperty>();
    boost::weak_ptr<ScriptedList> const listWatch = otherList;
    boost::weak_ptr<ValuesProperty> const propertyWatch = otherProperty;
    {
        ListViewPropertyBinding const bound(&view, otherList, otherProperty, deferred);
        otherList.reset();
        otherProperty.reset();
        driver.show();
        driver.click(1);
        ASSERT_FALSE(listWatch.expired());
        ASSERT_FALSE(propertyWatch.expired());
        EXPECT_EQ(text(propertyWatch.lock()->value()), "2");
    }
    EXPECT_TRUE(listWatch.expired());
    EXPECT_TRUE(propertyWatch.expired());
}

TEST_F(ListViewPropertyBindingTest, WaitsForTheEndOfALock)
{
    bind();
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        property->setValue({5});
        list->reset(ScriptedList::numbered(6));
        QCoreApplication::processEvents();
        EXPECT_EQ(driver.look(), "1 2 3 4 5 6");
    }
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(driver.look(), "1 2 3 4 [5] 6");
}

// ---- many rows ----------------------------------------------------------------------------------------------------

TEST(ListViewPropertyBindingOfManyRows, SelectsNeighboursAsOneRange)
{
    auto const list = boost::make_shared<ScriptedList>(ScriptedList::numbered(100000));
    Values all;
    for (int value = 1; value <= 100000; ++value)
        all.insert(all.end(), value);
    auto const property = boost::make_shared<ValuesProperty>(all);
    QListView view;
    ListViewPropertyBinding const bound(&view, list, property, deferred);
    EXPECT_EQ(view.selectionModel()->selection().size(), 1);
    view.clearSelection();
    EXPECT_TRUE(property->value().empty());
    view.selectAll();
    EXPECT_EQ(property->value(), all);
    all.erase(50000);
    property->setValue(all);
    IdleDispatcher::flush();
    EXPECT_EQ(view.selectionModel()->selection().size(), 2);
}

TEST(ListViewPropertyBindingOfManyRows, ReplacesOneScatteredSelectionByAnotherInTwoChanges)
{
    auto const list = boost::make_shared<ScriptedList>(ScriptedList::numbered(40000));
    Values odd;
    Values even;
    for (int value = 1; value <= 40000; value += 2) {
        odd.insert(value);
        even.insert(value + 1);
    }
    auto const property = boost::make_shared<ValuesProperty>(odd);
    QListView view;
    ListViewPropertyBinding const bound(&view, list, property, deferred);
    QSignalSpy const changes(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    property->setValue(even);
    IdleDispatcher::flush();
    EXPECT_EQ(changes.count(), 2) << "the old one goes, the new one comes; each change goes through all ranges";
    EXPECT_EQ(view.selectionModel()->selection().size(), 20000);
    EXPECT_FALSE(view.selectionModel()->isSelected(view.model()->index(0, 0)));
    EXPECT_TRUE(view.selectionModel()->isSelected(view.model()->index(1, 0)));
}

// ---- storms -------------------------------------------------------------------------------------------------------

/// Random clicks, keys, changes of the list and of the property; when all is settled, the view shows the property, and
/// the property holds nothing that the list lacks.
class ListViewPropertyBindingStorm : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(ListViewPropertyBindingStorm, EndsWithViewAndPropertyEqual)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    std::mt19937 random(GetParam());
    auto const below = [&random](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    auto const someValues = [&below] {
        Values values;
        for (int n = below(6); n > 0; --n)
            values.insert(1 + below(15));
        return values;
    };
    auto const list = boost::make_shared<ScriptedList>(ScriptedList::numbered(8));
    auto const property = boost::make_shared<ValuesProperty>();
    QListView view;
    ListViewDriver driver(view);
    ListViewPropertyBinding const bound(&view, list, property, below(2) == 0 ? deferred : undeferred);
    QAbstractItemModelTester const tester(view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    driver.show();
    for (int step = 0; step < 150; ++step) {
        int const size = list->size();
        int const row = size > 0 ? below(size) : 0;
        switch (below(8)) {
        case 0:
            list->reset(ScriptedList::numbered(1 + below(15)));
            break;
        case 1:
            list->insert(row, {{16 + step, "new"}});
            break;
        case 2:
            if (size > 1)
                list->remove(row, row);
            break;
        case 3:
            list->change(row, {1 + below(15), "changed"});
            break;
        case 4:
            property->setValue(someValues());
            break;
        case 5:
            driver.press(below(2) == 0 ? Qt::Key_Down : Qt::Key_Up, below(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
            break;
        case 6:
            IdleDispatcher::runRound();
            break;
        default:
            driver.click(row, below(2) == 0 ? Qt::ControlModifier : Qt::NoModifier);
            break;
        }
        if (step % 10 != 9)
            continue;
        list->claimDataChanged();
        IdleDispatcher::flush();
        Values const values = property->value();
        for (int each = 0; each < list->size(); ++each) {
            ASSERT_EQ(view.selectionModel()->isSelected(view.model()->index(each, 0)),
                      values.count(list->get(each)) == 1)
                << "step " << step << " row " << each;
        }
        for (int const value : values)
            ASSERT_GE(list->indexOf(value), 0) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListViewPropertyBindingStorm, ::testing::Range(1u, 13u));

} // namespace
} // namespace veldraw::tests
