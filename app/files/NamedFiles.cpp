#include "app/files/NamedFiles.h"

#include "app/files/PathChecks.h"

#include <algorithm>
#include <filesystem>

namespace veldraw::app {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostTold = 3;
constexpr std::size_t mostMissingTold = 10;

fs::path absoluteFolderOf(std::string const& path)
{
    return fs::absolute(path).lexically_normal().parent_path();
}

bool isBelow(fs::path const& folder, fs::path const& file)
{
    fs::path const way = file.lexically_normal().lexically_relative(folder);
    return !way.empty() && *way.begin() != "..";
}

bool leadsOutside(std::string const& path, std::string const& name)
{
    fs::path const named(name);
    fs::path const folder = absoluteFolderOf(path);
    if (!named.is_absolute())
        return !isBelow(folder, folder / named);
    std::error_code unknown;
    fs::path const real = fs::weakly_canonical(folder, unknown); // the folder may have been reached by a link
    return !isBelow(folder, named) && (unknown || !isBelow(real, named));
}

std::string textOn(std::vector<std::string> const& paths)
{
    std::string text = "it names files outside of its folder: ";
    for (std::size_t n = 0; n < std::min(paths.size(), mostTold); ++n)
        text += (n == 0 ? "\"" : ", \"") + paths[n] + "\"";
    if (paths.size() > mostTold)
        text += " and " + std::to_string(paths.size() - mostTold) + " more";
    return text;
}

} // namespace

OutsidePathsError::OutsidePathsError(std::string const& text, std::vector<std::string> paths)
    : ImportError(text)
    , m_paths(std::move(paths))
{
}

std::string namedFile(std::string const& path, std::string const& name)
{
    // Behind a link to a folder ".." would lead out of this one.
    fs::path const named = leadsOutside(path, name) ? fs::path(name) : fs::path(name).lexically_normal();
    return (fs::path(path).parent_path() / named).string();
}

void requireReadable(std::string const& path, std::vector<std::string> const& names)
{
    std::string text;
    std::size_t count = 0;
    for (std::string const& name : names) {
        try {
            checkReadable(namedFile(path, name));
        } catch (ImportError const& error) {
            if (++count <= mostMissingTold)
                text += (text.empty() ? "its part \"" : "; its part \"") + name + "\": " + error.what();
        }
    }
    if (count > mostMissingTold)
        text += "; and " + std::to_string(count - mostMissingTold) + " others";
    if (count > 0)
        throw ImportError(text);
}

void requireInside(std::string const& path, std::vector<std::string> const& names, OutsidePaths outside)
{
    std::vector<std::string> paths;
    for (std::string const& name : names) {
        if (outside == OutsidePaths::Follow || !leadsOutside(path, name))
            continue;
        std::string const target = (absoluteFolderOf(path) / name).lexically_normal().string();
        if (std::find(paths.begin(), paths.end(), target) == paths.end())
            paths.push_back(target);
    }
    if (!paths.empty())
        throw OutsidePathsError(textOn(paths), paths);
}

} // namespace veldraw::app
