#include "dialogs/models/EnforcedSelectionListPropertyDecorator.h"
#include "dialogs/property/PreMappedDecorator.h"
#include "dialogs/property/SimpleBooleanRelevance.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <boost/make_shared.hpp>

#include <gmock/gmock.h>
#include <stdexcept>
#include <vector>

namespace veldraw::tests {

using sdk::ui::propertymanager::SimpleBooleanRelevance;
using sdk::ui::propertymanager::UILocalStyleProperty;
using sdk::ui::propertymanager::UIStylePropertyDecoratorAbstract;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using sdk::ui::dialogs::propertybindings::models::ListModelInterface;
using Numbers = std::set<int>;

// Shows a number as a text with a unit.
class LengthText : public UIStylePropertyDecoratorAbstract<std::string, double>
{
public:
    explicit LengthText(boost::shared_ptr<UILocalStyleProperty<double>> metres)
        : UIStylePropertyDecoratorAbstract<std::string, double>(std::move(metres))
    {
    }

protected:
    void storeValue(std::string const& newValue) override { setDecoratedValue(std::stod(newValue)); }

private:
    std::string retrieveValue() const override { return std::to_string(static_cast<int>(decoratedValue())) + " m"; }
};

// A fixed list of numbers.
class NumberList : public ListModelInterface<int>
{
public:
    std::vector<int> numbers;

    int size() const override { return static_cast<int>(numbers.size()); }
    int get(int index) const override { return numbers.at(static_cast<std::size_t>(index)); }
    std::string getStr(int index) const override { return std::to_string(get(index)); }
    std::string getStrForEdit(int index) const override { return getStr(index); }
    void set(int value, int index) override { numbers.at(static_cast<std::size_t>(index)) = value; }
    bool setEditedItem(std::string const&, int) const override { return false; }
    bool isEditable() const override { return false; }
    bool isHeader(int) const override { return false; }
    int indexOf(int const&) const override { return -1; }
};

} // namespace

class UIDecoratorTest : public testing::Test
{
protected:
    boost::shared_ptr<UILocalStyleProperty<double>> metres = boost::make_shared<UILocalStyleProperty<double>>(3.0);
    LengthText text{metres};
};

TEST_F(UIDecoratorTest, ConvertsAndTellsASetOnce)
{
    std::vector<std::string> heard;
    text.connectValueChanged([&heard](std::string const& value) { heard.push_back(value); });
    text.setValue("5");
    EXPECT_EQ(metres->value(), 5.0);
    EXPECT_THAT(heard, ElementsAre("5 m"));
    metres->setValue(7.0);
    EXPECT_THAT(heard, ElementsAre("5 m", "7 m"));
}

TEST_F(UIDecoratorTest, HasTheStateOfTheDecoratedProperty)
{
    text.setVisible(false);
    EXPECT_FALSE(metres->isVisible());
    metres->setVisible(true);
    EXPECT_TRUE(text.isVisible());
    text.setSensitive(false);
    EXPECT_FALSE(metres->isSensitive());
    EXPECT_FALSE(text.isSensitive());
}

TEST_F(UIDecoratorTest, PassesRulesToTheDecoratedProperty)
{
    auto const never = boost::make_shared<SimpleBooleanRelevance>(false);
    text.setVisibilityRelevance(never);
    EXPECT_FALSE(metres->isVisible());
    text.setSensitivityRelevance(never);
    EXPECT_FALSE(metres->isSensitive());
    text.setSensitivityRelevance({});
    EXPECT_TRUE(text.isSensitive());
}

TEST_F(UIDecoratorTest, TellsChangesOfTheStateByItsOwnSignals)
{
    int visibilityChanges = 0, sensitivityChanges = 0;
    text.connectVisibilityChanged([&visibilityChanges] { ++visibilityChanges; });
    text.connectSensitivityChanged([&sensitivityChanges] { ++sensitivityChanges; });
    metres->setVisible(false);
    text.setSensitive(false);
    EXPECT_EQ(visibilityChanges, 1);
    EXPECT_EQ(sensitivityChanges, 1);
}

TEST_F(UIDecoratorTest, TakesTheValueOnlyWhenAssigned)
{
    auto const otherMetres = boost::make_shared<UILocalStyleProperty<double>>(8.0);
    LengthText other(otherMetres);
    text = other;
    EXPECT_EQ(metres->value(), 8.0);
    text.setValue("9");
    EXPECT_EQ(metres->value(), 9.0);
    EXPECT_EQ(otherMetres->value(), 8.0);
}

class PreMappedDecoratorTest : public testing::Test
{
protected:
    boost::shared_ptr<UILocalStyleProperty<VarStatus_e>> status =
        boost::make_shared<UILocalStyleProperty<VarStatus_e>>(VarStatus_NotLoaded);
    PreMappedDecorator<VarStatus_e> label{
        status, {{VarStatus_NotLoaded, "Not Loaded"}, {VarStatus_Loaded, "Loaded"}, {VarStatus_Loaded, "Twice"}}};
};

TEST_F(PreMappedDecoratorTest, ShowsTheLabelOfTheFirstItemWithTheValue)
{
    EXPECT_EQ(label.value(), "Not Loaded");
    status->setValue(VarStatus_Loaded);
    EXPECT_EQ(label.value(), "Loaded");
}

TEST_F(PreMappedDecoratorTest, TellsTheLabelOfANewValue)
{
    std::vector<std::string> heard;
    label.connectValueChanged([&heard](std::string const& value) { heard.push_back(value); });
    status->setValue(VarStatus_Loaded);
    EXPECT_THAT(heard, ElementsAre("Loaded"));
}

TEST_F(PreMappedDecoratorTest, IgnoresASetAndTellsNothingOfIt)
{
    int heard = 0;
    label.connectValueChanged([&heard](std::string const&) { ++heard; });
    label.connectPropertyChanged([&heard] { ++heard; });
    label.setValue("Loaded");
    label = std::string("no label at all");
    EXPECT_EQ(label.value(), "Not Loaded");
    EXPECT_EQ(status->value(), VarStatus_NotLoaded);
    EXPECT_EQ(heard, 0);
}

TEST_F(PreMappedDecoratorTest, LetsThePropertyTakeAnyValueWhileNobodyListens)
{
    EXPECT_NO_THROW(status->setValue(VarStatus_Custom));
    EXPECT_EQ(status->value(), VarStatus_Custom);
}

TEST_F(PreMappedDecoratorTest, FailsTheSetOfAValueWithoutALabelWhenSomebodyListens)
{
    std::string heard;
    boost::signals2::connection const listener =
        label.connectValueChanged([&heard](std::string const& value) { heard += value + "; "; });
    EXPECT_THROW(status->setValue(VarStatus_Custom), std::out_of_range);
    EXPECT_EQ(status->value(), VarStatus_Custom);
    listener.disconnect();
    EXPECT_NO_THROW(status->setValue(VarStatus_NotLoaded));
    boost::signals2::scoped_connection const untyped = label.connectPropertyChanged([&heard] { heard += "changed"; });
    status->setValue(VarStatus_Loaded);
    EXPECT_EQ(heard, "changed");
    EXPECT_THROW(status->setValue(VarStatus_Custom), std::out_of_range);
}

TEST_F(PreMappedDecoratorTest, ThrowsForAValueThatItsListDoesNotHave)
{
    status->setValue(VarStatus_Custom);
    try {
        label.value();
        FAIL() << "answered";
    } catch (std::out_of_range const& failure) {
        EXPECT_STREQ(failure.what(), "PreMappedDecorator: value not found in pre-mapped item list.");
    }
    status->setValue(VarStatus_Loaded);
    EXPECT_EQ(label.value(), "Loaded");
}

TEST_F(PreMappedDecoratorTest, HasTheStateOfTheDecoratedProperty)
{
    status->setVisible(false);
    EXPECT_FALSE(label.isVisible());
}

class EnforcedSelectionTest : public testing::Test
{
protected:
    EnforcedSelectionTest()
    {
        model->numbers = {4, 5, 6};
        selection.connectValueChanged([this](Numbers const& numbers) { heard.push_back(numbers); });
    }

    boost::shared_ptr<UILocalStyleProperty<Numbers>> inner =
        boost::make_shared<UILocalStyleProperty<Numbers>>(Numbers{5});
    boost::shared_ptr<NumberList> model = boost::make_shared<NumberList>();
    EnforcedSelectionListPropertyDecorator<int> selection{inner, model};
    std::vector<Numbers> heard;
};

TEST_F(EnforcedSelectionTest, TakesWhatIsNotEmpty)
{
    selection.setValue({5, 6});
    EXPECT_EQ(inner->value(), (Numbers{5, 6}));
    EXPECT_THAT(heard, ElementsAre(Numbers{5, 6}));
}

TEST_F(EnforcedSelectionTest, SelectsTheFirstItemInsteadOfNothing)
{
    selection.setValue({});
    EXPECT_EQ(selection.value(), Numbers{4});
    EXPECT_EQ(inner->value(), Numbers{4});
    EXPECT_THAT(heard, ElementsAre(Numbers{4}));
}

TEST_F(EnforcedSelectionTest, StaysEmptyWhenThereIsNothingToSelect)
{
    model->numbers.clear();
    selection.setValue({});
    EXPECT_THAT(selection.value(), IsEmpty());
}

TEST_F(EnforcedSelectionTest, StoresTheEmptySelectionEvenWhenItIsEmptyAlready)
{
    inner->setValue({});
    heard.clear();
    selection.setValue({});
    EXPECT_EQ(selection.value(), Numbers{4});
    EXPECT_THAT(heard, ElementsAre(Numbers{4}));
}

TEST_F(EnforcedSelectionTest, TellsTheFirstItemAgainWhenItIsTakenAway)
{
    inner->setValue({4});
    heard.clear();
    selection.setValue({});
    EXPECT_THAT(heard, ElementsAre(Numbers{4})); // so that the list shows it as selected again
}

TEST_F(EnforcedSelectionTest, TellsNothingOfAnEqualSelection)
{
    selection.setValue({5});
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(EnforcedSelectionTest, TellsAChangeOfTheDecoratedSelection)
{
    inner->setValue({6});
    EXPECT_THAT(heard, ElementsAre(Numbers{6}));
    inner->setValue({});
    EXPECT_THAT(selection.value(), IsEmpty());
}

TEST_F(EnforcedSelectionTest, HasTheStateOfTheDecoratedSelection)
{
    selection.setSensitive(false);
    EXPECT_FALSE(inner->isSensitive());
}

} // namespace veldraw::tests
