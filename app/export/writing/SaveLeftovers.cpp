#include "app/export/writing/SaveLeftovers.h"

#include "app/export/writing/ExportError.h"
#include "app/export/writing/FolderContent.h"
#include "app/export/writing/SaveNames.h"
#include "app/export/writing/SaveNotes.h"
#include "app/export/writing/SaveTarget.h"
#include "app/export/writing/WriteReason.h"
#include "app/files/PathChecks.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

// A name in the target's folder, or in a folder in there.
bool isPlain(std::filesystem::path const& part)
{
    return !part.empty() && part != "." && part != ".." && part != "/";
}

} // namespace

SaveLeftovers::SaveLeftovers(std::string const& target, std::string const& notes, uid_t writer)
    : m_folder(folderOf(target))
    , m_name(std::filesystem::path(target).filename().string())
    , m_writer(writer)
{
    for (SaveNote const& note : notesIn(notes)) {
        if (note.kind == SaveNote::Kind::Part && isPartName(note.name, m_name))
            m_part = note.name;
        else if (note.kind == SaveNote::Kind::Folder && note.name == baseNameOf(m_name) && isPlain(note.name))
            m_folders.insert(note.name);
        else if (note.kind == SaveNote::Kind::File && isOfSave(note.name))
            m_files.insert(note.name);
        else if (note.kind == SaveNote::Kind::Old && isOfSave(note.name))
            m_old.insert(note.name);
    }
}

// Whether a save of the target makes files of this name: pieces, and those in a folder that is its part.
bool SaveLeftovers::isOfSave(std::string const& name) const
{
    std::filesystem::path const path(name);
    if (std::distance(path.begin(), path.end()) != 2 || !std::all_of(path.begin(), path.end(), isPlain))
        return false;
    std::string const folder = path.begin()->string();
    std::string const stem = baseNameOf(m_name);
    bool const isInPart = !m_part.empty() && folder == m_part;
    return isInPart || (folder == stem && isPieceName(path.filename().string(), stem));
}

// Through a link it could be a file that others name as well.
bool SaveLeftovers::mayRemove(std::string const& name) const
{
    std::string const folder = std::filesystem::path(name).parent_path().string();
    auto const place = entryAt(pathTo(folder));
    if (!place || !S_ISDIR(place->st_mode))
        return false;
    auto const entry = entryAt(pathTo(name));
    bool const isBelieved = m_writer == ::geteuid() || m_writer == 0;
    return entry && S_ISREG(entry->st_mode) && (isBelieved || entry->st_uid == m_writer);
}

void SaveLeftovers::removeFiles(std::set<std::string> const& files, std::set<std::string> const& needed) const
{
    for (std::string const& name : files) {
        if (needed.count(name) == 0 && mayRemove(name) && ::unlink(pathTo(name).c_str()) != 0 && errno != ENOENT)
            throw ExportError("\"" + pathTo(name) +
                              "\" is left of an earlier save and cannot be removed: " + reasonOf(errno));
    }
}

// What somebody else has put into it stays there.
void SaveLeftovers::removeFolder(std::string const& name) const
{
    if (::rmdir(pathTo(name).c_str()) != 0 && errno != ENOENT && errno != ENOTDIR && errno != ENOTEMPTY &&
        errno != EEXIST)
        throw ExportError("\"" + pathTo(name) +
                          "\" is left of an earlier save and cannot be removed: " + reasonOf(errno));
}

void SaveLeftovers::remove(std::set<std::string> const& needed) const
{
    if (m_part.empty())
        return; // the notes were not finished, and nothing was made
    auto const part = entryAt(pathTo(m_part));
    bool const isReplaced =
        std::any_of(m_files.begin(), m_files.end(), [&](std::string const& name) { return needed.count(name) != 0; });
    if (part)
        removeFiles(m_files, needed);
    else if (isReplaced)
        removeFiles(m_old, needed);
    for (std::string const& folder : m_folders)
        removeFolder(folder);
    if (part && S_ISDIR(part->st_mode))
        removeFolder(m_part);
    else if (part)
        removeFiles({m_part}, {});
}

} // namespace veldraw::app
