#pragma once

#include <string>

namespace veldraw::kernel {

/// A number as style writes and reads carry it: as a whole number and with a fraction, side by side. Whole values look
/// at the first and stay exact beyond 2^53, the others look at the second.
struct StyleNumber
{
    static StyleNumber ofWhole(long long whole);

    /// The whole part is cut off towards zero, and 0 for not a number.
    static StyleNumber ofReal(double real);

    /// False when the two sides tell different numbers, for instance 2 and 2.5.
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

    /// What fits, to be read after "must be", for instance "a number greater than 0 and less than or equal to 10".
    std::string text() const;

    /// @p number as this type sees it.
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
