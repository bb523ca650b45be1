#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace veldraw::tests {

/// How many files this process has open, the one by which it finds out included.
inline std::size_t openFileCount()
{
    auto const all = std::filesystem::directory_iterator("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

} // namespace veldraw::tests
