#include "kernel/storage/ValueType.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace veldraw::kernel {

bool isOfWholeNumbers(FieldDataType_e type)
{
    return type != FieldDataType_Float && type != FieldDataType_Double;
}

double leastOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return std::numeric_limits<float>::lowest();
    case FieldDataType_Int32:
        return std::numeric_limits<std::int32_t>::lowest();
    case FieldDataType_Int16:
        return std::numeric_limits<std::int16_t>::lowest();
    case FieldDataType_Byte:
    case FieldDataType_Bit:
        return 0.0;
    case FieldDataType_Double:
        break;
    }
    return std::numeric_limits<double>::lowest();
}

double largestOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return std::numeric_limits<float>::max();
    case FieldDataType_Int32:
        return std::numeric_limits<std::int32_t>::max();
    case FieldDataType_Int16:
        return std::numeric_limits<std::int16_t>::max();
    case FieldDataType_Byte:
        return std::numeric_limits<std::uint8_t>::max();
    case FieldDataType_Bit:
        return 1.0;
    case FieldDataType_Double:
        break;
    }
    return std::numeric_limits<double>::max();
}

FieldDataType_e commonType(FieldDataType_e a, FieldDataType_e b)
{
    constexpr std::array<FieldDataType_e, 6> byWidth{FieldDataType_Bit,   FieldDataType_Byte,  FieldDataType_Int16,
                                                     FieldDataType_Int32, FieldDataType_Float, FieldDataType_Double};
    auto const widthOf = [&](FieldDataType_e type) { return std::find(byWidth.begin(), byWidth.end(), type); };
    FieldDataType_e const narrow = widthOf(a) < widthOf(b) ? a : b;
    FieldDataType_e const wide = widthOf(a) < widthOf(b) ? b : a;
    return narrow == FieldDataType_Int32 && wide == FieldDataType_Float ? FieldDataType_Double : wide;
}

} // namespace veldraw::kernel
