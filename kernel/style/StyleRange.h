#pragma once

#include <string>

namespace veldraw::kernel {

/// A number in style writes and reads: the same number as an integer and as a double. Values of whole type use the integer,
/// which is exact beyond 2^53; the others use the double.
struct StyleNumber
{
    static StyleNumber ofWhole(long long whole);

    /// The integer is the number rounded towards zero; 0 for NaN.
    static StyleNumber ofReal(double real);

    /// Whether both members are the same number; false for 2 and 2.5.
    bool isWhole() const;

    long long whole = 0;
    double real = 0.0;
};

/// Type and limits of a style value.
class StyleRange
{
public:
    /// Whole numbers, both limits included.
    static StyleRange whole(long long min, long long max);

    /// Off and on, as 0 and 1.
    static StyleRange onOff();

    /// Finite numbers, both limits included; an infinite @p max is no limit.
    static StyleRange from(double min, double max);

    /// Finite numbers above @p min, which is not included, up to @p max, which is.
    static StyleRange above(double min, double max);

    bool contains(StyleNumber const& number) const;

    /// Whether two numbers are the same value of this type.
    bool areEqual(StyleNumber const& left, StyleNumber const& right) const;

    /// The allowed numbers, to be read after "must be", for instance "a number greater than 0 and less than or equal to 10".
    std::string text() const;

    /// Text of @p number by the type of this range.
    std::string textOfNumber(StyleNumber const& number) const;

private:
    enum class Type
    {
        Whole,
        Real
    };

    StyleRange(Type type, StyleNumber min, bool includesMin, StyleNumber max);
    std::string wholeText() const;
    std::string realText() const;

    Type m_type;
    StyleNumber m_min;
    bool m_includesMin;
    StyleNumber m_max;
};

} // namespace veldraw::kernel
