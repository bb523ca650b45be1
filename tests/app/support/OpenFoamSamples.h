#pragma once

#include "tests/app/support/FileMutation.h"

#include <string>

namespace veldraw::tests {

enum class OpenFoamForm
{
    Text,
    Binary
};

/// A case as an OpenFOAM program would write it: a row of @p cells unit cubes along X, of which the last one is a polyhedron, as two triangles end it. Its
/// patches are "inlet" (1 face), "outlet" (2) and "walls" (4 for each cell). At the moment n, of which there are @p moments with the times 0, 0.5 and so on,
/// cell c has the pressure p = 10 c + n, the velocity U = (c, 2 c, 3 c + n), the temperature T = 300 + n and the stress R = 10 c + 1 to 10 c + 6 in the
/// order XX, XY, XZ, YY, YZ, ZZ; point i has the pointValue 0.5 i + n. At the inlet p = 7 + n, at face f of the walls p = 100 + f, at the outlet
/// that of the cell.
SoundFile openFoamCase(int moments, int cells, OpenFoamForm form);

} // namespace veldraw::tests
