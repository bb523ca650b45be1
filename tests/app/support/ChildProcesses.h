#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace veldraw::tests {

/// A process that this one has started.
struct ChildProcess
{
    pid_t number = 0;
    std::string name;
    bool hasEnded = false; ///< though nobody has asked yet how
};

inline std::vector<ChildProcess> childProcesses()
{
    std::vector<ChildProcess> result;
    for (auto const& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream file(entry.path() / "stat");
        ChildProcess process;
        char state = ' ';
        pid_t parent = 0;
        if (!(file >> process.number >> process.name >> state >> parent) || parent != ::getpid())
            continue;
        process.name = process.name.substr(1, process.name.size() - 2);
        process.hasEnded = state == 'Z';
        result.push_back(process);
    }
    return result;
}

/// Numbers of those of one name that run.
inline std::vector<pid_t> runningChildren(std::string const& name)
{
    std::vector<pid_t> result;
    for (ChildProcess const& process : childProcesses()) {
        if (process.name == name && !process.hasEnded)
            result.push_back(process.number);
    }
    return result;
}

/// Waits until something is so, such as that a process that was ended is gone. @return false when it is not after a minute
template <typename Condition>
bool comesTrue(Condition const& condition)
{
    for (int left = 6000; left > 0 && !condition(); --left)
        ::usleep(10000);
    return condition();
}

/// Waits until none of one name is there any more.
inline bool haveEnded(std::string const& name)
{
    return comesTrue([&name] {
        auto const all = childProcesses();
        return std::none_of(all.begin(), all.end(), [&name](ChildProcess const& one) { return one.name == name; });
    });
}

} // namespace veldraw::tests
