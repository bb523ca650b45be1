#include "app/handover/ByteWriter.h"

#include "app/handover/Utf8.h"

namespace veldraw::app {

void ByteWriter::text(std::string_view value)
{
    number(static_cast<std::uint64_t>(value.size()));
    m_bytes.append(value);
}

void ByteWriter::texts(std::vector<std::string> const& values)
{
    number(static_cast<std::uint64_t>(values.size()));
    for (std::string const& value : values)
        text(value);
}

std::string_view ByteReader::take(std::size_t size)
{
    if (size > m_bytes.size())
        throw Nonsense("it ends too early");
    std::string_view const taken = m_bytes.substr(0, size);
    m_bytes.remove_prefix(size);
    return taken;
}

bool ByteReader::flag()
{
    auto const value = number<std::uint8_t>();
    if (value > 1)
        throw Nonsense("neither yes nor no");
    return value == 1;
}

std::string ByteReader::text(std::size_t longest)
{
    auto const size = number<std::uint64_t>();
    if (size > longest)
        throw Nonsense("a text without end");
    return std::string(take(static_cast<std::size_t>(size)));
}

std::string ByteReader::name(std::size_t longest)
{
    std::string result = text(longest);
    if (!isUtf8(result) || result.find('\0') != std::string::npos)
        throw Nonsense("a name that is no text");
    return result;
}

std::vector<std::string> ByteReader::names(std::size_t longest)
{
    std::vector<std::string> result(count(sizeof(std::uint64_t)));
    for (std::string& one : result)
        one = name(longest);
    return result;
}

std::size_t ByteReader::count(std::size_t bytesOfEach)
{
    auto const value = number<std::uint64_t>();
    if (value > m_bytes.size() / bytesOfEach)
        throw Nonsense("more things than there is room for");
    return static_cast<std::size_t>(value);
}

void ByteReader::expectEnd() const
{
    if (!m_bytes.empty())
        throw Nonsense("more than was to be said");
}

} // namespace veldraw::app
