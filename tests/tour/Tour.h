#pragma once

#include "tests/tour/TourContext.h"

#include <QString>

namespace veldraw::tests {

/// Uses the program as a person would: opens samples, looks at them, runs each dialog by mouse and by keyboard, takes changes
/// back, asks for help, saves. Every step is checked against what a person would expect to see.
///
/// Each dialog has a station of its own; a new dialog is one more class and one more line in run().
class Tour
{
public:
    /// @param samples folder of the bundled samples; @param out folder for pictures and results
    /// @param deferral which values @p window loads with the files that it opens
    Tour(app::MainWindow& window, QString samples, QString out, std::atomic<app::Deferral>& deferral);

    TourReport const& run();

    /// What has been done so far.
    TourReport const& report() const { return m_tour.report; }

private:
    void removeFormerResults();
    void openSamples();
    void lookAtPlots();
    void saveResult();
    void openBar();
    void pickZone();
    int coloursOnPage();

    TourContext m_tour;
    QString m_samples;
    QString m_out;
};

} // namespace veldraw::tests
