#pragma once

#include "kernel/base/Progress.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string>

namespace veldraw::app {

/// Binary values that stand as base64 in a VTK XML file. They are decoded as VTK's reader does it, so that what it would not get is known
/// before it is asked: it ends at the first letter that does not belong there, also at a blank or the end of a line, and leaves the
/// values behind it as they were in memory.
class Base64Text
{
public:
    using Triplet = std::array<unsigned char, 3>;

    /// @param position of the first letter, or of blanks before it
    Base64Text(std::string const& path, std::int64_t position);

    /// Decodes the next four letters. @param bytes those that padding stands for are 0
    /// @return how many bytes they stand for; fewer than three end the text, 0 where they cannot be decoded
    int next(Triplet& bytes);

    /// How many bytes can be decoded behind a number in front, which may be padded by itself.
    /// @param bytesOfNumber 4 or 8
    /// @param most          counting ends when there are as many
    /// @throws kernel::Interrupted
    std::int64_t bytesBehind(int bytesOfNumber, std::int64_t most, kernel::Progress const& progress);

private:
    int letter() { return m_file.rdbuf()->sbumpc(); }

    std::ifstream m_file;
};

} // namespace veldraw::app
