#include "app/plot/ContourFlood.h"

#include "app/plot/ContourBands.h"
#include "app/plot/ContourRange.h"
#include "app/plot/ShownZones.h"
#include "app/plot/ZoneRanges.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

kernel::ValueRange logarithmsOf(kernel::ValueRange const& range)
{
    double const lowest = -std::numeric_limits<double>::infinity();
    return {range.state, range.min > 0.0 ? std::log10(range.min) : lowest, std::log10(range.max)};
}

// Gives the limits of the colours, and in ends those of all values, both as logarithms for logarithmic colours.
kernel::ValueRange limitsOf(FieldLook& look, kernel::Frame const& frame, std::vector<int> const& zones, int variable,
                            kernel::ValueRange& ends)
{
    if (frame.contourLog) {
        kernel::ValueRange const above =
            ContourRange::positive(*frame.dataSet, zones, variable, frame.contourWithoutEnds);
        look.isLog = above.isValid() && above.min < above.max;
        look.isLogRefused = !look.isLog;
        look.hasUncoloured = look.isLog && ends.min <= 0.0;
        if (look.isLog) {
            ends = logarithmsOf(ends);
            return logarithmsOf(above);
        }
    }
    return frame.contourWithoutEnds ? ContourRange::withoutEnds(*frame.dataSet, zones, variable) : ends;
}

} // namespace

void ContourFlood::set(FieldLook& look, kernel::Frame const& frame, std::vector<int> const& zones)
{
    int const variable = frame.variableNumber('C');
    kernel::ValueRange ends = ZoneRanges::of(*frame.dataSet, zones, variable);
    bool const isLoaded =
        std::any_of(zones.begin(), zones.end(), [&](int zone) { return hasValues(*frame.dataSet, zone, variable); });
    if (!frame.showContour || !isLoaded || !ends.isValid())
        return;
    kernel::ValueRange const flood = limitsOf(look, frame, zones, variable, ends);
    look.contourVariable = variable;
    look.contourMin = flood.min;
    look.contourMax = flood.max;
    if (frame.contourInBands) {
        ContourBands const bands =
            look.isLog ? ContourBands::ofPowers(flood.min, flood.max) : ContourBands::over(flood.min, flood.max);
        look.contourMin = bands.min;
        look.contourMax = bands.max;
        look.contourBands = bands.count;
    }
    look.withoutEnds = frame.contourWithoutEnds && (ends.min < look.contourMin || ends.max > look.contourMax);
}

QStringList ContourFlood::remarks(FieldLook const& look)
{
    auto const tr = [](char const* text) { return QCoreApplication::translate("ContourFlood", text); };
    QStringList remarks;
    if (look.withoutEnds)
        remarks << tr("Colours without the outermost values");
    if (look.hasUncoloured)
        remarks << tr("No colour for values of 0 and below");
    if (look.isLogRefused)
        remarks << tr("Colours not logarithmic, as no two different values above 0 are known");
    return remarks;
}

} // namespace veldraw::app
