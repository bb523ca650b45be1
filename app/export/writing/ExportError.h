#pragma once

#include <stdexcept>

namespace veldraw::app {

/// A file could not be written; what stood there before is as it was. The text names the file and the reason, UTF-8.
class ExportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace veldraw::app
