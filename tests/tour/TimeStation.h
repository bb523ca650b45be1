#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Goes through the moments of the transient sample: by buttons, keys, a typed number and playing, and back by undo.
class TimeStation
{
public:
    /// @param transient the sample of two strands
    TimeStation(TourContext& context, QString transient);

    void run();

private:
    void open();
    void step();
    void typeATime();
    void play();
    void goBack();

    TourContext& m_tour;
    QString m_transient;
};

} // namespace veldraw::tests
