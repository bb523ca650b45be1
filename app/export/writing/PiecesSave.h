#pragma once

#include "app/export/writing/PendingSave.h"
#include "app/export/writing/SaveJournal.h"
#include "app/export/writing/SaveTarget.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace veldraw::app {

/// What a file names beside itself.
struct NamedPieces
{
    std::set<std::string> files; ///< seen from the file's folder
    bool areItsOwn = false;      ///< they were made with the file and are to go with it
};

/// A save of a file that names pieces, which stand in a folder beside it that has its name without extension.
///
/// Pieces get names that nothing in the folder has, so that no other file is ever written over: "a_1.vts" in an empty one, "a_1-2.vts" beside that. The
/// rename of the file that names them makes them real, and the pieces that the old file had made are removed then. All others stay,
/// and so do those in a folder that is a link, as another file may name them too.
class PiecesSave : public PendingSave
{
public:
    /// Reads what the file that is there names.
    using ReadNames = std::function<NamedPieces(std::string const& path)>;

    /// @param path that the user has chosen
    /// @param extensions of the pieces
    /// @throws ExportError
    PiecesSave(std::string const& path, std::vector<std::string> const& extensions, ReadNames const& readNames);

    /// How the file is to name the piece @p n, zero-based.
    std::string const& pieceName(std::size_t n) const { return m_pieces[n]; }

    std::string piecePath(std::size_t n) const { return m_journal.pathTo(m_pieces[n]); } ///< where to write it
    std::string path() const { return m_journal.pathTo(m_journal.part()); }              ///< where to write the file

    void commit(kernel::Progress& progress, std::vector<std::string>& remarks) override;

private:
    std::string folder() const { return m_journal.pathTo(m_stem); }
    void chooseNames(std::vector<std::string> const& extensions);
    void findObsolete();
    void makeFiles();
    void removeObsolete(std::vector<std::string>& remarks);

    SaveJournal m_journal;
    SaveTarget m_target;
    std::string m_stem; // name of the folder, and what the names of pieces begin with
    bool m_hasFolder;
    bool m_isLinkedFolder;
    NamedPieces m_earlier;
    std::vector<std::string> m_pieces;
    std::vector<std::string> m_obsolete;
};

} // namespace veldraw::app
