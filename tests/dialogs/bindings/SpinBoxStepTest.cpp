#include "dialogs/bindings/SpinBoxStep.h"

#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::SpinBoxStep;

/// Where one step down from 1 leads that ends so many times the precision of 1 below 0.75, exactly.
double stepTo(double precisionsBelow)
{
    double const end = 0.75 - precisionsBelow * DBL_EPSILON;
    return SpinBoxStep{nullptr, 1.0 - end, 1, false}.from(1.0);
}

TEST(SpinBoxStepTest, TakesUpToTwiceThePrecisionOfTheLargerNumberForARoundingError)
{
    EXPECT_EQ(stepTo(1.0), 0.75);
    EXPECT_EQ(stepTo(2.0), 0.75);
    EXPECT_EQ(stepTo(2.5), 0.75 - 2.5 * DBL_EPSILON) << "what a step leads to is kept";
}

} // namespace
} // namespace veldraw::tests
