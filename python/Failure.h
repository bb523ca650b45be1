#pragma once

#include <stdexcept>

namespace veldraw::python {

/// What Python knows as veldraw.Error: something was refused or has failed, for the reason in its text. Nothing has changed then.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace veldraw::python
