#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Makes a star of six bars out of one, by keyboard, and takes it back.
class AxialDuplicationStation
{
public:
    explicit AxialDuplicationStation(TourContext& context);
    void run();

private:
    void duplicate();
    void checkCopies();
    void undoAndRedo();

    TourContext& m_tour;
    QString m_namesAtStart;
    int m_countAtStart;
};

} // namespace veldraw::tests
