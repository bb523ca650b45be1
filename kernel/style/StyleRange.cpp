#include "kernel/style/StyleRange.h"

#include "kernel/base/Text.h"

#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr double twoToThe63 = 9223372036854775808.0;

long long cutOff(double real)
{
    if (std::isnan(real)) {
        return 0;
    }
    if (real >= twoToThe63) {
        return std::numeric_limits<long long>::max();
    }
    if (real < -twoToThe63) {
        return std::numeric_limits<long long>::min();
    }
    return static_cast<long long>(real);
}

} // namespace

StyleNumber StyleNumber::ofWhole(long long whole)
{
    return {whole, static_cast<double>(whole)};
}

StyleNumber StyleNumber::ofReal(double real)
{
    return {cutOff(real), real};
}

bool StyleNumber::isWhole() const
{
    return static_cast<double>(whole) == real;
}

StyleRange::StyleRange(Type type, StyleNumber min, bool includesMin, StyleNumber max)
    : m_type(type)
    , m_min(min)
    , m_includesMin(includesMin)
    , m_max(max)
{
}

StyleRange StyleRange::whole(long long min, long long max)
{
    return {Type::Whole, StyleNumber::ofWhole(min), true, StyleNumber::ofWhole(max)};
}

StyleRange StyleRange::onOff()
{
    return whole(0, 1);
}

StyleRange StyleRange::from(double min, double max)
{
    return {Type::Real, StyleNumber::ofReal(min), true, StyleNumber::ofReal(max)};
}

StyleRange StyleRange::above(double min, double max)
{
    return {Type::Real, StyleNumber::ofReal(min), false, StyleNumber::ofReal(max)};
}

bool StyleRange::contains(StyleNumber const& number) const
{
    if (m_type == Type::Whole) {
        return number.isWhole() && number.whole >= m_min.whole && number.whole <= m_max.whole;
    }
    bool const passesMin = m_includesMin ? number.real >= m_min.real : number.real > m_min.real;
    return std::isfinite(number.real) && passesMin && number.real <= m_max.real;
}

bool StyleRange::areEqual(StyleNumber const& left, StyleNumber const& right) const
{
    return m_type == Type::Whole ? left.whole == right.whole : left.real == right.real;
}

std::string StyleRange::text() const
{
    return m_type == Type::Whole ? wholeText() : realText();
}

std::string StyleRange::wholeText() const
{
    return "a whole number from " + std::to_string(m_min.whole) + " to " + std::to_string(m_max.whole);
}

std::string StyleRange::realText() const
{
    std::string text = "a number greater than ";
    if (m_includesMin) {
        text += "or equal to ";
    }
    text += textOf(m_min.real);
    if (std::isfinite(m_max.real)) {
        text += " and less than or equal to " + textOf(m_max.real);
    }
    return text;
}

std::string StyleRange::textOfNumber(StyleNumber const& number) const
{
    return m_type == Type::Whole && number.isWhole() ? std::to_string(number.whole) : textOf(number.real);
}

} // namespace veldraw::kernel
