#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Duplicates two zones by the keyboard alone, takes it back and does it again.
class DuplicateZoneStation
{
public:
    explicit DuplicateZoneStation(TourContext& context);
    void run();

private:
    void duplicateByKeyboard();
    void undoAndRedo();

    TourContext& m_tour;
    QString m_namesAtStart;
    int m_countAtStart;
};

} // namespace veldraw::tests
