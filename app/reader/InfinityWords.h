#pragma once

#include <cstdint>
#include <limits>
#include <string>

namespace veldraw::app {

/// Writes "Infinity", as some programs do, the way VTK's readers know it, "inf", in the text of a VTK XML file while that is read. No byte
/// changes its place. What stands in tags is left as it is, and so are appended data, which need not be text.
class InfinityWords
{
public:
    /// Goes through a part of the file that ends where a word does. The first ones are to come in order, up to the appended data.
    /// @param bytes    the part, which is altered
    /// @param position of its first byte in the file
    void shorten(char* bytes, std::size_t size, std::int64_t position);

private:
    void lookForAppendedData(char const* bytes, std::size_t size, std::int64_t position);

    std::int64_t m_end = std::numeric_limits<std::int64_t>::max(); // of the text, as far as it is known
    std::string m_last;                                            // bytes before the next part that comes in order
    std::int64_t m_next = 0;
};

} // namespace veldraw::app
