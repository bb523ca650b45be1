#pragma once

#include "app/plot/ZoneGeometry.h"
#include "kernel/data/DataSet.h"

#include <vtkFloatArray.h>
#include <vtkSmartPointer.h>

#include <memory>

namespace veldraw::app {

/// How a drawing is shown; drawings of one style can be shown as one.
struct DrawingStyle
{
    bool isLit = false;
    bool hasPolygons = false;
    bool isFlooded = false; ///< coloured by values, where there are any
    ValueLocation_e valuesAt = ValueLocation_Nodal;
    float pointSize = 0.0F; ///< 0 without points

    bool operator==(DrawingStyle const& other) const;
};

/// One zone in a field plot: its geometry, in the colours of the contour variable. No more than a copy of its share of the
/// values is kept, in single precision.
class ZoneDrawing
{
public:
    /// @param zone identifier of the zone, or of the cut through one
    ZoneDrawing(kernel::UniqueId zone, std::shared_ptr<ZoneGeometry const> geometry);

    /// Shows a geometry; does nothing if it is the present one.
    void setGeometry(std::shared_ptr<ZoneGeometry const> geometry);

    /// Gives the zone, which has a one-based number, the colours of the contour variable, unless it has them already.
    void colour(kernel::DataSet const& dataSet, int number, FieldLook const& look);

    kernel::UniqueId zone() const { return m_zone; }

    /// One-based number at the last call of colour().
    int zoneNumber() const { return m_number; }
    std::shared_ptr<ZoneGeometry const> const& geometry() const { return m_geometry; }
    DrawingStyle style() const;

    /// Positions in the range of the contour for each drawn point or cell; null without a flood.
    vtkFloatArray* shares() const { return m_shares; }

    /// A number that changes whenever the colours change.
    kernel::UniqueId colouring() const { return m_colouring; }

    /// What is drawn, in the scene.
    vtkPolyData& surface() const { return m_geometry->drawing(); }

    /// Cells that are drawn.
    long long cellCount() const;

    /// Bytes of geometry and values that the drawing keeps.
    long long bytes() const;

private:
    /// The data from which the colours were computed.
    struct Colours
    {
        bool hasValues = false;
        kernel::UniqueId values = 0;
        ValueLocation_e location = ValueLocation_Nodal;
        double min = 0.0;
        double max = 0.0;
        bool isLog = false;

        bool operator==(Colours const& other) const;
    };

    void computeShares(kernel::Field const& field);

    kernel::UniqueId m_zone;
    int m_number = 0;
    std::shared_ptr<ZoneGeometry const> m_geometry;
    Colours m_colours;
    bool m_isFlooded = false;
    vtkSmartPointer<vtkFloatArray> m_shares;
    kernel::UniqueId m_colouring = kernel::nextUniqueId();
};

} // namespace veldraw::app
