#include "app/import/formats/table/TableText.h"

#include "app/files/ImportError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace veldraw::app {

void checkIsText(std::string const& start)
{
    bool const wide =
        start.size() > 1 && ((start[0] == '\xff' && start[1] == '\xfe') || (start[0] == '\xfe' && start[1] == '\xff'));
    if (wide)
        throw ImportError("it is UTF-16 text; save it as UTF-8");
    if (start.find('\0') != std::string::npos)
        throw ImportError("it is no text file");
}

char separatorOf(std::string const& start)
{
    std::array<std::pair<char, int>, 3> counts{{{'\t', 0}, {';', 0}, {',', 0}}};
    bool quoted = false;
    for (char c : start) {
        if (c == '"')
            quoted = !quoted;
        if (!quoted && (c == '\n' || c == '\r'))
            break;
        for (auto& [separator, count] : counts)
            count += !quoted && c == separator ? 1 : 0;
    }
    auto const best = std::max_element(counts.begin(), counts.end(),
                                       [](auto const& left, auto const& right) { return left.second < right.second; });
    return best->second > 0 ? best->first : ',';
}

Number toNumber(std::string const& text, double& value)
{
    char const* first = text.data();
    char const* const last = first + text.size();
    if (text.size() > 1 && *first == '+' && first[1] != '-')
        ++first;
    auto const [end, error] = std::from_chars(first, last, value);
    if (error == std::errc::result_out_of_range && end == last)
        return Number::OutOfRange;
    return error == std::errc() && end == last ? Number::Good : Number::NoNumber;
}

} // namespace veldraw::app
