#pragma once

#include <exception>

namespace veldraw::kernel {

/// Ends an operation that the user has cancelled. It never leaves the kernel's C functions.
class Interrupted : public std::exception
{
public:
    char const* what() const noexcept override { return "The operation was cancelled."; }
};

} // namespace veldraw::kernel
