#include "operations/Script.h"

#include <algorithm>

namespace veldraw::operations {

namespace {

constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

void refuseZeroBytes(std::string const& line, int number)
{
    if (line.find('\0') != std::string::npos)
        throw CommandError("A script is a text; this line has a zero byte.", {number, 1});
}

std::string withoutCarriageReturn(std::string line)
{
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

} // namespace

std::vector<Command> readScript(std::string const& text)
{
    std::vector<Command> commands;
    std::size_t at = text.compare(0, 3, byteOrderMark) == 0 ? 3 : 0;
    for (int number = 1; at < text.size(); ++number) {
        std::size_t const end = std::min(text.find('\n', at), text.size());
        std::string const line = withoutCarriageReturn(text.substr(at, end - at));
        refuseZeroBytes(line, number);
        if (auto command = readCommand(line, number))
            commands.push_back(std::move(*command));
        at = end + 1;
    }
    return commands;
}

} // namespace veldraw::operations
