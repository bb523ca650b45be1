#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <functional>
#include <string>
#include <vector>

namespace veldraw::tests {

/// Watches the kernel's C functions and makes them fail on request.
///
/// A test program that links the spy has every VelUtil function interposed by name: each call is recorded with its arguments
/// and forwarded to the real kernel, unless the spy was told to let it fail in that function's own way (false, 0, null, a
/// refusal). Recording starts with the object and ends with it; there is one at a time.
///
///     KernelSpy spy;
///     spy.failNext("VelUtilDataSetDeleteVar");
///     ...
///     EXPECT_THAT(spy.callsOf("VelUtilDataSetDeleteVar"), ElementsAre("VelUtilDataSetDeleteVar({2, 3})"));
class KernelSpy
{
public:
    KernelSpy();
    ~KernelSpy();

    /// All calls so far as text, "VelUtilZoneGetType(1)"; sets as "{1, 2}", arrays as "(1, 2, 3)",
    /// texts in quotes, argument lists as "list" (what was appended to them stands before), pointers to answers as "out".
    std::vector<std::string> calls() const;
    std::vector<std::string> callsOf(std::string const& function) const;
    int count(std::string const& function) const;
    int count() const;

    /// Lets the n-th call from now of @p function fail, once; @p n counts from 1.
    void failNext(std::string const& function, int n = 1);

    /// Lets the n-th call from now of any kernel function fail, once, or that one and all later calls.
    void failCall(int n);
    void failFrom(int n);

    /// Has every call told to @p listener before it is forwarded or fails. What the listener throws the caller gets instead of an
    /// answer.
    void onCall(std::function<void(std::string const& function)> listener);

    /// Forgets calls, failures and the listener.
    void reset();

    KernelSpy(KernelSpy const&) = delete;
    KernelSpy& operator=(KernelSpy const&) = delete;

    // ---- for the interposed functions ------------------------------------------------------------------------------
    /// Whether there is a spy; without one calls go through untouched.
    static bool isWatching();

    /// Notes a call, while there is a spy. @return true when it is to fail
    static bool noteCall(char const* function, std::vector<std::string> const& arguments);

    /// Address of the kernel's own function. Ends the program when there is none.
    static void* realFunction(char const* function);

    static std::string describe(bool value);
    static std::string describe(char value);
    static std::string describe(int value);
    static std::string describe(long long value);
    static std::string describe(double value);
    static std::string describe(char const* text);
    static std::string describe(Set_s const* set);
    static std::string describe(ArgList_s const* list);
    static std::string describe(int const* values, int count);
    static std::string describe(double const* values, int count);
};

} // namespace veldraw::tests
