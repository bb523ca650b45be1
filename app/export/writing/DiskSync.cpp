#include "app/export/writing/DiskSync.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/WriteReason.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

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

    // Some file systems of networks know no such thing as the names in a folder being on the disk.
    void synchroniseNames() const { require(::fsync(m_descriptor) == 0 || errno == EINVAL || errno == ENOTSUP); }

    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;

private:
    static void require(bool isGood)
    {
        if (!isGood)
            throwReason(errno);
    }

    int m_descriptor;
};

} // namespace

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

void synchroniseFolder(std::string const& path)
{
    OpenFile(path).synchroniseNames();
}

bool synchroniseChangedFolder(std::string const& path, std::vector<std::string>& remarks)
{
    try {
        synchroniseFolder(path);
        return true;
    } catch (ExportError const& error) {
        remarks.push_back("The folder \"" + path + "\" could not be brought to the disk (" + error.what() +
                          "): after a power failure it may have the old files again");
        return false;
    }
}

} // namespace veldraw::app
