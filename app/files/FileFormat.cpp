#include "app/files/FileFormat.h"

namespace veldraw::app {

bool FileFormat::has(std::string const& extension) const
{
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

std::string FileFormat::extensionList(std::string const& before) const
{
    std::string text;
    for (std::string const& extension : extensions)
        text += (text.empty() ? "" : " ") + before + extension;
    for (std::string const& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

std::string FileFormat::text(std::string const& before) const
{
    return description + " (" + extensionList(before) + ")";
}

} // namespace veldraw::app
