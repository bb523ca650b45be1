#pragma once

#include <ctime>
#include <string>
#include <sys/types.h>
#include <vector>

namespace veldraw::app {

/// Notices when a file is changed by somebody else while it is being read.
class FileWatch
{
public:
    /// Notes the present size and modification time. @throws ImportError when the file cannot be looked at
    void add(std::string const& path);

    /// Compares all files with what was noted. @throws ImportError naming the first one that differs
    void check() const;

private:
    struct State
    {
        off_t size = 0;
        timespec modified{};
        ino_t inode = 0;
    };

    static State stateOf(std::string const& path);

    std::vector<std::pair<std::string, State>> m_files;
};

} // namespace veldraw::app
