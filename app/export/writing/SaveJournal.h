#pragma once

#include "app/export/writing/FileRights.h"

#include <functional>
#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

namespace veldraw::app {

/// What one save makes besides its target, written down before it is made, in a file beside the target that also keeps a second
/// save of the same name waiting.
///
/// When all ends well, or with an exception, the object removes what does not count, and its file last. After a crash the file is left, and
/// the next save of that name removes what stands in it. Names are those seen from the target's folder, with at most one folder in front.
///
/// The part is what is renamed to the target. As it is made first and removed last, the other files are nobody's while it is there, and
/// belong to whoever names them once it is not: the user may have moved the target away since.
class SaveJournal
{
public:
    struct Entries
    {
        std::vector<std::string> files;   ///< made besides the part
        std::vector<std::string> folders; ///< removed where they are empty
        std::vector<std::string> old;     ///< removed when the target needs the new files
    };

    /// Tells which files the target that is there needs; asked when no other save goes on.
    using Needed = std::function<std::set<std::string>()>;

    /// Removes what an interrupted save has left, but for what is needed.
    /// @param target path behind links
    /// @throws ExportError another program saves it, or nothing can be made in the folder
    SaveJournal(std::string const& target, Needed const& needed);
    explicit SaveJournal(std::string const& target);

    /// Removes what was made and not kept.
    ~SaveJournal();

    std::string const& target() const { return m_target; }

    /// Name of the file or folder that is to be renamed to the target; no other save's.
    std::string const& part() const { return m_part; }

    /// The path to a name.
    std::string pathTo(std::string const& name) const { return m_folder + "/" + name; }

    /// To be called once, before anything is made. @param entries all that will be made or removed besides the part @throws ExportError
    void note(Entries const& entries);

    /// Makes an empty file that was noted; the part, be it a file or a folder, before all others.
    /// @param rights null for those that new files have @throws ExportError
    void makeFile(std::string const& name, FileRights const* rights);
    void makeFolder(std::string const& name);

    /// Whatever was made has come to stay.
    void keep();

    /// Removes what was noted and is not needed any more. What cannot be removed is left to the next save.
    /// @return empty, or why that was not possible
    std::string remove(std::string const& file);
    std::string removeFolder(std::string const& name);

    /// Leaves all of that to the next save.
    void removeLater() { m_isClear = false; }

    SaveJournal(SaveJournal const&) = delete;
    SaveJournal& operator=(SaveJournal const&) = delete;

private:
    struct Made
    {
        std::string name;
        bool isFolder;
    };

    bool takePlace(Needed const& needed);
    void takeOver(Needed const& needed);
    bool hasName(int descriptor) const;
    bool isUnlocked(int descriptor) const;

    std::string m_target;
    std::string m_folder;
    std::string m_path;
    std::string m_part;
    int m_descriptor = -1;
    std::vector<Made> m_made;
    bool m_isClear = true; // nothing is left to the next save
};

} // namespace veldraw::app
