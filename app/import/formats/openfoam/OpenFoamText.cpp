#include "app/import/formats/openfoam/OpenFoamText.h"

#include "app/files/ImportError.h"
#include "app/files/SystemReason.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <zlib.h>

namespace veldraw::app {

namespace {

constexpr std::size_t bytesAtOnce = std::size_t{1} << 20;
constexpr std::size_t longestInclude = 4096; // of one that includes a file

struct CloseFile
{
    void operator()(gzFile_s* file) const { ::gzclose(file); }
};

// Behind any of the words "#include", "#sinclude", "#includeIfPresent", which stand in front of a name in quotes.
void addNames(std::string const& text, std::size_t end, std::vector<std::string>& names)
{
    for (std::size_t at = text.find("include"); at < end; at = text.find("include", at + 1)) {
        std::size_t const line = std::min(text.find('\n', at), text.size());
        std::size_t const first = text.find('"', at);
        std::size_t const last = first < line ? text.find('"', first + 1) : std::string::npos;
        bool const isWord = at > 0 && (text[at - 1] == '#' || (at > 1 && text[at - 1] == 's' && text[at - 2] == '#'));
        if (isWord && last < line)
            names.push_back(text.substr(first + 1, last - first - 1));
    }
}

} // namespace

std::vector<std::string> includesIn(std::string const& path, kernel::Progress const& progress)
{
    std::unique_ptr<gzFile_s, CloseFile> const file(::gzopen(path.c_str(), "rbe"));
    if (!file)
        throw ImportError("\"" + path + "\": " + systemReason(errno));
    std::vector<std::string> names;
    std::string text;
    for (bool isAtEnd = false; !isAtEnd;) {
        progress.check();
        std::size_t const kept = text.size();
        text.resize(kept + bytesAtOnce);
        int const count = ::gzread(file.get(), text.data() + kept, static_cast<unsigned int>(bytesAtOnce));
        text.resize(kept + static_cast<std::size_t>(std::max(count, 0)));
        isAtEnd = count < static_cast<int>(bytesAtOnce);
        std::size_t const end = isAtEnd ? text.size() : text.size() - longestInclude;
        addNames(text, end, names);
        // A word just before the end would be found twice with the letter in front of it left, and not at all without.
        text.erase(0, end - 2);
    }
    return names;
}

} // namespace veldraw::app
