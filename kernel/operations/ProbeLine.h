#pragma once

#include "kernel/data/ValuePlaces.h"
#include "kernel/mesh/CellSearch.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/FrameOperation.h"

namespace veldraw::kernel {

/// Appends a zone of points along a straight line, with what all variables have there in the cells of some zones. "Probe Line"; event of
/// a new variable where there is none yet for the distance, event 4 with the zone.
///
/// The points are at equal distances, the ends included. A point gets its values from the cell that contains it: the first zone's, then
/// the lowest one; values at points are mixed, those of cells are taken as they are. Where no cell is, and where a variable is passive in
/// the zone, it is no number. Axis variables are the coordinates of the points, and the variable "Distance along Line", which is added
/// where there is none of that name, is the way from the first one. A variable that is passive in all zones is so in the new one. Values
/// are as wide as they take to hold those of the zones, no whole numbers.
///
/// Refused: no 2D or 3D plot; no zones, zones that do not exist, without areas and volumes, or with volumes in a 2D plot; an axis without a
/// variable or with its values at the cells; ends that are not finite, or at the same place; fewer than 2 points, or more than mostPoints.
class ProbeLine : public FrameDataOperation
{
public:
    static constexpr int mostPoints = 10'000'000;
    static constexpr char distanceName[] = "Distance along Line";

    /// @param frame whose axes tell where the points are; @param zones one-based numbers; @param from, to coordinates along these axes; in a
    ///        2D plot the third one counts for nothing
    ProbeLine(UniqueId frame, NumberSet zones, Point const& from, Point const& to, int points)
        : FrameDataOperation(frame)
        , m_zones(std::move(zones))
        , m_from(from)
        , m_to(to)
        , m_points(points)
    {
    }

    /// The zones that a line through a field plot can be probed in: those in sight with cells of the plot's dimensions. @throws std::bad_alloc
    static NumberSet zonesFor(Frame const& frame);

    /// One-based number of the variable that a data set has for the distance along lines; 0 for none.
    static int distanceVariable(DataSet const& dataSet);

    std::string name() const override { return "Probe Line"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_report; }

private:
    using Values = std::vector<std::shared_ptr<Buffer>>; ///< one a variable; null where it is passive

    std::size_t dimensions() const { return frame()->plotType == PlotType_Cartesian2D ? 2 : 3; }
    std::string reasonAgainstLine() const;
    std::string reasonAgainstZone(int zone) const;
    double length() const;
    int distanceVariable() const { return distanceVariable(dataSet()); }
    ValuePlaces placesOf(Values const& values) const;
    Values allocate() const;
    void setPlaces(Values& values) const;
    std::int64_t fill(Values& values, CellSearch const& search, PointBins const& bins,
                      std::vector<ZoneCells> const& cells, Progress& progress) const;
    std::string report(std::int64_t outside) const;

    NumberSet m_zones;
    Point m_from;
    Point m_to;
    int m_points;
    std::shared_ptr<DeferredLoad> m_load;
    Values m_values; ///< of all variables, and last of that for the distance where it is new
    std::string m_report;
};

} // namespace veldraw::kernel
