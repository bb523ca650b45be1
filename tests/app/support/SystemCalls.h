#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace veldraw::tests {

/// What happens to the calls by which a program changes files or looks at them. A program that links SystemCalls.cpp makes all of these
/// calls through it, those of its libraries too.
struct Disturbance
{
    enum class Kind
    {
        None,
        KillBefore,  ///< the process is killed at the call; calls that only look do not count
        KillHalfway, ///< it is killed when half of what is to be written is; other calls do not count
        FailOnce,    ///< the call fails, and all others succeed
        FailFromThen ///< the call and all later ones fail
    };

    Kind kind = Kind::None;
    int call = 0;           ///< one-based
    int error = 0;          ///< what errno is then; 0 for what is usual for the call
    std::int64_t room = -1; ///< on the disk, in bytes; -1 for any
};

/// Begins to count and to disturb, in this process.
void disturbCalls(Disturbance const& disturbance);

/// Does something once, before the next call of that name goes on; without disturbCalls() too.
void doBefore(std::string const& call, std::function<void()> const& work);

/// Ends that. @return how many calls there were
int endOfDisturbance();

/// Whether the call that was to be disturbed has come.
bool wasDisturbed();

/// Name of the call that was disturbed.
std::string disturbedCall();

/// The calls since disturbCalls() that change files: name and path, as "rename a b".
std::vector<std::string> const& changingCalls();

} // namespace veldraw::tests
