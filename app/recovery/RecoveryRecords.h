#pragma once

#include "app/recovery/SavedBase.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veldraw::app {

/// An entry of the journal, as recovery keeps it.
struct RecoveryStep
{
    enum class Kind
    {
        Command,
        Remark, ///< no command stands for it
        Open,
        Save
    };

    Kind kind = Kind::Command;
    std::string text;        ///< as in the journal
    int frame = 0;           ///< one-based number of the frame that has to be active for it; 0 for none
    bool altersData = false; ///< whether a data set differs from its file by it
    bool isUndone = false;
    bool isSaved = false;           ///< whether it is in what was saved last
    std::vector<StampedFile> files; ///< that were read or written
    std::optional<SavedBase> base;  ///< of the last save that left nothing unsaved

    /// Whether the saved files lack it, or have it though it was undone.
    bool isUnsaved() const { return altersData && isSaved == isUndone; }
};

/// The files that a command opens or saves; none where it does neither.
std::vector<std::string> pathsOf(std::string const& command);

/// Notes of a save that left nothing unsaved.
void markSaved(std::vector<RecoveryStep>& steps);

/// How many steps on data would be lost.
int countUnsaved(std::vector<RecoveryStep> const& steps);

/// Makes the records of a recovery file: lines of text, each with a check sum and its number, so that a damage shows.
///
///     c1b2f3a4 0 recovery version=1
///     0f9e8d7c 1 command text="mirror-zones zones=1 plane=X" frame=1 alters=yes
class RecoveryRecords
{
public:
    /// The first record, and all steps. Numbers of records start anew.
    std::string start(std::vector<RecoveryStep> const& steps);

    // Further records. Steps are given by their position among all, zero-based.
    std::string added(RecoveryStep const& step);
    std::string removed(std::size_t step); ///< the last one
    std::string undone(std::size_t step, bool isUndone);
    std::string hasText(std::size_t step, std::string const& text);
    std::string hasFile(std::size_t step, StampedFile const& file);

private:
    std::string hasBase(long long step, SavedBase const& base);
    std::string record(std::string const& content);

    std::int64_t m_number = 0;
};

/// What a recovery file says.
struct RecoveryContent
{
    bool isReadable = false; ///< it begins as such a file does
    bool isDamaged =
        false; ///< what comes after the steps cannot be read, and it is more than a last record that was cut or damaged
    std::vector<RecoveryStep> steps;
};

/// Reads records up to the first one that is damaged.
RecoveryContent readRecords(std::string const& text);

} // namespace veldraw::app
