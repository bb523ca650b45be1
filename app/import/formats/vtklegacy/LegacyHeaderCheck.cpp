#include "app/import/formats/vtklegacy/LegacyHeaderCheck.h"

#include "app/files/PathChecks.h"
#include "app/files/SizeCheck.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <sstream>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::size_t longestKeywordLine = 256; // of those with keywords

std::string upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); });
    return text;
}

bool isCountKeyword(std::string const& word)
{
    static std::array<char const*, 14> const keywords{
        "POINTS",   "POINT_DATA", "CELL_DATA",     "CELLS",         "CELL_TYPES",    "VERTICES", "LINES",
        "POLYGONS", "METADATA",   "X_COORDINATES", "Y_COORDINATES", "Z_COORDINATES", "OFFSETS",  "CONNECTIVITY"};
    return word == "TRIANGLE_STRIPS" || std::find(keywords.begin(), keywords.end(), word) != keywords.end();
}

bool isTypeName(std::string const& word)
{
    static std::array<char const*, 13> const types{"bit",       "unsigned_char", "char",  "unsigned_short", "short",
                                                   "int",       "unsigned_int",  "long",  "unsigned_long",  "float",
                                                   "vtkidtype", "double",        "string"};
    return std::find(types.begin(), types.end(), word) != types.end();
}

double numberOf(std::string const& word)
{
    char* end = nullptr;
    double const value = std::strtod(word.c_str(), &end);
    return end == word.c_str() ? 0.0 : value;
}

void checkLine(std::string const& line, SizeCheck& size)
{
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; words.size() < 5 && stream >> word;)
        words.push_back(word);
    if (words.size() < 2)
        return;
    std::string const keyword = upper(words[0]);
    if (isCountKeyword(keyword))
        size.addStored(std::max(numberOf(words[1]), 0.0), 1.0, "values after " + keyword);
    if (keyword == "FIELD" && words.size() >= 3)
        size.addStored(std::max(numberOf(words[2]), 0.0), 1.0, "arrays after " + keyword);
    if (keyword == "DIMENSIONS" && words.size() >= 4)
        size.addComputed(numberOf(words[1]) * numberOf(words[2]) * numberOf(words[3]), 3.0 * sizeof(double));
    if (words.size() == 4 && isTypeName(words[3]))
        size.addStored(std::max(numberOf(words[1]) * numberOf(words[2]), 0.0), 1.0, "values of \"" + words[0] + "\"");
    if (keyword == "SCALARS" && words.size() >= 4)
        size.addStored(std::max(numberOf(words[3]), 0.0), 1.0, "components of \"" + words[1] + "\"");
}

} // namespace

void checkLegacyHeader(std::string const& path, std::int64_t fileSize, kernel::Progress const& progress)
{
    SizeCheck size(fileSize, false);
    std::ifstream file = openToRead(path);
    std::string line;
    bool tooLong = false;
    auto const flush = [&] {
        if (!tooLong && !line.empty() && std::isalpha(static_cast<unsigned char>(line.front())))
            checkLine(line, size);
        line.clear();
        tooLong = false;
    };
    std::int64_t position = 0;
    for (auto* const bytes = file.rdbuf();;) {
        if (++position % bytesBetweenChecks == 0)
            progress.check();
        int const c = bytes->sbumpc();
        if (c == std::char_traits<char>::eof())
            break;
        if (c == '\n')
            flush();
        else if (line.size() < longestKeywordLine)
            line += static_cast<char>(c);
        else
            tooLong = true;
    }
    flush();
}

} // namespace veldraw::app
