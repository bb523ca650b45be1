#include "dialogs/property/BoundedValueValidator.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <string>

namespace veldraw::tests {
namespace {

using IntBounds = BoundedValueValidator<int>;
using DoubleBounds = BoundedValueValidator<double>;
using LongBounds = BoundedValueValidator<long long>;

template <typename T>
std::string refusal(BoundedValueValidator<T> const& bounds, T value)
{
    ValidationResult const result = bounds.validate(value);
    return result.isValid() ? "valid" : result.errorString();
}

TEST(BoundedValueValidator, IncludesOrExcludesItsLimitsByKind)
{
    IntBounds const bounds(0, 10, IntBounds::LowerExclusive, IntBounds::UpperInclusive);
    EXPECT_EQ(refusal(bounds, 0), "The value must be greater than 0 and less than or equal to 10.");
    EXPECT_EQ(refusal(bounds, 1), "valid");
    EXPECT_EQ(refusal(bounds, 10), "valid");
    EXPECT_EQ(refusal(bounds, 11), "The value must be greater than 0 and less than or equal to 10.");

    IntBounds const opposite(0, 10, IntBounds::LowerInclusive, IntBounds::UpperExclusive);
    EXPECT_EQ(refusal(opposite, 0), "valid");
    EXPECT_EQ(refusal(opposite, -1), "The value must be greater than or equal to 0 and less than 10.");
    EXPECT_EQ(refusal(opposite, 10), "The value must be greater than or equal to 0 and less than 10.");
}

TEST(BoundedValueValidator, DoesNotLookAtASideThatIsSwitchedOffButNamesIt)
{
    IntBounds const onlyUpper(0, 10, IntBounds::LowerUnchecked, IntBounds::UpperInclusive);
    EXPECT_EQ(refusal(onlyUpper, -1000), "valid");
    EXPECT_EQ(refusal(onlyUpper, 11), "The value must be greater than 0 and less than or equal to 10.");
    IntBounds const onlyLower(0, 10, IntBounds::LowerInclusive, IntBounds::UpperUnchecked);
    EXPECT_EQ(refusal(onlyLower, 1000), "valid");
    EXPECT_EQ(refusal(onlyLower, -1), "The value must be greater than or equal to 0 and less than 10.");
    auto const other = static_cast<IntBounds::UpperBound>(3);
    EXPECT_EQ(refusal(IntBounds(0, 10, IntBounds::LowerInclusive, other), 1000), "valid");
}

TEST(BoundedValueValidator, HasTheAgreedNumbersForItsKinds)
{
    EXPECT_EQ(IntBounds::LowerInclusive, 0);
    EXPECT_EQ(IntBounds::LowerExclusive, 1);
    EXPECT_EQ(IntBounds::UpperInclusive, 0);
    EXPECT_EQ(IntBounds::UpperExclusive, 1);
}

TEST(BoundedValueValidator, UsesNewLimitsFromTheNextQuestionOnAndKeepsTheKinds)
{
    LongBounds bounds(0, 10, LongBounds::LowerExclusive, LongBounds::UpperExclusive);
    bounds.resetMinMaxValue(-5, 4611686018427387903LL);
    EXPECT_EQ(bounds.minValue(), -5);
    EXPECT_EQ(bounds.maxValue(), 4611686018427387903LL);
    EXPECT_EQ(refusal(bounds, 11LL), "valid");
    EXPECT_EQ(refusal(bounds, -5LL), "The value must be greater than -5 and less than 4611686018427387903.");
}

TEST(BoundedValueValidator, TakesLimitsThatExcludeEverythingWithoutComplaint)
{
    IntBounds const bounds(10, 0, IntBounds::LowerInclusive, IntBounds::UpperInclusive);
    EXPECT_EQ(refusal(bounds, 5), "The value must be greater than or equal to 10 and less than or equal to 0.");
}

TEST(BoundedValueValidator, LetsNotANumberPassWithEitherKind)
{
    double const notANumber = std::nan("");
    EXPECT_EQ(refusal(DoubleBounds(0, 1, DoubleBounds::LowerInclusive, DoubleBounds::UpperInclusive), notANumber),
              "valid");
    EXPECT_EQ(refusal(DoubleBounds(0, 1, DoubleBounds::LowerExclusive, DoubleBounds::UpperExclusive), notANumber),
              "valid");
}

TEST(BoundedValueValidator, WritesNumbersWithSixDigits)
{
    DoubleBounds const bounds(std::numeric_limits<float>::min(), 0.123456789, DoubleBounds::LowerInclusive,
                              DoubleBounds::UpperInclusive);
    EXPECT_EQ(refusal(bounds, 1.0),
              "The value must be greater than or equal to 1.17549e-38 and less than or equal to 0.123457.");
}

/// Writes thousands with points between.
class PointsBetweenThousands : public std::numpunct<char>
{
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(BoundedValueValidator, WritesNumbersAlikeInEveryLocale)
{
    std::locale const before = std::locale::global(std::locale(std::locale(), new PointsBetweenThousands));
    std::string const text = refusal(IntBounds(1, 100000, IntBounds::LowerInclusive, IntBounds::UpperInclusive), 0);
    std::locale::global(before);
    EXPECT_EQ(text, "The value must be greater than or equal to 1 and less than or equal to 100000.");
}

TEST(ValidationResult, IsValidUntilItHasAnErrorEvenAnEmptyOne)
{
    ValidationResult result;
    EXPECT_TRUE(result.isValid());
    EXPECT_EQ(result.errorString(), "");
    result.setErrorString("");
    EXPECT_FALSE(result.isValid());
    result.setErrorString("too long");
    EXPECT_EQ(result.errorString(), "too long");
}

} // namespace
} // namespace veldraw::tests
