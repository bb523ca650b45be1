#pragma once

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <spawn.h>

namespace veldraw::tests {

/// Programs that this one starts: how many, and whether the system has room for one more.
class StartFailure
{
public:
    /// While it exists, the next @p times starts fail for lack of room for a process.
    explicit StartFailure(int times) { left() = times; }
    ~StartFailure() { left() = 0; }

    /// Programs that have been started by now.
    static std::atomic<int>& started()
    {
        static std::atomic<int> count{0};
        return count;
    }

    static std::atomic<int>& left()
    {
        static std::atomic<int> count{0};
        return count;
    }

    StartFailure(StartFailure const&) = delete;
    StartFailure& operator=(StartFailure const&) = delete;
};

} // namespace veldraw::tests

/// Stands in front of the system's function of this name.
extern "C" int posix_spawn(pid_t* process, char const* path, posix_spawn_file_actions_t const* actions,
                           posix_spawnattr_t const* attributes, char* const* words, char* const* environment) noexcept
{
    using veldraw::tests::StartFailure;
    if (StartFailure::left() > 0) {
        --StartFailure::left();
        return EAGAIN;
    }
    static auto const ofSystem = reinterpret_cast<decltype(&posix_spawn)>(dlsym(RTLD_NEXT, "posix_spawn"));
    int const error = ofSystem(process, path, actions, attributes, words, environment);
    StartFailure::started() += error == 0 ? 1 : 0;
    return error;
}
