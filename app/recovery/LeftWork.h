#pragma once

#include "app/recovery/RecoveryRecords.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// Work that a program has left in a recovery file, as it did not come to its end. As long as this object lives, no other program finds the file.
class LeftWork
{
public:
    /// All that is left in a folder, the newest first. Files of programs that still run are left alone, those without unsaved steps are removed.
    static std::vector<std::unique_ptr<LeftWork>> findAll(std::string const& folder);

    ~LeftWork();

    RecoveryContent const& content() const { return m_content; }

    /// Paths of the files that it begins with.
    std::vector<std::string> files() const;

    /// When something was done last, in seconds since 1970.
    std::int64_t time() const { return m_time; }

    /// Removes the file.
    void discard();

    LeftWork(LeftWork const&) = delete;
    LeftWork& operator=(LeftWork const&) = delete;

private:
    explicit LeftWork(std::string path);

    static void removeBegun(std::string const& folder);
    bool isFree();
    void read();
    bool isNothing() const;

    std::string m_path;
    int m_descriptor = -1; // holds the lock
    std::int64_t m_time = 0;
    std::int64_t m_exactTime = 0;
    RecoveryContent m_content;
};

} // namespace veldraw::app
