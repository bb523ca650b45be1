#include "dialogs/bindings/SpinBoxIntPropertyBinding.h"

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"
#include "dialogs/property/PropertyTypeAdapter.h"
#include "tests/dialogs/bindings/SpinBoxBindingFixture.h"

#include <QApplication>
#include <QClipboard>

#include <boost/make_shared.hpp>

#include <cfloat>
#include <climits>
#include <cmath>
#include <gmock/gmock.h>
#include <type_traits>
#include <vector>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Both whole-number bindings behave alike.
template <typename T>
class IntegralSpinBoxBinding : public SpinBoxBindingFixture<T>
{
protected:
    using Bounds = BoundedValueValidator<T>;

    void bindLimited(T lowest, T highest, typename Bounds::LowerBound lower = Bounds::LowerInclusive,
                     typename Bounds::UpperBound upper = Bounds::UpperInclusive)
    {
        limits = boost::make_shared<Bounds>(lowest, highest, lower, upper);
        this->property = boost::make_shared<Property<T>>(T(5), limits);
        this->bind();
    }

    std::pair<int, int> range() const { return {this->box->minimum(), this->box->maximum()}; }

    boost::shared_ptr<Bounds> limits;
};

using Types = ::testing::Types<int, long long>;
TYPED_TEST_SUITE(IntegralSpinBoxBinding, Types);

TYPED_TEST(IntegralSpinBoxBinding, ShowsTheValueFromTheStartAndFollowsItAtIdle)
{
    this->bind();
    EXPECT_EQ(this->driver->text(), "5");
    this->property->setValue(7);
    EXPECT_EQ(this->driver->text(), "5");
    EXPECT_EQ(this->settled(), "7");
}

TYPED_TEST(IntegralSpinBoxBinding, StepsByClickKeyPageAndWheel)
{
    this->bind();
    this->driver->clickUp();
    this->driver->clickUp();
    this->driver->clickDown();
    EXPECT_THAT(this->take(), ElementsAre(6, 7, 6));
    this->driver->press(Qt::Key_Up);
    this->driver->press(Qt::Key_PageUp);
    EXPECT_THAT(this->take(), ElementsAre(7, 17));
    this->driver->turnWheel(-1);
    EXPECT_THAT(this->take(), ElementsAre(16));
    EXPECT_EQ(this->settled(), "16");
}

TYPED_TEST(IntegralSpinBoxBinding, IgnoresTheWheelWithoutTheFocus)
{
    this->bind();
    this->driver->turnWheel(3);
    EXPECT_THAT(this->take(), IsEmpty());
    EXPECT_TRUE(this->elsewhere->hasFocus());
}

TYPED_TEST(IntegralSpinBoxBinding, StepsByTheBoxsOwnStepWithoutACalculator)
{
    this->box->setSingleStep(4);
    this->bind();
    this->driver->clickUp();
    EXPECT_EQ(this->property->value(), 9);
}

TYPED_TEST(IntegralSpinBoxBinding, StaysWithinTheRangeOfTheFormByManySteps)
{
    this->box->setRange(2, 999999999);
    this->bind();
    this->property->setValue(999999995);
    this->idle();
    this->driver->clickUp();
    this->driver->press(Qt::Key_PageUp);
    EXPECT_EQ(this->property->value(), 999999999);
    this->property->setValue(4);
    this->idle();
    this->driver->press(Qt::Key_PageDown);
    EXPECT_EQ(this->property->value(), 2);
}

TYPED_TEST(IntegralSpinBoxBinding, ChangesNothingByShowingAValueBeyondItsRange)
{
    this->box->setRange(1, 50);
    this->bind();
    for (auto const value : {TypeParam(0), TypeParam(-7), TypeParam(51), TypeParam(INT_MAX), TypeParam(INT_MIN)}) {
        this->property->setValue(value);
        this->take();
        EXPECT_EQ(this->settled(), value < 1 ? "1" : "50");
        this->box->setFocus();
        this->driver->press(Qt::Key_Return);
        this->driver->press(Qt::Key_Tab);
        EXPECT_THAT(this->take(), IsEmpty()) << value;
    }
}

TYPED_TEST(IntegralSpinBoxBinding, TakesALimitThatIsTypedForAValueBeyondIt)
{
    this->box->setRange(1, 50);
    this->bind();
    this->property->setValue(0);
    this->take();
    EXPECT_EQ(this->settled(), "1");
    this->driver->type("1");
    this->driver->press(Qt::Key_Return);
    EXPECT_THAT(this->take(), ElementsAre(1));
    this->property->setValue(99);
    this->take();
    this->idle();
    this->driver->type("50");
    this->clickElsewhere();
    EXPECT_THAT(this->take(), ElementsAre(50));
}

TYPED_TEST(IntegralSpinBoxBinding, LeavesAValueBeyondItsRangeAloneWhenTheTextIsNoNumber)
{
    this->box->setRange(1, 50);
    this->bind();
    this->property->setValue(0);
    this->take();
    this->idle();
    this->driver->type("");
    this->driver->press(Qt::Key_Return);
    EXPECT_EQ(this->settled(), "1");
    this->driver->type("");
    this->clickElsewhere();
    EXPECT_EQ(this->property->value(), 0);
    EXPECT_THAT(this->take(), IsEmpty());
}

TYPED_TEST(IntegralSpinBoxBinding, RestoresTheValueForATextOutsideItsRange)
{
    this->box->setRange(10, 50);
    this->property->setValue(20);
    this->bind();
    for (char const* const text : {"5", "", "-", "51", "999"}) {
        this->driver->type(text);
        EXPECT_EQ(this->driver->text(), text) << "no key is swallowed";
        this->driver->press(Qt::Key_Return);
        EXPECT_EQ(this->settled(), "20") << text;
    }
    EXPECT_THAT(this->take(), IsEmpty());
}

TYPED_TEST(IntegralSpinBoxBinding, StoresNothingForATextWithAWrongCharacter)
{
    this->box->setRange(-2000, 2000);
    this->bind();
    for (char const* const text : {"1,5", "1,000", "2*3", "1.5", "1 5", "1e3", "3x", "0x10"}) {
        for (Qt::Key const end : {Qt::Key_Return, Qt::Key_Tab}) {
            this->driver->type(text);
            EXPECT_EQ(this->driver->text(), text) << "no key is swallowed";
            this->driver->press(end);
            EXPECT_EQ(this->settled(), "5") << text;
        }
    }
    EXPECT_THAT(this->take(), IsEmpty());
    EXPECT_THAT(this->messages.take(), IsEmpty());
}

TYPED_TEST(IntegralSpinBoxBinding, TakesANumberThatIsPastedWithBlanksAround)
{
    this->bind();
    QApplication::clipboard()->setText(QStringLiteral(" \u202f12\ufeff\n"));
    this->box->setFocus();
    this->box->selectAll();
    this->driver->press(Qt::Key_V, Qt::ControlModifier);
    this->driver->press(Qt::Key_Return);
    EXPECT_THAT(this->take(), ElementsAre(12));
    this->driver->type("+7");
    this->driver->press(Qt::Key_Return);
    EXPECT_THAT(this->take(), ElementsAre(7));
}

TYPED_TEST(IntegralSpinBoxBinding, KeepsTheRangeThatQtGivesABoxWithoutLimits)
{
    this->bind();
    EXPECT_EQ(this->range(), std::make_pair(0, 99));
    this->box->setFocus();
    this->driver->press(Qt::Key_PageDown);
    EXPECT_EQ(this->property->value(), 0);
}

TYPED_TEST(IntegralSpinBoxBinding, TakesItsRangeFromTheLimitsOfTheProperty)
{
    this->bindLimited(0, 16);
    EXPECT_EQ(this->range(), std::make_pair(0, 16));
    this->driver->type("99");
    this->driver->press(Qt::Key_Return);
    EXPECT_EQ(this->property->value(), 5);
    EXPECT_THAT(this->messages.take(), IsEmpty());
    this->limits->resetMinMaxValue(2, 8);
    this->property->setValue(6);
    this->idle();
    EXPECT_EQ(this->range(), std::make_pair(2, 8));
}

TYPED_TEST(IntegralSpinBoxBinding, LeavesOutLimitsThatDoNotBelongToTheRange)
{
    using Validator = BoundedValueValidator<TypeParam>;
    this->bindLimited(0, 16, Validator::LowerExclusive, Validator::UpperExclusive);
    EXPECT_EQ(this->range(), std::make_pair(1, 15));
}

TYPED_TEST(IntegralSpinBoxBinding, KeepsItsRangeWhereTheLimitIsNotLookedAt)
{
    using Validator = BoundedValueValidator<TypeParam>;
    this->bindLimited(2, 16, Validator::LowerUnchecked, Validator::UpperInclusive);
    EXPECT_EQ(this->range(), std::make_pair(0, 16));
    this->bindLimited(2, 3, Validator::LowerInclusive, Validator::UpperUnchecked);
    EXPECT_EQ(this->range(), std::make_pair(2, 16));
}

TYPED_TEST(IntegralSpinBoxBinding, CutsWideLimitsToWhatABoxCanHold)
{
    using Limits = std::numeric_limits<TypeParam>;
    using Validator = BoundedValueValidator<TypeParam>;
    this->bindLimited(Limits::min(), Limits::max());
    EXPECT_EQ(this->range(), std::make_pair(INT_MIN, INT_MAX));
    this->bindLimited(Limits::min(), Limits::max(), Validator::LowerExclusive, Validator::UpperExclusive);
    constexpr int cut = std::is_same_v<TypeParam, int>;
    EXPECT_EQ(this->range(), std::make_pair(INT_MIN + cut, INT_MAX - cut));
}

TYPED_TEST(IntegralSpinBoxBinding, TellsARefusalAndRestoresTheValue)
{
    class Even : public virtual ValidatorInterface<TypeParam>
    {
    public:
        ValidationResult validate(TypeParam const& value) const override
        {
            ValidationResult result;
            if (value % 2 != 0)
                result.setErrorString("Even numbers only.");
            return result;
        }
    };
    this->property = boost::make_shared<Property<TypeParam>>(TypeParam(4), boost::make_shared<Even>());
    this->bind();
    this->driver->type("7");
    this->clickElsewhere();
    EXPECT_THAT(this->messages.take(), ElementsAre("error: Even numbers only."));
    EXPECT_EQ(this->driver->text(), "4");
    EXPECT_TRUE(this->box->hasFocus());
    this->driver->clickUp();
    EXPECT_THAT(this->messages.take(), ElementsAre("error: Even numbers only."));
    EXPECT_EQ(this->settled(), "4");
    EXPECT_THAT(this->take(), IsEmpty());
}

/// Answers what it was given.
class Fixed : public SpinBoxIncDecCalculatorBase
{
public:
    explicit Fixed(double answer)
        : m_answer(answer)
    {
    }
    double increment(double) override { return m_answer; }
    double decrement(double) override { return m_answer; }

private:
    double m_answer;
};

TYPED_TEST(IntegralSpinBoxBinding, TakesTheWholeNumberNextToTheCalculatorsAnswer)
{
    this->bind(boost::make_shared<Fixed>(7.9999));
    this->driver->clickUp();
    EXPECT_EQ(this->property->value(), 8);
}

TYPED_TEST(IntegralSpinBoxBinding, StandsAnswersThatNoWholeNumberCanBe)
{
    for (double const answer : {std::nan(""), HUGE_VAL, -HUGE_VAL, DBL_MAX, -DBL_MAX}) {
        this->property->setValue(5);
        this->bind(boost::make_shared<Fixed>(answer));
        this->driver->clickUp();
        EXPECT_EQ(this->property->value(), std::isnan(answer) ? 5 : answer > 0 ? 99 : 0) << answer;
    }
}

using SpinBoxLgIndexPropertyBindingTest = IntegralSpinBoxBinding<long long>;

TEST_F(SpinBoxLgIndexPropertyBindingTest, KeepsAnIndexThatNoBoxCanHold)
{
    box->setRange(1, 2147483646);
    bind();
    for (long long const index : {5000000000LL, LLONG_MAX, LLONG_MIN}) {
        property->setValue(index);
        take();
        EXPECT_EQ(settled(), index > 0 ? "2147483646" : "1");
        box->setFocus();
        driver->press(Qt::Key_Return);
        clickElsewhere();
        EXPECT_THAT(take(), IsEmpty());
        EXPECT_EQ(property->value(), index);
    }
}

/// The number of parts of a circle, kept as the angle of one.
boost::shared_ptr<PropertyAbstract<int>> partsOfCircle(boost::shared_ptr<PropertyAbstract<double>> const& angle)
{
    auto const parts = [](double degrees) {
        return degrees == 0.0 ? 1 : static_cast<int>(360.0 / std::fabs(degrees) * (1.0 + 4.0 * DBL_EPSILON));
    };
    return boost::make_shared<PropertyTypeAdapter<int, double>>(angle, parts, [](int n) { return 360.0 / n; });
}

using SpinBoxIntPropertyBindingTest = IntegralSpinBoxBinding<int>;

TEST_F(SpinBoxIntPropertyBindingTest, LeavesAnAngleAloneWhoseNumberOfPartsItOnlyShows)
{
    auto const angle = boost::make_shared<Property<double>>(7.0);
    box->setRange(1, 999999999);
    property = partsOfCircle(angle);
    bind();
    EXPECT_EQ(driver->text(), "51");
    box->setFocus();
    driver->press(Qt::Key_Return);
    clickElsewhere();
    EXPECT_EQ(angle->value(), 7.0);
    angle->setValue(720.0);
    EXPECT_EQ(settled(), "1");
    box->setFocus();
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(angle->value(), 720.0);
}

TEST_F(SpinBoxIntPropertyBindingTest, StepsTheNumberOfPartsThroughEveryNumber)
{
    auto const angle = boost::make_shared<Property<double>>(3.0);
    box->setRange(1, 999999999);
    property = partsOfCircle(angle);
    bind();
    for (int parts = 121; parts < 400; ++parts) {
        driver->clickUp();
        ASSERT_EQ(property->value(), parts);
        idle();
    }
    driver->type("169");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(settled(), "169");
}

} // namespace
} // namespace veldraw::tests
