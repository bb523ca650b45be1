#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Transforms a time series four times: with both places of the plot, with results replaced and kept. Looks for the tones that the
/// series was made of, goes back to the start and forth again.
class FourierStation
{
public:
    /// @param file the sample of the time series
    FourierStation(TourContext& context, QString file);

    void run();

private:
    void open();
    QDialog* openDialog();
    void transformOverTheCorner(QDialog& dialog);
    void transformAgainSideBySide(QDialog& dialog);
    void transformBesideTheOldResults(QDialog& dialog);
    void undoAllAndRedo();
    int undoAll();
    bool transform(char const* step, QDialog& dialog, std::size_t curves);
    void checkPeaks(char const* step);

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
