#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/BlankedZones.h"
#include "kernel/data/DataSet.h"
#include "kernel/frames/ContourColours.h"
#include "kernel/frames/Cut.h"
#include "kernel/frames/LineMap.h"
#include "kernel/frames/LinePlotAxes.h"

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Position of the top left corner and size on the paper, in inches.
struct Rectangle
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    /// Whether a frame can be there: all numbers are finite and the size is not negative.
    bool isPlace() const
    {
        bool const isFinite = std::isfinite(x) && std::isfinite(y) && std::isfinite(width) && std::isfinite(height);
        return isFinite && width >= 0.0 && height >= 0.0;
    }
};

inline bool operator==(Rectangle const& a, Rectangle const& b)
{
    auto const same = [](double left, double right) { return !(left < right) && !(right < left); };
    return same(a.x, b.x) && same(a.y, b.y) && same(a.width, b.width) && same(a.height, b.height);
}

/// A window on a data set: a plot type, the variables on its axes, what is drawn and how.
///
/// Variables are kept by identifier. The axis of a deleted variable is unassigned; undo assigns the variable again.
struct Frame
{
    Frame(std::string frameName, Rectangle frameRectangle);

    /// Numbers of the variables on the axes X, Y, Z of the present plot type, 0 = unassigned; Z is 0 in 2D.
    /// Line and sketch plots answer with the 3D assignments.
    std::array<int, 3> axisVariables() const;

    /// Number of the variable assigned to a letter of X, Y, Z (present plot type), U, V, W or C (contour), 0 = none.
    int variableNumber(char assignment) const;

    /// The enabled zones that a field plot shows at its solution time; none without a data set. @throws std::bad_alloc
    NumberSet zonesInSight() const;

    /// Numbers of the variables whose values a field plot of the present type draws; none for other types. @throws std::bad_alloc
    NumberSet drawnVariables() const;

    /// What is hidden of a zone in a field plot, by its own marks and by the value blanking; null when nothing is.
    /// @param zone one-based number of a zone that exists. @throws std::bad_alloc
    std::shared_ptr<Blanking const> blankingOf(int zone) const
    {
        return m_blankedZones->of(*dataSet, zone, valueBlanking);
    }

    /// Range of a variable in what is not hidden of a zone, as Zone::range() tells it. @param zone, variable numbers that exist
    /// @throws std::bad_alloc
    ValueRange rangeOf(int zone, int variable) const
    {
        return m_blankedZones->rangeOf(*dataSet, zone, variable, valueBlanking);
    }

    /// Whether a field plot shows the contour variable, as colours or as lines.
    bool hasContour() const { return showContour || contourLines; }

    UniqueId id;
    std::string name;
    Rectangle rectangle;
    PlotType_e plotType = PlotType_Sketch;
    std::shared_ptr<DataSet> dataSet; ///< may be null
    std::array<UniqueId, 2> axes2D{};
    std::array<UniqueId, 3> axes3D{};
    std::array<UniqueId, 3> vector{}; ///< U, V, W
    UniqueId contourVariable = 0;
    bool showContour;        ///< this and the next ones are plotOptions(), which tell their values at first
    bool contourInBands;     ///< of field plots: one colour between round steps of the contour variable
    bool contourWithoutEnds; ///< of field plots: the colours leave out the outermost values (see ContourRange)
    bool contourLog;         ///< of field plots: equal ratios of the contour variable are equal steps of colour
    bool contourLines;       ///< of field plots: lines at round steps of the contour variable
    bool contourLabels;      ///< of field plots: numbers at these lines
    bool showVectors;        ///< of field plots: arrows for the vector
    bool equalVectors;       ///< of field plots: these arrows are all of one length
    bool showMesh;
    bool showCuts;                 ///< of field plots: cuts are seen, in the place of the outer surfaces of volumes
    bool stretchAxes;              ///< of field plots: each axis has a scale of its own, so that they fill the frame
    bool parallelProjection;       ///< of plots in space: without perspective
    bool showLines;                ///< of line plots
    bool showSymbols;              ///< of line plots
    bool logX;                     ///< of line plots: the horizontal axis is logarithmic
    bool logY;                     ///< of line plots: the vertical one
    bool logY2;                    ///< of line plots: the one at the right side
    ContourColours contourColours; ///< of field plots
    ValueBlanking valueBlanking;   ///< of field plots
    double solutionTime = 0.0;     ///< of field plots: the moment at which strands are seen (see zonesAt()), finite
    std::vector<Cut> cuts;         ///< of field plots
    std::vector<LineMap> lineMaps;
    LinePlotAxes lineAxes; ///< of line plots
    AuxiliaryData auxiliaryData;

private:
    std::shared_ptr<BlankedZones> m_blankedZones; // known for the present value blanking
};

} // namespace veldraw::kernel
