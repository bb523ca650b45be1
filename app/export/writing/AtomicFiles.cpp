#include "app/export/writing/AtomicFiles.h"

#include "app/export/writing/ExportError.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

std::string linkTarget(std::string const& path)
{
    std::error_code error;
    auto const canonical = std::filesystem::canonical(path, error);
    return error ? path : canonical.string();
}

class OpenFile
{
public:
    explicit OpenFile(std::string const& path)
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        require(m_descriptor >= 0);
    }
    ~OpenFile() { ::close(m_descriptor); }

    std::int64_t size() const
    {
        struct stat facts
        {
        };
        require(::fstat(m_descriptor, &facts) == 0);
        return facts.st_size;
    }

    // Brings a piece to the disk; where a file system cannot do that, synchronise() does it all. Errors of the disk are told
    // once, so that they must not be missed here.
    void flush(std::int64_t offset, std::int64_t bytes) const
    {
        constexpr unsigned all = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
        bool const good = ::sync_file_range(m_descriptor, offset, bytes, all) == 0;
        require(good || (errno != EIO && errno != ENOSPC && errno != EDQUOT));
    }

    void synchronise() const { require(::fsync(m_descriptor) == 0); }

    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;

private:
    static void require(bool isGood)
    {
        if (!isGood)
            throw ExportError(std::strerror(errno));
    }

    int m_descriptor;
};

// Forces the contents to the disk, so that a lack of room shows before the old file is gone. Piece by piece, since a large
// file takes long and the user may not want to wait.
void synchronise(std::string const& path, kernel::Progress& progress)
{
    constexpr std::int64_t piece = 8 << 20;
    OpenFile const file(path);
    std::int64_t const size = file.size();
    kernel::Progress ofFile(progress, size);
    ofFile.check();
    for (std::int64_t offset = 0; offset < size; offset += piece) {
        file.flush(offset, std::min(piece, size - offset));
        ofFile.advance(std::min(piece, size - offset));
        ofFile.check();
    }
    file.synchronise();
}

} // namespace

AtomicFiles::~AtomicFiles()
{
    for (File const& file : m_files)
        ::unlink(file.temporary.c_str());
    for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder)
        ::rmdir(folder->c_str());
}

std::string AtomicFiles::add(std::string const& path)
{
    std::string const target = linkTarget(path);
    if (std::filesystem::is_directory(target))
        throw ExportError("there is a folder of this name");
    if (std::filesystem::exists(target) && !std::filesystem::is_regular_file(target))
        throw ExportError("what has this name is no file but a device or the like");
    for (int n = 0;; ++n) {
        std::string const temporary = target + "." + std::to_string(::getpid()) + "-" + std::to_string(n) + ".part";
        int const file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file < 0 && errno == EEXIST)
            continue;
        if (file < 0)
            throw ExportError(errno == EACCES ? "you have no permission to write there" : std::strerror(errno));
        ::close(file);
        m_files.push_back({temporary, target});
        return temporary;
    }
}

void AtomicFiles::addFolder(std::string const& folder)
{
    if (::mkdir(folder.c_str(), 0777) == 0)
        m_folders.push_back(folder);
    else if (errno != EEXIST || !std::filesystem::is_directory(folder))
        throw ExportError("the folder \"" + folder + "\" cannot be made: " + std::strerror(errno));
}

void AtomicFiles::commit(kernel::Progress& progress)
{
    for (File const& file : m_files) {
        synchronise(file.temporary, progress);
        struct stat old
        {
        };
        if (::stat(file.target.c_str(), &old) == 0)
            ::chmod(file.temporary.c_str(), old.st_mode & 07777);
    }
    for (File const& file : m_files) {
        if (std::rename(file.temporary.c_str(), file.target.c_str()) != 0)
            throw ExportError(std::strerror(errno));
    }
    m_files.clear();
    m_folders.clear();
}

} // namespace veldraw::app
