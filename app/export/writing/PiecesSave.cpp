#include "app/export/writing/PiecesSave.h"

#include "app/export/writing/DiskSync.h"
#include "app/export/writing/ExportError.h"
#include "app/export/writing/FileSave.h"
#include "app/export/writing/FolderContent.h"
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

// "_1.vts", "_12-3.vtu": what may follow the name of the file.
bool isPieceEnding(std::string const& text)
{
    auto const endOfDigits = [&](std::size_t start) {
        return std::min(text.find_first_not_of("0123456789", start), text.size());
    };
    if (text.empty() || text[0] != '_')
        return false;
    std::size_t end = endOfDigits(1);
    bool isGood = end > 1;
    if (isGood && end < text.size() && text[end] == '-') {
        std::size_t const start = end + 1;
        end = endOfDigits(start);
        isGood = end > start;
    }
    std::string const extension = text.substr(end);
    return isGood && (extension == ".vts" || extension == ".vtu" || extension == ".vtp");
}

} // namespace

PiecesSave::PiecesSave(std::string const& path, std::vector<std::string> const& extensions, ReadNames const& readNames)
    : m_target(path)
    , m_readNames(readNames)
    , m_stem(baseNameOf(m_target.path()))
    , m_journal(requireSameFolder(path, m_target), [this] { return earlier().files; })
    , m_part(nameWithEnding(m_target.name(), "." + m_journal.tag() + ".part"))
    , m_hasFolder(isFolder(folder()))
    , m_earlier(earlier())
{
    chooseNames(extensions);
    findObsolete();
    makeFiles();
}

NamedPieces PiecesSave::earlier() const
{
    return m_target.rights() ? m_readNames(m_target.path()) : NamedPieces();
}

void PiecesSave::chooseNames(std::vector<std::string> const& extensions)
{
    std::set<std::string> const taken = m_hasFolder ? namesIn(folder()) : std::set<std::string>();
    auto const isTaken = [&](std::string const& piece) { return taken.count(piece.substr(m_stem.size() + 1)) != 0; };
    for (int round = 1; round == 1 || std::any_of(m_pieces.begin(), m_pieces.end(), isTaken); ++round) {
        m_pieces.clear();
        std::string const mark = round == 1 ? std::string() : "-" + std::to_string(round);
        for (std::string const& extension : extensions) {
            std::string const name = m_stem + "_" + std::to_string(m_pieces.size() + 1) + mark + "." + extension;
            m_pieces.push_back(m_stem + "/" + name);
        }
    }
}

void PiecesSave::findObsolete()
{
    std::string const start = m_stem + "/" + m_stem;
    for (std::string const& name : m_earlier.files) {
        bool const isOurs = m_earlier.areItsOwn && name.compare(0, start.size(), start) == 0 &&
                            isPieceEnding(name.substr(start.size()));
        if (isOurs && isFile(m_journal.pathTo(name)))
            m_obsolete.push_back(name);
    }
}

void PiecesSave::makeFiles()
{
    SaveJournal::Entries entries{{m_part}, {}};
    entries.files.insert(entries.files.end(), m_pieces.begin(), m_pieces.end());
    entries.files.insert(entries.files.end(), m_obsolete.begin(), m_obsolete.end());
    if (!m_hasFolder)
        entries.folders.push_back(m_stem);
    m_journal.note(entries);
    if (!m_hasFolder)
        m_journal.makeFolder(m_stem);
    auto rights = m_target.rights();
    m_journal.makeFile(m_part, rights ? &*rights : nullptr);
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
    putInPlace(path(), m_target, m_journal, remarks);
    removeObsolete(remarks);
}

void PiecesSave::removeObsolete(std::vector<std::string>& remarks)
{
    for (std::string const& name : m_obsolete) {
        std::string const problem = m_journal.remove(name);
        if (!problem.empty())
            remarks.push_back("\"" + name + "\", which nothing needs any more, is left to the next save: " + problem);
    }
    if (!m_earlier.areItsOwn && !m_earlier.files.empty())
        remarks.push_back("The files that the old \"" + m_target.name() +
                          "\" named are still there, since they may have come from elsewhere");
}

} // namespace veldraw::app
