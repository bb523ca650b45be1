#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// A temporary file without a name for values that are to be mapped. Its room on the disk goes with the last holder of the
/// mapping, also when the program is ended from outside.
///
/// It stands in the folder that TMPDIR names, else in /var/tmp: /tmp may be a piece of memory.
class ScratchFile
{
public:
    /// Reserves all the room at once. @param bytes 1 or more @throws ImportError when there is not as much
    explicit ScratchFile(std::int64_t bytes);
    ~ScratchFile();

    /// @throws ImportError
    void write(std::int64_t position, std::vector<char> const& bytes) const;

    /// Maps all of it privately. @throws ImportError
    std::shared_ptr<void> map() const;

    ScratchFile(ScratchFile const&) = delete;
    ScratchFile& operator=(ScratchFile const&) = delete;

private:
    [[noreturn]] void fail(int error) const;

    std::string m_folder;
    std::int64_t m_bytes;
    int m_descriptor = -1;
};

} // namespace veldraw::app
