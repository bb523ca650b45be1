#include "app/export/writing/PiecesSave.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/FolderContent.h"
#include "app/export/writing/LateWork.h"
#include "app/export/writing/SaveNames.h"
#include "app/files/PathChecks.h"

#include <algorithm>
#include <filesystem>

namespace veldraw::app {

namespace {

// Pieces stand beside the file behind a link; who opens the link looks for them beside the link.
std::string const& requireSameFolder(std::string const& path, SaveTarget const& target)
{
    std::error_code error;
    if (!std::filesystem::equivalent(folderOf(path), target.folder(), error))
        throw ExportError("it is a link to \"" + target.path() +
                          "\", beside which its zones would have to stand: save to that name");
    return target.path();
}

// Seen from the folder, these are no names of others in it.
void requireFolderName(std::string const& stem)
{
    if (stem == "." || stem == "..")
        throw ExportError("its zones get a folder with its name without the extension, and \"" + stem +
                          "\" cannot be one");
}

// Where to save, behind links.
std::string checkedTarget(std::string const& path)
{
    SaveTarget const target(path);
    requireFolderName(baseNameOf(target.path()));
    return requireSameFolder(path, target);
}

NamedPieces namedBy(std::string const& path, PiecesSave::ReadNames const& readNames)
{
    return isFile(path) ? readNames(path) : NamedPieces();
}

} // namespace

// The target is looked at once more when no other save can change it.
PiecesSave::PiecesSave(std::string const& path, std::vector<std::string> const& extensions, ReadNames const& readNames)
    : m_journal(checkedTarget(path), [&] { return namedBy(behindLinks(path), readNames).files; })
    , m_target(m_journal.target())
    , m_stem(baseNameOf(m_target.path()))
    , m_hasFolder(isFolder(folder()))
    , m_isLinkedFolder(m_hasFolder && S_ISLNK(entryAt(folder())->st_mode))
    , m_earlier(namedBy(m_target.path(), readNames))
{
    chooseNames(extensions);
    findObsolete();
    makeFiles();
}

void PiecesSave::chooseNames(std::vector<std::string> const& extensions)
{
    std::set<std::string> const taken = m_hasFolder ? namesIn(folder()) : std::set<std::string>();
    auto const isTaken = [&](std::string const& piece) { return taken.count(piece.substr(m_stem.size() + 1)) != 0; };
    for (int round = 1; round == 1 || std::any_of(m_pieces.begin(), m_pieces.end(), isTaken); ++round) {
        m_pieces.clear();
        for (std::string const& extension : extensions)
            m_pieces.push_back(m_stem + "/" + nameOfPiece(m_stem, m_pieces.size() + 1, round, extension));
    }
}

void PiecesSave::findObsolete()
{
    if (!m_earlier.areItsOwn || m_isLinkedFolder)
        return;
    for (std::string const& name : m_earlier.files) {
        bool const isInFolder = name.compare(0, m_stem.size() + 1, m_stem + "/") == 0;
        std::string const path = m_journal.pathTo(name);
        if (!isInFolder || !isPieceName(name.substr(m_stem.size() + 1), m_stem) || !isFile(path))
            continue;
        if (isWriteProtected(path))
            throw ExportError("its old piece \"" + name + "\" is write-protected");
        m_obsolete.push_back(name);
    }
}

void PiecesSave::makeFiles()
{
    SaveJournal::Entries entries{m_pieces, {}, m_obsolete};
    if (!m_hasFolder)
        entries.folders.push_back(m_stem);
    m_journal.note(entries);
    auto rights = m_target.rights();
    m_journal.makeFile(m_journal.part(), rights ? &*rights : nullptr);
    if (!m_hasFolder)
        m_journal.makeFolder(m_stem);
    for (std::string const& name : m_obsolete)
        rights->narrowTo(FileRights(m_journal.pathTo(name)));
    for (std::string const& name : m_pieces)
        m_journal.makeFile(name, rights ? &*rights : nullptr);
}

void PiecesSave::commit(kernel::Progress& progress, std::vector<std::string>& remarks)
{
    for (std::size_t n = 0; n < m_pieces.size(); ++n)
        synchronise(piecePath(n), progress);
    synchroniseFolder(folder());
    if (!m_hasFolder)
        synchroniseFolder(m_target.folder());
    synchronise(path(), progress);
    LateWork late(remarks);
    putInPlace(m_target, m_journal);
    bool const isAllRemoved = late.run([&] {
        bool const isOnDisk = synchroniseChangedFolder(m_target.folder(), remarks);
        if (isOnDisk)
            removeObsolete(remarks);
        return isOnDisk;
    });
    if (!isAllRemoved)
        m_journal.removeLater();
}

void PiecesSave::removeObsolete(std::vector<std::string>& remarks)
{
    for (std::string const& name : m_obsolete) {
        std::string const problem = m_journal.remove(name);
        if (!problem.empty())
            remarks.push_back("\"" + name + "\", which nothing needs any more, is left to the next save: " + problem);
    }
    std::string const start = "The files that the old \"" + m_target.name() + "\" named are still there, since ";
    if (!m_earlier.areItsOwn && !m_earlier.files.empty())
        remarks.push_back(start + "they may have come from elsewhere");
    else if (m_isLinkedFolder && !m_earlier.files.empty())
        remarks.push_back(start + "their folder is a link, so that another file may name them too");
}

} // namespace veldraw::app
