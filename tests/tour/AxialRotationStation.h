#pragma once

#include "tests/tour/TourContext.h"
#include "tests/tour/ZoneProbe.h"

namespace veldraw::tests {

/// Rotates a zone by a quarter about the X axis, with its vector, and takes it back.
class AxialRotationStation
{
public:
    explicit AxialRotationStation(TourContext& context);
    void run();

private:
    void tryWhatIsRefused();
    void rotate();
    void undoAndRedo();

    TourContext& m_tour;
    ZoneProbe m_atStart;
};

} // namespace veldraw::tests
