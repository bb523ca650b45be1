#pragma once

#include "tests/tour/TourContext.h"

namespace veldraw::tests {

/// Goes through the moments of the transient sample: by buttons, keys, a typed number and playing, and back by undo.
class TimeStation
{
public:
    /// @param transient the sample of two strands; @param out folder for the film
    TimeStation(TourContext& context, QString transient, QString const& out);

    void run();

private:
    void open();
    void step();
    void typeATime();
    void play();
    void goBack();
    void saveFilm();

    TourContext& m_tour;
    QString m_transient;
    QString m_film;
};

} // namespace veldraw::tests
