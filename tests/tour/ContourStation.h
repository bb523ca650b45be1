#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Chooses the colours of a contour in the "Plot" panel: another map, a range that is typed, the values shown again; and copies what a
/// dialog would do as a command.
class ContourStation
{
public:
    ContourStation(TourContext& context, QString file);

    void run();

private:
    void open();
    void chooseMap();
    void typeARange();
    void goBack();
    void drawLines();
    void drawArrows();
    void copyACommand();

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
