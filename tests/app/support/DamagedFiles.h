#pragma once

#include "tests/app/support/FileMutation.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// What came of a file that was damaged in many ways.
struct DamagedOpenings
{
    int opened = 0;
    int refused = 0;
    std::vector<std::string> problems; ///< where a file was neither opened with zones nor refused by its name
};

/// Opens a file with many damages, one after the other: each second one ends early, at places all over the file; the others have one to eight
/// bytes that are others. The same ones each time.
/// @param victim which of the others is damaged; empty for the file that is opened
DamagedOpenings openDamaged(SoundFile const& file, int count, std::string const& victim = {});

/// Expects that a file opens as it is, and that of @p count damaged ones each opens or is refused by its name.
void expectToStandDamage(SoundFile const& file, int count, std::string const& victim = {});

} // namespace veldraw::tests
