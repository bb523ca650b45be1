#pragma once

#include "app/import/formats/ensight/EnSightInput.h"
#include "kernel/base/Progress.h"

#include <cstdint>
#include <map>
#include <string>

namespace veldraw::app {

/// The numbers of points and elements in a geometry of an EnSight case.
struct EnSightShape
{
    struct Part
    {
        std::int64_t points = 0;
        std::map<std::string, std::int64_t> elements; ///< of each kind, by its word; of a block by "block"
    };

    /// Goes through a whole geometry. VTK's reader takes one that ends too early for a shorter one, or never ends.
    /// @throws ImportError where it is damaged; kernel::Interrupted
    static EnSightShape of(std::string const& path, kernel::Progress const& progress);

    EnSightInput::Form form = EnSightInput::Form::Text;
    std::map<std::int32_t, Part> parts; ///< by their numbers
};

/// Holds a file with the values of a variable against the geometry that they belong to.
/// @param components of the variable, which stand one after the other
/// @throws ImportError where it lacks values or has those of something else; kernel::Interrupted
void checkEnSightValues(std::string const& path, EnSightShape const& shape, int components,
                        kernel::Progress const& progress);

} // namespace veldraw::app
