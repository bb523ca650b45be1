#pragma once

#include <cstdint>
#include <string>

namespace veldraw::app {

/// What a failed call of the system means to a user who saves: "the disk is full". @param error as in errno
std::string reasonOf(int error);

/// @throws ExportError with the reason for @p error
[[noreturn]] void throwReason(int error);

/// Why a file could not be written by somebody who does not tell: asks the system once more for its room. The file is lost.
/// @param bytes about as many as the file was to have
std::string whyNotWritten(std::string const& path, std::int64_t bytes);

} // namespace veldraw::app
