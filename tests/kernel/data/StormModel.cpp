#include "tests/kernel/data/StormModel.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace veldraw::tests {

namespace storm {

namespace {

template <typename Pattern, typename Number>
Bits patternOf(Number number)
{
    Pattern pattern = 0;
    static_assert(sizeof pattern == sizeof number, "the same memory");
    std::memcpy(&pattern, &number, sizeof number);
    return pattern;
}

template <typename Number, typename Pattern>
double numberFrom(Pattern pattern)
{
    Number number = 0;
    static_assert(sizeof pattern == sizeof number, "the same memory");
    std::memcpy(&number, &pattern, sizeof number);
    return static_cast<double>(number);
}

long long nearestWithin(double value, long long lowest, long long highest)
{
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= static_cast<double>(lowest)) {
        return lowest;
    }
    return value >= static_cast<double>(highest) ? highest : std::llround(value);
}

} // namespace

Bits storedBits(FieldDataType_e type, double value)
{
    switch (type) {
    case FieldDataType_Float:
        return patternOf<std::uint32_t>(static_cast<float>(value));
    case FieldDataType_Double:
        return patternOf<std::uint64_t>(value);
    case FieldDataType_Int32:
        return patternOf<std::uint32_t>(static_cast<std::int32_t>(nearestWithin(value, -2147483648LL, 2147483647LL)));
    case FieldDataType_Int16:
        return patternOf<std::uint16_t>(static_cast<std::int16_t>(nearestWithin(value, -32768, 32767)));
    case FieldDataType_Byte:
        return static_cast<Bits>(nearestWithin(value, 0, 255));
    case FieldDataType_Bit:
        return !std::isnan(value) && value != 0.0 ? 1 : 0;
    }
    return 0;
}

bool isWithinLimits(FieldDataType_e type, double value)
{
    switch (type) {
    case FieldDataType_Float:
        return !(std::fabs(value) >= std::ldexp(33554431.0, 103)) ||
               std::isinf(value); // half way to the next power of 2
    case FieldDataType_Double:
        return true;
    case FieldDataType_Int32:
        return value > -2147483648.5 && value < 2147483647.5;
    case FieldDataType_Int16:
        return value > -32768.5 && value < 32767.5;
    case FieldDataType_Byte:
        return value > -0.5 && value < 255.5;
    case FieldDataType_Bit:
        return value >= 0.0 && value <= 1.0;
    }
    return false;
}

double numberOf(FieldDataType_e type, Bits bits)
{
    switch (type) {
    case FieldDataType_Float:
        return numberFrom<float>(static_cast<std::uint32_t>(bits));
    case FieldDataType_Double:
        return numberFrom<double>(bits);
    case FieldDataType_Int32:
        return numberFrom<std::int32_t>(static_cast<std::uint32_t>(bits));
    case FieldDataType_Int16:
        return numberFrom<std::int16_t>(static_cast<std::uint16_t>(bits));
    case FieldDataType_Byte:
    case FieldDataType_Bit:
        return static_cast<double>(bits);
    }
    return 0.0;
}

bool isUsed(ValueLocation_e location, std::int64_t slot)
{
    return location == ValueLocation_Nodal || (slot % iPoints < iPoints - 1 && slot / iPoints < jPoints - 1);
}

std::optional<std::pair<double, double>> Storage::range() const
{
    std::optional<std::pair<double, double>> range;
    for (std::int64_t slot = 0; slot < slots; ++slot) {
        double const number = numberOf(type, values.at(static_cast<std::size_t>(slot)));
        if (isUsed(location, slot) && std::isfinite(number)) {
            range = range ? std::pair(std::min(range->first, number), std::max(range->second, number))
                          : std::pair(number, number);
        }
    }
    return range;
}

int State::users(int storage) const
{
    int count = 0;
    for (auto const& zone : zones) {
        count += static_cast<int>(std::count(zone.begin(), zone.end(), storage));
    }
    return count;
}

} // namespace storm

} // namespace veldraw::tests
