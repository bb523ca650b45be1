#pragma once

#include <string>
#include <vector>

namespace veldraw::app {

/// An entry in the notes that a save makes on itself.
struct SaveNote
{
    enum class Kind : char
    {
        Part = 'p', ///< comes first
        File = 'f',
        Folder = 'd',
        Old = 'o'
    };

    Kind kind;
    std::string name;
};

/// The text that stands in a file.
std::string textOf(std::vector<SaveNote> const& notes);

/// Whether a text is that of notes, or its beginning, where the writing was interrupted.
bool areSaveNotes(std::string const& text);

/// The entries that are whole.
std::vector<SaveNote> notesIn(std::string const& text);

} // namespace veldraw::app
