#include "app/recovery/LeftWork.h"

#include "app/recovery/RecoveryFile.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

std::vector<std::string> filesIn(std::string const& folder, char const* ending)
{
    std::vector<std::string> paths;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() == ending)
            paths.push_back(entry->path().string());
    }
    return paths;
}

} // namespace

std::vector<std::unique_ptr<LeftWork>> LeftWork::findAll(std::string const& folder)
{
    removeBegun(folder);
    std::vector<std::unique_ptr<LeftWork>> all;
    for (std::string const& path : filesIn(folder, recoveryEnding)) {
        std::unique_ptr<LeftWork> work(new LeftWork(path));
        if (!work->isFree())
            continue;
        work->read();
        if (work->isNothing())
            work->discard();
        else
            all.push_back(std::move(work));
    }
    std::sort(all.begin(), all.end(),
              [](auto const& left, auto const& right) { return left->m_exactTime > right->m_exactTime; });
    return all;
}

// Files that their program did not get to write. One that has just been made may not be locked yet.
void LeftWork::removeBegun(std::string const& folder)
{
    constexpr std::int64_t leastAge = 10; // seconds
    for (std::string const& path : filesIn(folder, newRecoveryEnding)) {
        LeftWork work(path);
        if (work.isFree() && work.m_time + leastAge < std::time(nullptr))
            work.discard();
    }
}

LeftWork::LeftWork(std::string path)
    : m_path(std::move(path))
{
}

LeftWork::~LeftWork()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

/// Whether no program goes on with the file. It is locked then.
bool LeftWork::isFree()
{
    m_descriptor = ::open(m_path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    struct stat status
    {
    };
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    constexpr std::int64_t nanoseconds = 1000000000;
    m_time = status.st_mtim.tv_sec;
    m_exactTime = m_time * nanoseconds + status.st_mtim.tv_nsec;
    return ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 && ::access(m_path.c_str(), F_OK) == 0;
}

void LeftWork::read()
{
    std::string text;
    std::array<char, 65536> part{};
    ssize_t count = 0;
    while ((count = ::pread(m_descriptor, part.data(), part.size(), static_cast<off_t>(text.size()))) > 0)
        text.append(part.data(), static_cast<std::size_t>(count));
    m_content = readRecords(text);
}

// A damage may hide more.
bool LeftWork::isNothing() const
{
    return countUnsaved(m_content.steps) == 0 && !m_content.isDamaged;
}

std::vector<std::string> LeftWork::files() const
{
    std::vector<std::string> paths;
    for (RecoveryStep const& step : m_content.steps) {
        if (step.kind != RecoveryStep::Kind::Open || step.isUndone)
            continue;
        for (std::string const& path : pathsOf(step.text)) {
            if (std::count(paths.begin(), paths.end(), path) == 0)
                paths.push_back(path);
        }
    }
    return paths;
}

void LeftWork::discard()
{
    ::unlink(m_path.c_str());
}

} // namespace veldraw::app
