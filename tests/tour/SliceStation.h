#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Looks into the duct and the bar: adds slices, a plane and an iso-surface, moves them by mouse and keys, hides and deletes them, looks at
/// them from the sides, and goes back.
class SliceStation
{
public:
    /// @param duct the sample of ordered zones; @param bar that of tetrahedra
    SliceStation(TourContext& context, QString duct, QString bar);

    void run();

private:
    void open(QString const& file);
    void addByMenu(char const* step, int mnemonic);
    void sliceTheDuct();
    void moveTheSlice();
    void showSurfacesAgain();
    void lookFromTheSides();
    void cutTheBar();
    void undoAll();

    TourContext& m_tour;
    QString m_duct;
    QString m_bar;
};

} // namespace veldraw::tests
