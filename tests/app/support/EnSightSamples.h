#pragma once

#include "tests/app/support/FileMutation.h"

#include <string>

namespace veldraw::tests {

enum class EnSightForm
{
    Text,
    CBinary,
    FortranBinary
};

/// A case as an EnSight program would write it: part 1 "Wing ü (1)" of two triangles and a quadrilateral, part 2 "box" of size x size x size points.
/// At the moment n, of which there are @p moments with the times 0.5, 1.5 and so on, point p of part k has the pressure 1000 k + p + 0.25 n and the
/// velocity (p, 2 p, 3 p + n); element c of part 1 the quality c - n.
SoundFile enSightCase(int moments, int size, EnSightForm form);

} // namespace veldraw::tests
