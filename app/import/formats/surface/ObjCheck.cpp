#include "app/import/formats/surface/ObjCheck.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"

#include <cstdint>
#include <map>

namespace veldraw::app {

namespace {

constexpr std::size_t longestWord = 16; // of those that start a line

// The first word of each line, with how often it is there; a line may go on behind a "\" at its end.
std::map<std::string, std::int64_t> firstWords(std::string const& path, kernel::Progress const& progress)
{
    std::map<std::string, std::int64_t> words;
    std::string word;
    bool isInWord = true;
    bool goesOn = false;
    std::int64_t position = 0;
    std::ifstream file = openToRead(path);
    for (auto* const bytes = file.rdbuf();;) {
        if (++position % bytesBetweenChecks == 0)
            progress.check();
        int const c = bytes->sbumpc();
        if (c == 0)
            throw ImportError("it is no OBJ file of a surface: it has zero bytes");
        if (c == '\n' || c == std::char_traits<char>::eof()) {
            if (!word.empty() && !goesOn)
                ++words[word];
            word.clear();
            isInWord = true;
            if (c != '\n')
                return words;
        } else if (c == ' ' || c == '\t' || c == '\r') {
            isInWord = isInWord && word.empty();
        } else if (isInWord && word.size() < longestWord) {
            word += static_cast<char>(c);
        }
        if (c != '\r')
            goesOn = c == '\\' || (goesOn && c == '\n');
    }
}

} // namespace

ObjContent checkObj(std::string const& path, kernel::Progress const& progress)
{
    auto const words = firstWords(path, progress);
    auto const has = [&words](char const* word) { return words.count(word) != 0; };
    if (!has("v"))
        throw ImportError("it is no OBJ file of a surface: no line of it is a point (v)");
    ObjContent content;
    content.hasLinesOrPoints = has("l") || has("p");
    for (char const* const word : {"curv", "curv2", "surf"}) {
        if (has(word))
            content.leftOut += (content.leftOut.empty() ? "" : ", ") + std::string(word);
    }
    return content;
}

} // namespace veldraw::app
