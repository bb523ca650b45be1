#include "app/export/writing/SaveNotes.h"

#include <algorithm>

namespace veldraw::app {

namespace {

// Texts end in a zero, as a name can hold anything else.
std::string const beginOfNotes("veldraw save\0", 13);

} // namespace

std::string textOf(std::vector<SaveNote> const& notes)
{
    std::string text = beginOfNotes;
    for (SaveNote const& note : notes)
        text += static_cast<char>(note.kind) + note.name + '\0';
    return text;
}

bool areSaveNotes(std::string const& text)
{
    return text.compare(0, beginOfNotes.size(), beginOfNotes, 0, text.size()) == 0;
}

std::vector<SaveNote> notesIn(std::string const& text)
{
    std::vector<SaveNote> notes;
    std::size_t begin = std::min(beginOfNotes.size(), text.size());
    for (std::size_t end = text.find('\0', begin); end != std::string::npos; end = text.find('\0', begin)) {
        if (end > begin)
            notes.push_back({static_cast<SaveNote::Kind>(text[begin]), text.substr(begin + 1, end - begin - 1)});
        begin = end + 1;
    }
    return notes;
}

} // namespace veldraw::app
