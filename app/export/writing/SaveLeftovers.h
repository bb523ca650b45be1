#pragma once

#include <set>
#include <string>
#include <sys/types.h>

namespace veldraw::app {

/// What an interrupted save has left, as its notes say. Anybody may have written them, or copied them from elsewhere: only names that a save of
/// the target would give are believed, only in folders that are no links, and of another user's notes only what is that user's own.
class SaveLeftovers
{
public:
    /// @param target path behind links @param notes as textOf() made them, or their beginning @param writer of the notes
    SaveLeftovers(std::string const& target, std::string const& notes, uid_t writer);

    /// @param needed files that the target that is there needs; they stay
    /// @throws ExportError something cannot be removed
    void remove(std::set<std::string> const& needed) const;

private:
    bool isOfSave(std::string const& name) const;
    bool mayRemove(std::string const& name) const;
    void removeFiles(std::set<std::string> const& files, std::set<std::string> const& needed) const;
    void removeFolder(std::string const& name) const;
    std::string pathTo(std::string const& name) const { return m_folder + "/" + name; }

    std::string m_folder;
    std::string m_name;
    uid_t m_writer;
    std::string m_part;
    std::set<std::string> m_files;
    std::set<std::string> m_folders;
    std::set<std::string> m_old;
};

} // namespace veldraw::app
