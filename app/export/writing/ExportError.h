#pragma once

#include <stdexcept>

namespace veldraw::app {

/// A file could not be written; what stood there before is as it was. The text names the file and the reason, UTF-8.
class ExportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Nothing was written, since that would have replaced more than the file that the user asked for. The text says what.
class WouldReplaceMore : public ExportError
{
public:
    using ExportError::ExportError;
};

} // namespace veldraw::app
