#pragma once

#include "tests/tour/TourContext.h"

#include <vector>

namespace veldraw::tests {

/// Makes a surface of heights that were surveyed on an island, without its shore and with it; smooths it, mirrors it, and goes back
/// to the start.
class TriangulationStation
{
public:
    /// @param file the sample of the island
    TriangulationStation(TourContext& context, QString file);

    void run();

private:
    void open();
    void triangulateTheMarks();
    void triangulateWithinTheShore();
    void smooth();
    void mirror();
    void undoAll();
    void close(QDialog& dialog);

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
