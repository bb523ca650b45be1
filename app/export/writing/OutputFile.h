#pragma once

#include <cstddef>
#include <string>

namespace veldraw::app {

/// A file that is written from its beginning. What goes wrong is told with the reason that the system has for it.
class OutputFile
{
public:
    /// @param path of a file that is there, and no link; it is emptied @throws ExportError
    explicit OutputFile(std::string const& path);
    ~OutputFile();

    /// @throws ExportError not all of it could be written
    void write(char const* bytes, std::size_t count);
    void write(std::string const& text) { write(text.data(), text.size()); }

    /// @throws ExportError some file systems only tell now that they have lost something
    void close();

    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;

private:
    int m_descriptor;
};

} // namespace veldraw::app
