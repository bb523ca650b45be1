#pragma once

// What the mutants of a source file are written with: each has a number, and one number at most is in force in a run.
// Numbers come from the environment, see Runtime.cpp.

#define VELDRAW_MUTATION_API __attribute__((visibility("default")))

extern VELDRAW_MUTATION_API int veldrawMutationInForce;
extern VELDRAW_MUTATION_API bool veldrawMutationsAreNoted;
VELDRAW_MUTATION_API void veldrawNoteMutation(int number);

namespace veldrawMutation {

inline bool is(int number)
{
    if (veldrawMutationsAreNoted)
        veldrawNoteMutation(number);
    return veldrawMutationInForce == number;
}

inline bool flip(int number, bool answer)
{
    return is(number) != answer;
}

template <typename T>
T value(int number, T mutated, T original)
{
    return is(number) ? mutated : original;
}

template <typename T>
T offByOne(int number, T original)
{
    return is(number) ? static_cast<T>(original + 1) : original;
}

template <typename T>
auto negated(int number, T const& original)
{
    return is(number) ? original : -original;
}

template <typename L, typename R>
bool less(int number, L const& left, R const& right)
{
    return is(number) ? left <= right : left < right;
}

template <typename L, typename R>
bool lessEqual(int number, L const& left, R const& right)
{
    return is(number) ? left < right : left <= right;
}

template <typename L, typename R>
bool greater(int number, L const& left, R const& right)
{
    return is(number) ? left >= right : left > right;
}

template <typename L, typename R>
bool greaterEqual(int number, L const& left, R const& right)
{
    return is(number) ? left > right : left >= right;
}

template <typename L, typename R>
auto plus(int number, L const& left, R const& right)
{
    return is(number) ? left - right : left + right;
}

template <typename L, typename R>
auto minus(int number, L const& left, R const& right)
{
    return is(number) ? left + right : left - right;
}

template <typename L, typename R>
auto times(int number, L const& left, R const& right)
{
    return is(number) ? left / right : left * right;
}

template <typename L, typename R>
auto dividedBy(int number, L const& left, R const& right)
{
    return is(number) ? left * right : left / right;
}

template <typename L, typename R>
auto remainder(int number, L const& left, R const& right)
{
    return is(number) ? left * right : left % right;
}

template <typename L, typename R>
L& add(int number, L& left, R const& right)
{
    return is(number) ? left -= right : left += right;
}

template <typename L, typename R>
L& subtract(int number, L& left, R const& right)
{
    return is(number) ? left += right : left -= right;
}

template <typename L, typename R>
L& multiply(int number, L& left, R const& right)
{
    return is(number) ? left /= right : left *= right;
}

template <typename L, typename R>
L& divide(int number, L& left, R const& right)
{
    return is(number) ? left *= right : left /= right;
}

} // namespace veldrawMutation
