#include "app/plot/ContourFlood.h"

#include "app/plot/AxisTicks.h"
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

// As they are typed, or those of the values, without the outermost ones if they are left out.
kernel::ValueRange logarithmicLimits(kernel::Frame const& frame, std::vector<int> const& zones, int variable)
{
    kernel::ContourColours const& colours = frame.contourColours;
    if (!colours.isFixed)
        return ContourRange::positive(frame, zones, variable, frame.contourWithoutEnds);
    return colours.min > 0.0 ? kernel::ValueRange{kernel::ValueRange::State::Exact, colours.min, colours.max}
                             : kernel::ValueRange{};
}

// Gives the limits of the colours, and in ends those of all values, both as logarithms for logarithmic colours.
kernel::ValueRange limitsOf(FieldLook& look, kernel::Frame const& frame, std::vector<int> const& zones, int variable,
                            kernel::ValueRange& ends)
{
    if (frame.contourLog) {
        kernel::ValueRange const above = logarithmicLimits(frame, zones, variable);
        look.isLog = above.isValid() && above.min < above.max;
        look.isLogRefused = !look.isLog;
        look.hasUncoloured = look.isLog && ends.min <= 0.0;
        if (look.isLog) {
            ends = logarithmsOf(ends);
            return logarithmsOf(above);
        }
    }
    kernel::ContourColours const& colours = frame.contourColours;
    if (colours.isFixed)
        return {kernel::ValueRange::State::Exact, colours.min, colours.max};
    return frame.contourWithoutEnds ? ContourRange::withoutEnds(frame, zones, variable) : ends;
}

// Between round numbers, which may lie beyond limits that are not typed, or as many bands as are wanted between the limits.
void setBands(FieldLook& look, int levels)
{
    constexpr int usual = 10;
    ContourBands bands = look.isLog ? ContourBands::ofPowers(look.contourMin, look.contourMax)
                                    : ContourBands::over(look.contourMin, look.contourMax);
    bool const areWider = bands.min < look.contourMin || bands.max > look.contourMax;
    if (bands.count > 0 && (levels > 0 || (look.isFixed && areWider)))
        bands = {look.contourMin, look.contourMax, levels > 0 ? levels : usual};
    look.contourMin = bands.min;
    look.contourMax = bands.max;
    look.contourBands = bands.count;
}

// At the borders of the bands, or of those that the contour would have, but for the lowest and the highest value.
void setLines(FieldLook& look, kernel::Frame const& frame)
{
    FieldLook banded = look;
    if (banded.contourBands == 0)
        setBands(banded, frame.contourColours.levels);
    if (banded.contourBands == 0)
        return;
    AxisTicks const borders =
        AxisTicks::ofBands(banded.contourMin, banded.contourMax, banded.contourBands, banded.isLog);
    look.labelLines = frame.contourLabels;
    for (std::size_t n = 0; n < borders.values.size(); ++n) {
        // Halves: the whole difference may be beyond the largest number.
        double const share =
            (0.5 * borders.values[n] - 0.5 * look.contourMin) / (0.5 * look.contourMax - 0.5 * look.contourMin);
        bool const isEnd = share == 0.0 || share == 1.0;
        if (share < 0.0 || share > 1.0 || (isEnd && !look.isBeyond && !look.withoutEnds))
            continue;
        look.lineLevels.push_back(static_cast<float>(share));
        look.lineLabels.push_back(borders.labels[n]);
    }
}

} // namespace

void ContourFlood::set(FieldLook& look, kernel::Frame const& frame, std::vector<int> const& zones)
{
    int const variable = frame.variableNumber('C');
    kernel::ValueRange ends = ZoneRanges::of(frame, zones, variable);
    bool const isLoaded =
        std::any_of(zones.begin(), zones.end(), [&](int zone) { return hasValues(*frame.dataSet, zone, variable); });
    if (!frame.hasContour() || !isLoaded || !ends.isValid())
        return;
    kernel::ValueRange const flood = limitsOf(look, frame, zones, variable, ends);
    look.contourVariable = variable;
    look.isFlooded = frame.showContour;
    look.contourMin = flood.min;
    look.contourMax = flood.max;
    look.contourMap = frame.contourColours.map;
    look.isFixed = frame.contourColours.isFixed;
    if (frame.contourInBands)
        setBands(look, frame.contourColours.levels);
    bool const isBeyond = ends.min < look.contourMin || ends.max > look.contourMax;
    look.withoutEnds = frame.contourWithoutEnds && !look.isFixed && isBeyond;
    look.isBeyond = look.isFixed && isBeyond;
    if (!frame.contourLines)
        return;
    setLines(look, frame);
    look.hasUnlined = std::any_of(zones.begin(), zones.end(), [&](int zone) {
        kernel::Field const* const field = frame.dataSet->field(zone, variable);
        return field && !field->isPassive() && field->location() == ValueLocation_CellCentered;
    });
}

QStringList ContourFlood::remarks(FieldLook const& look)
{
    auto const tr = [](char const* text) { return QCoreApplication::translate("ContourFlood", text); };
    QStringList remarks;
    if (look.withoutEnds)
        remarks << tr("Colours without the outermost values");
    if (look.isBeyond)
        remarks << tr("Values beyond the typed range have the colours of its ends");
    if (look.hasUncoloured)
        remarks << tr("No colour for values of 0 and below");
    if (look.hasUnlined)
        remarks << tr("No contour lines of values at cells");
    if (look.isLogRefused && look.isFixed)
        remarks << tr("Colours not logarithmic, as the typed range is not above 0");
    else if (look.isLogRefused)
        remarks << tr("Colours not logarithmic, as no two different values above 0 are known");
    return remarks;
}

} // namespace veldraw::app
