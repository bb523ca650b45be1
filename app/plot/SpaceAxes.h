#pragma once

#include "app/plot/PlotSpace.h"

#include <QPointF>
#include <QRectF>
#include <QString>
#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkNew.h>
#include <vtkSmartPointer.h>
#include <vtkTextActor.h>

#include <array>
#include <optional>
#include <vector>

class vtkCellArray;
class vtkPoints;
class vtkRenderer;

namespace veldraw::app {

/// The box around a scene: grid lines on its far faces, numbers and names along its outer edges.
///
/// Lines lie in the scene and are hidden by what is in front of them; the text lies flat on the screen and is always readable.
class SpaceAxes
{
public:
    /// @param stage draws the axes; must outlive this object
    explicit SpaceAxes(vtkRenderer& stage);

    void setBox(PlotSpace const& space, std::array<QString, 3> const& names);

    /// Follows the camera. @param width, height of the stage in device pixels
    void update(vtkCamera& camera, double width, double height, double pixelRatio);

private:
    using Point = std::array<double, 3>;

    struct Edge
    {
        Point from;
        Point to;
    };

    /// The side of each axis, -1 or 1, whose face is seen from outside; 0 where the eye is between both faces.
    using NearSides = std::array<int, 3>;
    using Edges = std::array<std::optional<Edge>, 3>;

    static Point eyeOf(vtkCamera& camera);
    QPointF project(Point const& point) const;
    std::optional<Edge> edgeFor(std::size_t axis, NearSides const& near) const;
    void drawGrid(Point const& far);
    void drawEdges(Edges const& edges);
    void drawFace(std::size_t normal, Point const& far, vtkPoints& points, vtkCellArray& lines) const;
    void labelEdge(std::size_t axis, Edge const& edge);
    /// Leaves a number out that would cover another text.
    void addNumber(std::string const& text, QPointF const& at, QPointF const& outward);
    void addName(QString const& name, QPointF const& at, QPointF const& outward);
    void addNameOfShortEdge(QString const& name, QPointF const& middle, QPointF const& outward);
    bool isFree(QRectF const& room) const;
    void show(vtkTextActor& actor, QString const& text, QPointF const& at, QPointF const& outward, bool always);
    vtkTextActor& nextText();
    QRectF roomFor(QSizeF const& size, QPointF const& at, QPointF const& outward) const;

    vtkRenderer& m_stage;
    PlotSpace m_space;
    std::array<QString, 3> m_names;
    Point m_half{};
    std::array<double, 16> m_matrix{};
    double m_width = 1.0;
    double m_height = 1.0;
    double m_ratio = 1.0;
    vtkNew<vtkActor> m_grid;
    vtkNew<vtkActor> m_edges;
    std::vector<QRectF> m_taken;
    std::vector<vtkSmartPointer<vtkTextActor>> m_texts;
    std::size_t m_textCount = 0;
};

} // namespace veldraw::app
