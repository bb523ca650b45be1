#include "dialogs/bindings/SpinBoxStep.h"

#include <QByteArray>

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace veldraw::sdk::ui::dialogs::propertybindings {

namespace {

constexpr int meantDigits = 12;
constexpr double noiseOfASum = 2.0 * DBL_EPSILON;

double withoutNoise(double sum, double before)
{
    double const meant = QByteArray::number(sum, 'g', meantDigits).toDouble();
    double const largest = std::max(std::fabs(sum), std::fabs(before));
    return std::fabs(meant - sum) <= noiseOfASum * largest ? meant : sum;
}

} // namespace

double SpinBoxStep::from(double value) const
{
    for (int step = 0; step < count && std::isfinite(value); ++step)
        value = withoutNoise(once(value), value);
    return value;
}

double SpinBoxStep::once(double value) const
{
    if (calculator)
        return isUp ? calculator->increment(value) : calculator->decrement(value);
    return isUp ? value + singleStep : value - singleStep;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
