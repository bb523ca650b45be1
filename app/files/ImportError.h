#pragma once

#include <stdexcept>

namespace veldraw::app {

/// A file could not be read; nothing of it has come into being. The text names the file and the reason, UTF-8.
class ImportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace veldraw::app
