#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace veldraw::app {

/// A file could not be read; nothing of it has come into being. The text names the file and the reason, UTF-8.
class ImportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Does work on a file and returns what it returns. What it complains about gets the file's name in front, for a user who has long opened it.
/// @throws ImportError
template <typename Work>
auto namingFile(std::string const& path, Work const& work)
{
    try {
        return work();
    } catch (ImportError const& error) {
        throw ImportError("\"" + path + "\": " + error.what());
    } catch (std::filesystem::filesystem_error const& error) {
        throw ImportError("\"" + path + "\": " + error.code().message());
    }
}

} // namespace veldraw::app
