#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <sys/types.h>
#include <vector>

namespace veldraw::app {

/// A file as it was at some time: its path with what tells whether somebody has changed or replaced it since.
class FileStamp
{
public:
    /// @throws ImportError when the file cannot be looked at
    explicit FileStamp(std::string path);

    std::string const& path() const { return m_path; }
    std::int64_t size() const { return m_size; }

    /// Opens the file for reading. @return a descriptor that the caller closes
    /// @throws ImportError the file is gone or cannot be read, or it is not the one that was noted any more
    int open() const;

    /// @throws ImportError as open() does
    void checkUnchanged() const;

    /// Whether the file is there and as noted.
    bool isUnchanged() const;

    /// Whether an open file is still as noted. @throws ImportError
    bool isSame(int descriptor) const;

    /// Size, modification time or identity differ from another look at the same path.
    bool differsFrom(FileStamp const& other) const;

private:
    FileStamp(std::string path, int descriptor);

    std::string m_path;
    off_t m_size = 0;
    timespec m_modified{};
    ino_t m_inode = 0;
    dev_t m_device = 0;
};

/// Notices when a file is changed by somebody else while it is being read.
class FileWatch
{
public:
    /// Notes the present size and modification time. @throws ImportError when the file cannot be looked at
    void add(std::string const& path) { m_files.emplace_back(path); }

    /// The files that were added, as often as they were.
    std::vector<FileStamp> const& files() const { return m_files; }

    /// Compares all files with what was noted. @throws ImportError naming the first one that differs
    void check() const;

private:
    std::vector<FileStamp> m_files;
};

} // namespace veldraw::app
