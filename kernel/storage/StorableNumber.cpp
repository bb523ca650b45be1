#include "kernel/storage/StorableNumber.h"

#include "kernel/base/Text.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace veldraw::kernel {

namespace {

struct Span
{
    char const* kind; ///< what the numbers are called; null when every number can be stored
    double min;
    double max;
};

template <typename Number>
Span spanOf(char const* kind)
{
    using Limits = std::numeric_limits<Number>;
    return {kind, static_cast<double>(Limits::lowest()), static_cast<double>(Limits::max())};
}

Span spanOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return spanOf<float>("single-precision numbers");
    case FieldDataType_Int32:
        return spanOf<std::int32_t>("whole numbers");
    case FieldDataType_Int16:
        return spanOf<std::int16_t>("whole numbers");
    case FieldDataType_Byte:
        return spanOf<std::uint8_t>("whole numbers");
    case FieldDataType_Bit:
        return {"whole numbers", 0.0, 1.0};
    case FieldDataType_Double:
        break;
    }
    return {nullptr, 0.0, 0.0};
}

bool fits(double value, FieldDataType_e type, Span const& span)
{
    if (type == FieldDataType_Float) {
        return !std::isfinite(value) || std::isfinite(static_cast<float>(value));
    }
    double const stored = type == FieldDataType_Bit ? value : std::round(value); // any part of 1 is a bit that is set
    return stored >= span.min && stored <= span.max;
}

} // namespace

std::string reasonAgainstStoring(double value, FieldDataType_e type)
{
    Span const span = spanOf(type);
    if (span.kind == nullptr || fits(value, type, span)) {
        return {};
    }
    bool const isSingle = type == FieldDataType_Float;
    auto const limit = [isSingle](double number) {
        return isSingle ? textOf(static_cast<float>(number)) : std::to_string(static_cast<long long>(number));
    };
    return "The value " + textOf(value) + " cannot be stored: the variable has " + span.kind + " from " +
           limit(span.min) + " to " + limit(span.max) + ".";
}

} // namespace veldraw::kernel
