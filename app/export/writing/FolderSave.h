#pragma once

#include "app/export/writing/PendingSave.h"
#include "app/export/writing/SaveJournal.h"
#include "app/export/writing/SaveTarget.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// A save of several files that no other file names: they get a folder of their own, which takes the place of the one of an earlier save as a whole.
class FolderSave : public PendingSave
{
public:
    /// Tells of a name whether an earlier save may have made it, so that it may be replaced.
    using IsEarlier = std::function<bool(std::string const& name)>;

    /// Names of the files in a folder that would be replaced; none where there is no folder.
    /// @throws ExportError other things stand in it, or something else has its name
    static std::set<std::string> replacedFiles(std::string const& folder, IsEarlier const& isEarlier);

    /// @param folder to make or to replace @param names of the files @throws ExportError
    FolderSave(std::string const& folder, std::vector<std::string> const& names, IsEarlier const& isEarlier);

    std::string path(std::string const& name) const
    {
        return m_journal.pathTo(m_journal.part() + "/" + name);
    } ///< where to write it

    void commit(kernel::Progress& progress, std::vector<std::string>& remarks) override;

private:
    std::string partPath() const { return m_journal.pathTo(m_journal.part()); }
    void makeFiles();
    void putInPlace() const;
    void removeOld(std::vector<std::string>& remarks);

    std::string m_folder;
    IsEarlier m_isEarlier;
    std::vector<std::string> m_names;
    SaveJournal m_journal;
    bool m_isThere;
    std::set<std::string> m_old;
};

} // namespace veldraw::app
