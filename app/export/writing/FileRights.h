#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace veldraw::app {

/// Who may do what with a file or a folder: owner, group, permissions and access control lists.
class FileRights
{
public:
    /// @throws ExportError they cannot be read
    explicit FileRights(std::string const& path);

    /// Gives them to another file or folder. @throws ExportError that is not possible; it may have a part of them then
    void giveTo(int descriptor) const;

    /// Takes away what the other ones do not allow. Owner and group stay.
    void narrowTo(FileRights const& other);

    bool operator==(FileRights const& other) const;

private:
    struct List
    {
        char const* name;
        std::vector<char> content; // empty: there is none

        bool operator==(List const& other) const { return content == other.content; }
    };

    uid_t m_owner = 0;
    gid_t m_group = 0;
    mode_t m_mode = 0;
    std::vector<List> m_lists;
};

} // namespace veldraw::app
