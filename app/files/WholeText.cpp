#include "app/files/WholeText.h"

#include "app/files/FileStamp.h"
#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"

#include <cstdint>

namespace veldraw::app {

namespace {

constexpr std::int64_t mostBytesOfList = std::int64_t{1} << 28;

} // namespace

std::string wholeText(std::string const& path)
{
    std::int64_t const size = FileStamp(path).size();
    if (size > mostBytesOfList)
        throw ImportError("it has " + std::to_string(size) + " bytes, which is more than a list of files can have");
    std::string content(static_cast<std::size_t>(size), '\0');
    std::ifstream file = openToRead(path);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

} // namespace veldraw::app
