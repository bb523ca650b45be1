#include "app/export/writing/SaveJournal.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/ExportError.h"
#include "app/export/writing/SaveLeftovers.h"
#include "app/export/writing/SaveNames.h"
#include "app/export/writing/SaveNotes.h"
#include "app/export/writing/SaveTarget.h"
#include "app/export/writing/WriteReason.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace veldraw::app {

namespace {

std::string contentOfFile(int descriptor)
{
    std::string content;
    std::array<char, 4096> part{};
    ssize_t count = 0;
    while ((count = ::pread(descriptor, part.data(), part.size(), static_cast<off_t>(content.size()))) > 0)
        content.append(part.data(), static_cast<std::size_t>(count));
    if (count < 0)
        throwReason(errno);
    return content;
}

void writeAll(int descriptor, std::string const& text)
{
    for (std::size_t done = 0; done < text.size();) {
        ssize_t const count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
            throwReason(errno);
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    if (::fsync(descriptor) != 0)
        throwReason(errno);
}

std::string nameOf(std::string const& path)
{
    return std::filesystem::path(path).filename().string();
}

// Some file systems of networks lock only what is open for writing.
int openLeftNotes(std::string const& path)
{
    constexpr int how = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    int const file = ::open(path.c_str(), O_RDWR | how);
    return file >= 0 || errno != EACCES ? file : ::open(path.c_str(), O_RDONLY | how);
}

// What is not there is removed.
bool isRemoved(std::string const& path)
{
    return ::unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

// What somebody else has put into a folder stays there.
bool isFolderRemoved(std::string const& path)
{
    return ::rmdir(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR || errno == ENOTEMPTY || errno == EEXIST;
}

} // namespace

SaveJournal::SaveJournal(std::string const& target)
    : SaveJournal(target, [] { return std::set<std::string>(); })
{
}

SaveJournal::SaveJournal(std::string const& target, Needed const& needed)
    : m_target(target)
    , m_folder(folderOf(target))
    , m_path(pathTo(nameWithEnding(nameOf(target), ".veldraw-saving")))
    , m_part(partName(nameOf(target), newTag()))
{
    // Two that begin at once may disturb each other for a moment.
    constexpr int attempts = 30;
    for (int n = 0; n < attempts; ++n) {
        if (takePlace(needed))
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(n));
    }
    throw ExportError("another program is saving to this name at the moment, or \"" + m_path + "\" belongs to one");
}

SaveJournal::~SaveJournal()
{
    for (auto made = m_made.rbegin(); made != m_made.rend(); ++made) {
        try {
            std::string const path = pathTo(made->name);
            m_isClear = (made->isFolder ? isFolderRemoved(path) : isRemoved(path)) && m_isClear;
        } catch (std::bad_alloc const&) {
            m_isClear = false;
        }
    }
    if (m_isClear)
        ::unlink(m_path.c_str());
    ::close(m_descriptor);
}

// Makes the file, which has to be new; one that is there is in use, or left by a crash.
bool SaveJournal::takePlace(Needed const& needed)
{
    m_descriptor = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (m_descriptor < 0 && errno != EEXIST)
        throwReason(errno);
    if (m_descriptor < 0) {
        takeOver(needed);
        return false;
    }
    if (isUnlocked(m_descriptor) && hasName(m_descriptor))
        return true;
    ::close(std::exchange(m_descriptor, -1));
    return false;
}

// Locks it for as long as it is open. Where nothing can be locked, a file that is there counts as one in use.
bool SaveJournal::isUnlocked(int descriptor) const
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && descriptor == m_descriptor);
}

// Whether a file still has its name: another save may have taken it for a left-over one before it was locked.
bool SaveJournal::hasName(int descriptor) const
{
    struct stat ours
    {
    };
    struct stat named
    {
    };
    return ::fstat(descriptor, &ours) == 0 && ::lstat(m_path.c_str(), &named) == 0 && ours.st_ino == named.st_ino &&
           ours.st_dev == named.st_dev;
}

// Ends what a crash has left, so that the place is free.
void SaveJournal::takeOver(Needed const& needed)
{
    int const left = openLeftNotes(m_path);
    if (left < 0 && errno == ENOENT)
        return;
    if (left < 0)
        throw ExportError(errno == EACCES ? "another user is saving to this name, or \"" + m_path + "\" is left of that"
                                          : reasonOf(errno));
    try {
        if (isUnlocked(left) && hasName(left)) {
            struct stat facts
            {
            };
            if (::fstat(left, &facts) != 0)
                throwReason(errno);
            std::string const text = S_ISREG(facts.st_mode) ? contentOfFile(left) : "no file";
            if (!areSaveNotes(text) || facts.st_nlink > 1)
                throw ExportError("\"" + m_path + "\" stands where notes on the save would");
            SaveLeftovers(m_target, text, facts.st_uid).remove(needed());
            if (::unlink(m_path.c_str()) != 0 && errno != ENOENT)
                throw ExportError("\"" + m_path +
                                  "\" is left of another save and cannot be removed: " + reasonOf(errno));
        }
    } catch (...) {
        ::close(left);
        throw;
    }
    ::close(left);
}

void SaveJournal::note(Entries const& entries)
{
    std::vector<SaveNote> notes{{SaveNote::Kind::Part, m_part}};
    for (std::string const& file : entries.files)
        notes.push_back({SaveNote::Kind::File, file});
    for (std::string const& folder : entries.folders)
        notes.push_back({SaveNote::Kind::Folder, folder});
    for (std::string const& file : entries.old)
        notes.push_back({SaveNote::Kind::Old, file});
    writeAll(m_descriptor, textOf(notes));
    synchroniseFolder(m_folder);
}

void SaveJournal::makeFile(std::string const& name, FileRights const* rights)
{
    std::string const path = pathTo(name);
    m_made.push_back({name, false}); // while nothing is there yet: without memory nothing is made that nobody removes
    int const file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights ? 0600 : 0666);
    if (file < 0) {
        int const error = errno;
        m_made.pop_back();
        throwReason(error);
    }
    try {
        if (rights)
            rights->giveTo(file);
    } catch (...) {
        ::close(file);
        throw;
    }
    ::close(file);
}

void SaveJournal::makeFolder(std::string const& name)
{
    std::string const path = pathTo(name);
    m_made.push_back({name, true});
    if (::mkdir(path.c_str(), 0777) != 0) {
        int const error = errno;
        m_made.pop_back();
        throw ExportError("the folder \"" + path + "\" cannot be made: " + reasonOf(error));
    }
}

void SaveJournal::keep()
{
    m_made.clear();
}

std::string SaveJournal::remove(std::string const& file)
{
    if (isRemoved(pathTo(file)))
        return {};
    m_isClear = false;
    return reasonOf(errno);
}

std::string SaveJournal::removeFolder(std::string const& name)
{
    if (::rmdir(pathTo(name).c_str()) == 0 || errno == ENOENT)
        return {};
    m_isClear = false;
    return errno == ENOTEMPTY || errno == EEXIST ? "something else has come into it" : reasonOf(errno);
}

} // namespace veldraw::app
