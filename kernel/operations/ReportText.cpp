#include "kernel/operations/ReportText.h"

#include <algorithm>
#include <cstdio>

namespace veldraw::kernel {

std::string quoted(std::string const& name)
{
    return "\"" + name + "\"";
}

std::string listed(std::vector<std::string> const& names)
{
    constexpr std::size_t most = 8;
    std::string text;
    for (std::size_t at = 0; at < std::min(names.size(), most); ++at) {
        text += (at > 0 ? ", " : "") + quoted(names[at]);
    }
    return names.size() > most ? text + " and " + std::to_string(names.size() - most) + " more" : text;
}

std::string twoDigits(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2g", number);
    return text;
}

std::string counted(std::int64_t count, std::string const& noun, std::string const& nouns)
{
    return std::to_string(count) + " " + (count == 1 ? noun : nouns.empty() ? noun + "s" : nouns);
}

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace veldraw::kernel
