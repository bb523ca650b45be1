#pragma once

#include <stdexcept>

namespace veldraw::app {

/// Another process said what it cannot mean: it may be damaged, or want to do harm.
class Nonsense : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace veldraw::app
