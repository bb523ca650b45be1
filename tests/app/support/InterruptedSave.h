#pragma once

#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/SystemCalls.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// What a user has saved: so many zones with values that tell which save they are of.
struct SavedState
{
    int zones = 1;
    int points = 10;
    double mark = 0.0;
};

/// One kind of save into a folder: the file that a user names, and how what is then there is found.
class SaveKind
{
public:
    /// @param file with the extension that decides on the kind: vtm, csv (several tables), vts, tsv (one table) or png
    explicit SaveKind(std::string file);

    std::string const& file() const { return m_file; }

    /// How many zones it takes at most.
    bool takesSeveralZones() const;

    /// @throws app::ExportError
    void save(TemporaryFolder const& folder, SavedState const& state) const;

    /// All that a user has of a save, names of zones and bytes of files, whatever the pieces are called; "none" when there is none.
    std::string content(TemporaryFolder const& folder) const;

    /// The files and folders that belong to what is there, sorted, separated by blanks.
    std::string belongings(TemporaryFolder const& folder) const;

private:
    std::string m_file;
};

/// How a save in a process of its own ended.
struct SaveOutcome
{
    enum class End
    {
        Saved,
        Refused,
        Killed
    };

    End end;
    std::string message; ///< of a refusal
    bool wasDisturbed;   ///< not known of one that was killed, which was
    std::string call;    ///< that was disturbed
    int calls;           ///< how many there were; 0 when killed
};

/// Saves in a process of its own, whose calls are disturbed.
SaveOutcome saveDisturbed(SaveKind const& kind, TemporaryFolder const& folder, SavedState const& state,
                          Disturbance const& disturbance);

/// Whether a message gives a reason for what happened to a file, without words that only a programmer knows.
bool isInTheUsersWords(std::string const& message);

} // namespace veldraw::tests
