#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace veldraw::app {

/// An array as numpy.save() writes it. Form: "numpy.lib.format" in NumPy's reference.
struct NumpyArray
{
    /// Reads the header. @param bytes of a whole ".npy" file, which live as long as this
    /// @throws ImportError where it is damaged, or shorter than its header says
    static NumpyArray of(std::string_view bytes);

    /// The values in the order of a zone: the last axis is I, the one before it J, and the one before that K.
    /// @throws ImportError, kernel::Interrupted
    std::shared_ptr<kernel::Buffer> values(kernel::Progress& progress) const;

    std::int64_t count() const { return size[0] * size[1] * size[2]; }

    std::string whyNot; ///< why it is not read, in words that go on after its name; empty where it is
    std::array<std::int64_t, 3> size{1, 1, 1}; ///< along I, J and K
    char kind = 'f';                           ///< 'b', 'i', 'u' or 'f'
    int width = 8;                             ///< bytes of a number
    bool isBigEndian = false;
    bool isFortran = false; ///< the first axis is the one along which the values follow each other
    std::string_view data;
};

} // namespace veldraw::app
