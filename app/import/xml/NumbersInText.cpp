#include "app/import/xml/NumbersInText.h"

#include "app/files/PathChecks.h"

#include <cstdlib>
#include <fstream>

namespace veldraw::app {

namespace {

constexpr std::int64_t numbersBetweenChecks = 1 << 16;

bool isNumber(std::string const& word)
{
    char* end = nullptr;
    std::strtod(word.c_str(), &end);
    bool const isHexadecimal = word.find_first_of("xX") != std::string::npos; // which others don't read
    return !word.empty() && *end == '\0' && !isHexadecimal;
}

} // namespace

std::int64_t countNumbersInText(std::string const& path, std::int64_t position, std::int64_t most,
                                kernel::Progress const& progress)
{
    std::ifstream file = openToRead(path);
    file.seekg(position);
    std::int64_t count = 0;
    bool isInTag = false;
    for (std::string word; !isInTag && count < most && file >> word; ++count) {
        std::size_t const tag = word.find('<');
        isInTag = tag != std::string::npos;
        if (!isNumber(word.substr(0, tag)))
            return count;
        if (count % numbersBetweenChecks == 0)
            progress.check();
    }
    return count;
}

} // namespace veldraw::app
