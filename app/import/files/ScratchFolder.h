#pragma once

#include <string>

namespace veldraw::app {

/// A temporary folder that goes away, with all that is in it, together with this object.
class ScratchFolder
{
public:
    /// @throws ImportError when no folder can be made
    ScratchFolder();
    ~ScratchFolder();

    std::string const& path() const { return m_path; }

    ScratchFolder(ScratchFolder const&) = delete;
    ScratchFolder& operator=(ScratchFolder const&) = delete;

private:
    std::string m_path;
};

} // namespace veldraw::app
