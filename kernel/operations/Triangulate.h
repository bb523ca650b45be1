#pragma once

#include "kernel/base/ZeroedArray.h"
#include "kernel/data/ValuePlaces.h"
#include "kernel/data/ZoneAddition.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/FrameOperation.h"
#include "kernel/operations/TriangulatedField.h"
#include "kernel/operations/TriangulationReport.h"

namespace veldraw::kernel {

/// Appends a zone of triangles between the points of zones in the plane of a 2D plot: their Delaunay triangulation.
/// "2D Triangulation"; event 4 with the new zone.
///
/// Boundary zones are lines whose edges become edges of triangles. Those that are loops (findLoops()) cut away what is not
/// within an odd number of them. Their points are corners as well; included, they have the values of their zone, else, and for
/// variables that are passive there, those that mix linearly from the source points. Where boundaries cross there is a new
/// point, whose values are linear between the ends of an edge that crosses. Triangles that are too flat go from the rim inwards,
/// never through a boundary.
///
/// The new zone has the points that its triangles use, in the order of the zones, and every variable in storage of its own, at the
/// points. Of points at the same place the first counts; hidden ones do not. The type of a variable is the one that its zones have, or
/// the narrowest that holds all of theirs; it is passive where it is in all of them, and 0 where it is in one. What is at
/// the cells of a zone comes to its points by meansAtPoints().
///
/// Refused: no 2D plot; no source zones; zones that do not exist or are disabled; an axis without a variable or with its values
/// at the cells; a boundary that is no ordered zone of one dimension; a keep factor not between 0 and 0.5; coordinates that are not
/// finite; fewer than three different source points, or all on one line; nothing left.
class Triangulate : public FrameDataOperation
{
public:
    /// @param frame whose X and Y count; @param sources one-based numbers of zones, @param boundaries likewise, may be empty
    /// @param keepFactor least inradius / circumradius of a triangle at the rim, 0 to 0.5
    Triangulate(UniqueId frame, NumberSet sources, NumberSet boundaries, bool includeBoundaryPoints, double keepFactor)
        : FrameDataOperation(frame)
        , m_sources(std::move(sources))
        , m_boundaries(std::move(boundaries))
        , m_includeBoundaryPoints(includeBoundaryPoints)
        , m_keepFactor(keepFactor)
    {
    }

    /// Number of points that were left out since another one is at the same place, when the operation was performed.
    std::int64_t duplicateCount() const { return m_counts.duplicates; }

    std::string name() const override { return "2D Triangulation"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_report; }

private:
    using Number = PlaneTriangulation::Number;

    NumberSet allZones() const;
    std::string reasonAgainstZone(int zone) const;
    static std::string reasonAgainstBoundary(Zone const& zone);
    void collectZones();
    void readZone(TriangulatedPoints::Part const& part, PlanePlace* places, std::vector<Number>& kept,
                  Progress const& progress);
    void addBoundaries(PlaneTriangulation& triangulation, Progress const& progress);
    ZeroedArray<std::int64_t> makeTriangles(Progress& progress);
    void numberPoints(ZeroedArray<std::int64_t>& corners, Progress const& progress);
    void makeZone(ZeroedArray<std::int64_t> corners);
    NewField makeField(int variable, Progress& progress);
    std::int64_t mixedCount() const;
    void countMade();

    NumberSet m_sources;
    NumberSet m_boundaries;
    bool m_includeBoundaryPoints;
    double m_keepFactor;
    std::shared_ptr<DeferredLoad> m_load;
    std::vector<ValuePlaces> m_places; ///< of the zones, in the order of the parts
    TriangulatedPoints m_points;
    std::shared_ptr<Zone> m_zone;
    std::vector<NewField> m_fields;
    std::vector<bool> m_areMixed; ///< of each part, whether a variable has interpolated values there
    TriangulationReport m_counts;
    std::string m_report;
};

} // namespace veldraw::kernel
