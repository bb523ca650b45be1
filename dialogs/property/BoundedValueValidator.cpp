#include "dialogs/property/BoundedValueValidator.h"

#include <locale>
#include <sstream>

namespace veldraw {

template <typename T>
BoundedValueValidator<T>::BoundedValueValidator(T min, T max, LowerBound lower, UpperBound upper)
    : m_min(min)
    , m_max(max)
    , m_lower(lower)
    , m_upper(upper)
{
}

template <typename T>
void BoundedValueValidator<T>::resetMinMaxValue(T min, T max)
{
    m_min = min;
    m_max = max;
}

template <typename T>
T BoundedValueValidator<T>::minValue() const
{
    return m_min;
}

template <typename T>
T BoundedValueValidator<T>::maxValue() const
{
    return m_max;
}

template <typename T>
ValidationResult BoundedValueValidator<T>::validate(T const& value) const
{
    ValidationResult result;
    if (!passesLowerBound(value) || !passesUpperBound(value))
        result.setErrorString(refusal());
    return result;
}

// Both tests ask for what fails, so that not a number passes.
template <typename T>
bool BoundedValueValidator<T>::passesLowerBound(T const& value) const
{
    if (m_lower == LowerInclusive)
        return !(value < m_min);
    if (m_lower == LowerExclusive)
        return !(value <= m_min);
    return true;
}

template <typename T>
bool BoundedValueValidator<T>::passesUpperBound(T const& value) const
{
    if (m_upper == UpperInclusive)
        return !(value > m_max);
    if (m_upper == UpperExclusive)
        return !(value >= m_max);
    return true;
}

template <typename T>
std::string BoundedValueValidator<T>::refusal() const
{
    std::ostringstream text;
    text.imbue(std::locale::classic()); // as it is typed
    text << "The value must be greater than " << (m_lower == LowerInclusive ? "or equal to " : "") << m_min
         << " and less than " << (m_upper == UpperInclusive ? "or equal to " : "") << m_max << ".";
    return text.str();
}

#define VELDRAW_DEFINE(T) template class BoundedValueValidator<T>;
VELDRAW_FOR_EACH_BOUNDED_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw
