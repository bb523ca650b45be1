#include "app/export/AtomicFiles.h"

#include "app/export/ExportError.h"

#include <cerrno>
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

// Forces the contents to the disk, so that a lack of room shows before the old file is gone.
void synchronise(std::string const& path)
{
    int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    bool const good = file >= 0 && ::fsync(file) == 0;
    int const reason = errno;
    if (file >= 0)
        ::close(file);
    if (!good)
        throw ExportError(std::strerror(reason));
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

void AtomicFiles::commit()
{
    for (File const& file : m_files) {
        synchronise(file.temporary);
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
