#include "app/files/MappedMemory.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <mutex>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

// The mappings that there are, for the signal handler: it may use nothing but atomic numbers.
struct Range
{
    std::atomic<std::uintptr_t> first{0}; // 0: not used
    std::atomic<std::uintptr_t> last{0};
    std::atomic<bool> isCut{false};
};

constexpr std::size_t mostRanges = 4096;

std::array<Range, mostRanges> ranges;
std::uintptr_t pageSize = 4096;
struct sigaction previous;

Range* rangeWith(std::uintptr_t address)
{
    for (Range& range : ranges) {
        std::uintptr_t const first = range.first.load();
        if (first != 0 && address >= first && address < range.last.load())
            return &range;
    }
    return nullptr;
}

// Puts a page of zeros where the file has no bytes any more; faults of anybody else go where they went before.
void handleBusError(int, siginfo_t* info, void*)
{
    auto const address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    auto* const page = reinterpret_cast<void*>(address / pageSize * pageSize);
    Range* const range = rangeWith(address);
    if (range)
        range->isCut = true; // before anybody can see the zeros
    if (range &&
        ::mmap(page, pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED)
        return;
    ::sigaction(SIGBUS, &previous, nullptr); // the same instruction faults again
}

void installHandler()
{
    pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    struct sigaction action
    {
    };
    action.sa_sigaction = handleBusError;
    action.sa_flags = SA_SIGINFO;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(SIGBUS, &action, &previous);
}

// Files that are kept open: others need some too.
std::atomic<long> filesKeptOpen{0};

bool mayKeepOneMore()
{
    return filesKeptOpen < ::sysconf(_SC_OPEN_MAX) / 4;
}

// A file as long as any part of it is mapped: its name may stand for another one by then.
struct MappedFile
{
    MappedFile(int original, struct stat const& status, std::string name)
        : path(std::move(name))
        , descriptor(mayKeepOneMore() ? ::fcntl(original, F_DUPFD_CLOEXEC, 0) : -1)
        , inode(status.st_ino)
        , device(status.st_dev)
    {
        filesKeptOpen += descriptor >= 0 ? 1 : 0;
    }
    ~MappedFile()
    {
        if (descriptor < 0)
            return;
        ::close(descriptor);
        --filesKeptOpen;
    }

    bool has(std::int64_t bytes) const
    {
        struct stat status
        {
        };
        bool const isKnown = descriptor >= 0
                                 ? ::fstat(descriptor, &status) == 0
                                 : ::stat(path.c_str(), &status) == 0 && isIt(status); // else pages alone tell
        return !isKnown || status.st_size >= bytes;
    }

    bool isIt(struct stat const& status) const { return inode == status.st_ino && device == status.st_dev; }

    MappedFile(MappedFile const&) = delete;
    MappedFile& operator=(MappedFile const&) = delete;

    std::string path;
    int descriptor;
    ino_t inode;
    dev_t device;
    bool isTold = false;
};

class Mapping;

// What there is besides the ranges; the functions below are called with the lock held.
struct Registry
{
    std::mutex mutex;
    std::vector<Mapping*> mappings;
    std::vector<std::shared_ptr<MappedFile>>
        cutFiles; // noticed, and not told yet; has room for all others that are mapped
};

Registry& registry()
{
    static auto* const all = new Registry; // never destroyed: mappings may outlive all static objects
    return *all;
}

class Mapping
{
public:
    Mapping(int descriptor, std::int64_t start, std::int64_t end, std::string const& path);
    ~Mapping();

    char* first() const { return m_memory; }
    bool contains(void const* address) const
    {
        return reinterpret_cast<std::uintptr_t>(address) - reinterpret_cast<std::uintptr_t>(m_memory) < m_length;
    }
    std::shared_ptr<MappedFile> const& file() const { return m_file; }

    // Without a page that was looked at: where the end of a page is cut off, it reads as zeros and nobody hears of it.
    bool isCut() const { return m_range->isCut || !m_file->has(m_end); }

    void noteCut() const noexcept;

    Mapping(Mapping const&) = delete;
    Mapping& operator=(Mapping const&) = delete;

private:
    void claimRange();
    void findFile(int descriptor, std::string const& path);

    std::size_t m_length;
    std::int64_t m_end; // in the file
    char* m_memory = nullptr;
    Range* m_range = nullptr;
    std::shared_ptr<MappedFile> m_file;
};

Mapping::Mapping(int descriptor, std::int64_t start, std::int64_t end, std::string const& path)
    : m_length(static_cast<std::size_t>(end - start))
    , m_end(end)
{
    std::lock_guard<std::mutex> const lock(registry().mutex);
    findFile(descriptor, path);
    auto& [mutex, mappings, cutFiles] = registry();
    mappings.reserve(mappings.size() + 1);
    cutFiles.reserve(cutFiles.size() + mappings.size() + 1);
    // Without reserve: the pages that will be written are few, whatever the size of the file.
    void* const memory =
        ::mmap(nullptr, m_length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_NORESERVE, descriptor, start);
    if (memory == MAP_FAILED)
        throw ImportError("\"" + path + "\" cannot be mapped: " + systemReason(errno));
    m_memory = static_cast<char*>(memory);
    claimRange();
    mappings.push_back(this);
}

Mapping::~Mapping()
{
    std::lock_guard<std::mutex> const lock(registry().mutex);
    noteCut();
    m_range->first = 0;
    ::munmap(m_memory, m_length);
    auto& all = registry().mappings;
    all.erase(std::find(all.begin(), all.end(), this));
}

void Mapping::claimRange()
{
    static std::once_flag once;
    std::call_once(once, installHandler);
    for (Range& range : ranges) {
        if (range.first.load() != 0)
            continue;
        m_range = &range;
        range.isCut = false;
        range.last = reinterpret_cast<std::uintptr_t>(m_memory) + m_length;
        range.first = reinterpret_cast<std::uintptr_t>(m_memory);
        return;
    }
    ::munmap(m_memory, m_length);
    throw ImportError("too many files are mapped");
}

// Arrays of one file share its descriptor.
void Mapping::findFile(int descriptor, std::string const& path)
{
    struct stat status
    {
    };
    if (::fstat(descriptor, &status) != 0)
        throw ImportError("\"" + path + "\": " + systemReason(errno));
    for (Mapping const* const other : registry().mappings) {
        if (other->m_file->isIt(status))
            m_file = other->m_file;
    }
    if (!m_file)
        m_file = std::make_shared<MappedFile>(descriptor, status, path);
}

void Mapping::noteCut() const noexcept
{
    if (!m_range->isCut || m_file->isTold)
        return;
    m_file->isTold = true;
    registry().cutFiles.push_back(m_file);
}

void checkSize(int descriptor, std::int64_t needed, std::string const& path)
{
    struct stat status
    {
    };
    if (::fstat(descriptor, &status) != 0)
        throw ImportError("\"" + path + "\": " + systemReason(errno));
    if (status.st_size < needed)
        throw ImportError("\"" + path + "\" has " + std::to_string(status.st_size) + " bytes where " +
                          std::to_string(needed) + " are needed");
}

} // namespace

std::shared_ptr<void> mapFile(int descriptor, std::int64_t offset, std::int64_t bytes, std::string const& path)
{
    checkSize(descriptor, offset + bytes, path);
    std::int64_t const start = offset / ::sysconf(_SC_PAGESIZE) * ::sysconf(_SC_PAGESIZE);
    auto const mapping = std::make_shared<Mapping>(descriptor, start, offset + bytes, path);
    return {mapping, mapping->first() + (offset - start)};
}

std::string lossAt(void const* memory)
{
    std::lock_guard<std::mutex> const lock(registry().mutex);
    for (Mapping const* const mapping : registry().mappings) {
        if (mapping->contains(memory))
            return mapping->isCut() ? "another program has cut \"" + mapping->file()->path +
                                          "\" short, which is open here, and values that are missing read as 0; "
                                          "open it again"
                                    : std::string();
    }
    return {};
}

std::vector<std::string> takeCutFiles()
{
    std::lock_guard<std::mutex> const lock(registry().mutex);
    for (Mapping const* const mapping : registry().mappings)
        mapping->noteCut();
    std::vector<std::string> paths;
    for (auto const& file : registry().cutFiles)
        paths.push_back(file->path);
    registry().cutFiles.clear(); // keeps the room
    return paths;
}

std::string cutFileWarning(std::vector<std::string> const& files)
{
    std::string names;
    for (std::string const& file : files)
        names += (names.empty() ? "\"" : ", \"") + file + "\"";
    return "Another program has cut " + names +
           " short while open here. Values that are missing now show as 0; do not trust what was read from there, and "
           "open it again.";
}

} // namespace veldraw::app
