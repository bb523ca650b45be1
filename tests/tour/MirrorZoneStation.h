#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Mirrors a zone about a plane by mouse and another one about an axis by keyboard, and takes both back.
class MirrorZoneStation
{
public:
    explicit MirrorZoneStation(TourContext& context);
    void run();

private:
    void tryWhatIsRefused();
    void mirrorInSpaceByMouse();
    void mirrorInThePlaneByKeyboard();
    void undoAndRedo();
    void askForHelp();
    QString visibleChoices() const;

    TourContext& m_tour;
    QString m_namesAtStart;
    int m_countAtStart;
};

} // namespace veldraw::tests
