#pragma once

#include "tests/tour/TourContext.h"

#include <vector>

namespace veldraw::tests {

/// Brings the rainfall at gauges, and that of a coarse forecast, to a map without values: by inverse distance, by kriging and
/// linearly.
class InterpolationStation
{
public:
    /// @param file the sample of rainfall
    InterpolationStation(TourContext& context, QString file);

    void run();

private:
    /// The object names of an interpolation dialog's controls.
    struct Controls
    {
        char const* sources;
        char const* variables;
        char const* destination;
    };

    void open();
    void byInverseDistance();
    void byKriging();
    void linearly();
    void tryWhatIsRefused(QDialog& dialog, Controls const& controls);

    /// Clicks a source zone and the rainfall, and chooses the map or another destination by keys.
    void select(QDialog& dialog, Controls const& controls, int source, int destination);
    void chooseDestination(QDialog& dialog, Controls const& controls, int destination);
    void type(QDialog& dialog, char const* field, QString const& text);
    void undo(char const* step, QString const& operation);
    void close(QDialog& dialog);

    /// The rainfall of a zone; empty as long as there is none.
    static std::vector<double> rainfall(int zone);
    /// How far the map is, at most, from the forecast between its rows and columns; the constant counts outside of it.
    static double distanceFromForecast(double constant);

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
