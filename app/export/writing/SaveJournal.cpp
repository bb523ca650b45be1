#include "app/export/writing/SaveJournal.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FolderContent.h"
#include "app/export/writing/SaveTarget.h"
#include "app/export/writing/WriteReason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace veldraw::app {

namespace {

// Texts end in a zero, as a name can hold anything else.
std::string const journalStart("veldraw save\0", 13);

std::string newTag()
{
    static char const letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> letter(0, sizeof letters - 2);
    std::string tag;
    while (tag.size() < 10)
        tag += letters[letter(source)];
    return tag;
}

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

// Also where the writing was interrupted.
bool isBeginOfJournal(std::string const& text)
{
    return text.compare(0, journalStart.size(), journalStart, 0, text.size()) == 0;
}

// Whether a name leads to where our saves make files, whoever has written it.
bool staysBeside(std::string const& name)
{
    auto const parts = std::filesystem::path(name);
    auto const isPlain = [](std::filesystem::path const& part) {
        return !part.empty() && part != "." && part != ".." && part != "/";
    };
    return std::distance(parts.begin(), parts.end()) <= 2 && std::all_of(parts.begin(), parts.end(), isPlain);
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

std::string nameWithEnding(std::string const& name, std::string const& ending)
{
    constexpr std::size_t longest = 255; // bytes, on nearly all file systems
    if (name.size() + ending.size() <= longest)
        return name + ending;
    std::uint64_t sum = 14695981039346656037U; // FNV-1a: the same in every run
    for (char const c : name)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::size_t kept = longest - ending.size() - 21;
    while (kept > 0 && (static_cast<unsigned char>(name[kept]) & 0xC0U) == 0x80U)
        --kept; // in the middle of a letter
    return name.substr(0, kept) + "-" + std::to_string(sum) + ending;
}

SaveJournal::SaveJournal(std::string const& target)
    : SaveJournal(target, [] { return std::set<std::string>(); })
{
}

SaveJournal::SaveJournal(std::string const& target, Needed const& needed)
    : m_folder(folderOf(target))
    , m_path(pathTo(nameWithEnding(std::filesystem::path(target).filename().string(), ".veldraw-saving")))
    , m_tag(newTag())
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
    for (std::string const& file : m_made.files)
        m_isClear = isRemoved(pathTo(file)) && m_isClear;
    for (auto folder = m_made.folders.rbegin(); folder != m_made.folders.rend(); ++folder)
        m_isClear = isFolderRemoved(pathTo(*folder)) && m_isClear;
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
    if (isUnlocked(m_descriptor) && holdsPlace())
        return true;
    ::close(std::exchange(m_descriptor, -1));
    return false;
}

// Locks it for as long as it is open. Where nothing can be locked, a file that is there counts as one in use.
bool SaveJournal::isUnlocked(int descriptor) const
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && descriptor == m_descriptor);
}

// Whether the file still has its name: another save may have taken it for a left-over one before it was locked.
bool SaveJournal::holdsPlace() const
{
    struct stat ours
    {
    };
    struct stat named
    {
    };
    return ::fstat(m_descriptor, &ours) == 0 && ::lstat(m_path.c_str(), &named) == 0 && ours.st_ino == named.st_ino &&
           ours.st_dev == named.st_dev;
}

// Ends what a crash has left, so that the place is free. Only the user's own notes are believed: others could write down files of the user.
void SaveJournal::takeOver(Needed const& needed)
{
    int const left = ::open(m_path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat facts
    {
    };
    if (left < 0 && errno == ENOENT)
        return;
    try {
        if (left < 0 || ::fstat(left, &facts) != 0)
            throwReason(errno);
        if (isUnlocked(left)) {
            std::string const text = S_ISREG(facts.st_mode) ? contentOfFile(left) : "no file";
            if (!isBeginOfJournal(text))
                throw ExportError("\"" + m_path + "\" stands where notes on the save would");
            if (facts.st_uid == ::geteuid())
                removeLeftovers(text, needed());
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

void SaveJournal::removeLeftovers(std::string const& text, std::set<std::string> const& needed) const
{
    std::size_t start = std::min(journalStart.size(), text.size());
    for (std::size_t end = text.find('\0', start); end != std::string::npos; end = text.find('\0', start)) {
        std::string const entry = text.substr(start, end - start);
        start = end + 1;
        std::string const name = entry.empty() ? entry : entry.substr(1);
        if (!staysBeside(name) || needed.count(name) != 0)
            continue;
        bool const isGone =
            entry[0] == 'd' ? isFolderRemoved(pathTo(name)) : !isFile(pathTo(name)) || isRemoved(pathTo(name));
        if (!isGone)
            throw ExportError("\"" + pathTo(name) +
                              "\" is left of an earlier save and cannot be removed: " + reasonOf(errno));
    }
}

void SaveJournal::note(Entries const& entries)
{
    std::string text = journalStart;
    for (std::string const& file : entries.files)
        text += "f" + file + '\0';
    for (std::string const& folder : entries.folders)
        text += "d" + folder + '\0';
    writeAll(m_descriptor, text);
}

void SaveJournal::makeFile(std::string const& name, FileRights const* rights)
{
    int const file = ::open(pathTo(name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights ? 0600 : 0666);
    if (file < 0)
        throwReason(errno);
    try {
        m_made.files.push_back(name);
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
    if (::mkdir(pathTo(name).c_str(), 0777) != 0)
        throw ExportError("the folder \"" + pathTo(name) + "\" cannot be made: " + reasonOf(errno));
    m_made.folders.push_back(name);
}

void SaveJournal::keep()
{
    m_made = {};
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
