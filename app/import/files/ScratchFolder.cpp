#include "app/import/files/ScratchFolder.h"

#include "app/import/ImportError.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace veldraw::app {

ScratchFolder::ScratchFolder()
    : m_path((std::filesystem::temp_directory_path() / "veldraw-XXXXXX").string())
{
    if (!::mkdtemp(&m_path[0]))
        throw ImportError(std::string("no temporary folder can be made: ") + std::strerror(errno));
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace veldraw::app
