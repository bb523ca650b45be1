#include "app/plot/SpaceAxes.h"

#include "app/plot/AxisTicks.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <vtkCellArray.h>
#include <vtkMatrix4x4.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr int roughTickCount = 5;

void addLine(vtkPoints& points, vtkCellArray& lines, std::array<double, 3> const& a, std::array<double, 3> const& b)
{
    vtkIdType const first = points.InsertNextPoint(a.data());
    vtkIdType const second = points.InsertNextPoint(b.data());
    lines.InsertNextCell({first, second});
}

void showLines(vtkActor& actor, vtkPoints& points, vtkCellArray& lines, double width)
{
    vtkNew<vtkPolyData> drawing;
    drawing->SetPoints(&points);
    drawing->SetLines(&lines);
    static_cast<vtkPolyDataMapper*>(actor.GetMapper())->SetInputData(drawing);
    actor.GetProperty()->SetLineWidth(static_cast<float>(width));
}

QPointF unit(QPointF const& v)
{
    double const length = std::hypot(v.x(), v.y());
    return length > 1e-9 ? v / length : QPointF(0.0, -1.0);
}

} // namespace

SpaceAxes::SpaceAxes(vtkRenderer& stage)
    : m_stage(stage)
{
    auto const prepare = [this](vtkActor& lines, QColor const& colour) {
        vtkNew<vtkPolyDataMapper> mapper;
        lines.SetMapper(mapper);
        lines.GetProperty()->SetColor(colour.redF(), colour.greenF(), colour.blueF());
        lines.GetProperty()->SetLighting(false);
        lines.PickableOff();
        m_stage.AddActor(&lines);
    };
    prepare(*m_grid, PlotTheme::spaceGrid());
    prepare(*m_edges, PlotTheme::axis());
}

void SpaceAxes::setBox(PlotSpace const& space, std::array<QString, 3> const& names)
{
    m_space = space;
    m_names = names;
    for (int axis = 0; axis < 3; ++axis)
        m_half[static_cast<std::size_t>(axis)] = space.sceneHalf(axis);
}

// Without perspective the eye is as good as infinitely far away.
SpaceAxes::Point SpaceAxes::eyeOf(vtkCamera& camera)
{
    constexpr double farAway = 1e6;
    Point eye{};
    if (camera.GetParallelProjection() == 0) {
        camera.GetPosition(eye.data());
        return eye;
    }
    camera.GetDirectionOfProjection(eye.data());
    for (double& coordinate : eye)
        coordinate *= -farAway;
    return eye;
}

void SpaceAxes::update(vtkCamera& camera, double width, double height, double pixelRatio)
{
    m_width = width;
    m_height = height;
    m_ratio = pixelRatio;
    vtkMatrix4x4* const matrix = camera.GetCompositeProjectionTransformMatrix(width / height, -1.0, 1.0);
    std::copy_n(&matrix->Element[0][0], 16, m_matrix.begin());

    Point const position = eyeOf(camera);
    Point far{};
    NearSides near{};
    for (std::size_t n = 0; n < 3; ++n) {
        far[n] = position[n] > 0.0 ? -m_half[n] : m_half[n];
        near[n] = position[n] > m_half[n] ? 1 : position[n] < -m_half[n] ? -1 : 0;
    }
    if (near == NearSides{}) // the eye is inside the box: the nearer faces count, as there is no outline
        for (std::size_t n = 0; n < 3; ++n)
            near[n] = position[n] > 0.0 ? 1 : -1;
    drawGrid(far);
    Edges const edges = {edgeFor(0, near), edgeFor(1, near), edgeFor(2, near)};
    drawEdges(edges);
    m_textCount = 0;
    m_taken.clear();
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (m_half[axis] > 0.0 && edges[axis])
            labelEdge(axis, *edges[axis]);
    for (std::size_t n = m_textCount; n < m_texts.size(); ++n)
        m_texts[n]->VisibilityOff();
}

// Position in device pixels of the stage, origin at the bottom left.
QPointF SpaceAxes::project(Point const& point) const
{
    std::array<double, 4> clip{};
    for (std::size_t row = 0; row < 4; ++row)
        clip[row] = m_matrix[4 * row] * point[0] + m_matrix[4 * row + 1] * point[1] + m_matrix[4 * row + 2] * point[2] +
                    m_matrix[4 * row + 3];
    double const w = std::max(clip[3], 1e-9);
    return {0.5 * (clip[0] / w + 1.0) * m_width, 0.5 * (clip[1] / w + 1.0) * m_height};
}

// Of the four edges along an axis those lie on the outline that have one face that is seen from outside: the lowest of them carries the
// numbers, of the third axis the leftmost. There is none where one looks along the axis.
std::optional<SpaceAxes::Edge> SpaceAxes::edgeFor(std::size_t axis, NearSides const& near) const
{
    std::size_t const b = (axis + 1) % 3;
    std::size_t const c = (axis + 2) % 3;
    std::optional<Edge> best;
    double leastPlace = 0.0;
    for (int const sideB : {-1, 1}) {
        for (int const sideC : {-1, 1}) {
            if ((sideB == near[b]) == (sideC == near[c]))
                continue;
            Edge edge{};
            edge.from[axis] = -m_half[axis];
            edge.from[b] = sideB * m_half[b];
            edge.from[c] = sideC * m_half[c];
            edge.to = edge.from;
            edge.to[axis] = m_half[axis];
            QPointF const middle = 0.5 * (project(edge.from) + project(edge.to));
            constexpr double aside = 1e-3; // of two at the same height the left one, where there is room
            double const place = axis == 2 ? middle.x() : middle.y() + aside * middle.x();
            if (!best || place < leastPlace) {
                best = edge;
                leastPlace = place;
            }
        }
    }
    return best;
}

void SpaceAxes::drawGrid(Point const& far)
{
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> lines;
    for (std::size_t normal = 0; normal < 3; ++normal)
        drawFace(normal, far, *points, *lines);
    showLines(*m_grid, *points, *lines, m_ratio);
}

void SpaceAxes::drawEdges(Edges const& edges)
{
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> lines;
    for (std::optional<Edge> const& edge : edges)
        if (edge)
            addLine(*points, *lines, edge->from, edge->to);
    showLines(*m_edges, *points, *lines, 1.5 * m_ratio);
}

void SpaceAxes::drawFace(std::size_t normal, Point const& far, vtkPoints& points, vtkCellArray& lines) const
{
    // A hair behind the face, so that a surface in the face hides the grid.
    constexpr double hair = 0.0015;
    Point base = far;
    base[normal] += std::copysign(hair, far[normal]);
    for (std::size_t const along : {(normal + 1) % 3, (normal + 2) % 3}) {
        std::size_t const across = 3 - normal - along;
        AxisTicks const ticks = AxisTicks::create(m_space.min(static_cast<int>(along)),
                                                  m_space.max(static_cast<int>(along)), roughTickCount);
        std::vector<double> positions = {-m_half[along], m_half[along]};
        for (double const value : ticks.values)
            positions.push_back(m_space.toScene(static_cast<int>(along), value));
        for (double const position : positions) {
            Point from = base;
            from[along] = position;
            from[across] = -m_half[across];
            Point to = from;
            to[across] = m_half[across];
            addLine(points, lines, from, to);
        }
    }
}

void SpaceAxes::labelEdge(std::size_t axis, Edge const& edge)
{
    QPointF const from = project(edge.from);
    QPointF const to = project(edge.to);
    QPointF const along = unit(to - from);
    QPointF const middle = 0.5 * (from + to);
    QPointF outward(-along.y(), along.x());
    if (QPointF::dotProduct(outward, middle - project({0.0, 0.0, 0.0})) < 0.0)
        outward = -outward;
    double const length = std::hypot(to.x() - from.x(), to.y() - from.y());
    if (length < m_ratio)
        return; // looked along
    if (length < 24.0 * m_ratio) {
        addNameOfShortEdge(m_names[axis], middle, outward);
        return;
    }

    int const number = static_cast<int>(axis);
    AxisTicks const ticks = AxisTicks::create(m_space.min(number), m_space.max(number), roughTickCount);
    auto const every =
        static_cast<std::size_t>(std::ceil(static_cast<double>(ticks.values.size()) * 34.0 * m_ratio / length));
    std::size_t widest = 1;
    for (std::size_t n = 0; n < ticks.values.size(); n += std::max<std::size_t>(every, 1)) {
        Point at = edge.from;
        at[axis] = m_space.toScene(number, ticks.values[n]);
        addNumber(ticks.labels[n], project(at) + outward * (8.0 * m_ratio), outward);
        widest = std::max(widest, ticks.labels[n].size());
    }
    double const room = 26.0 + 7.5 * static_cast<double>(widest) * std::abs(outward.x()) + 8.0 * std::abs(outward.y());
    addName(m_names[axis], middle + outward * (room * m_ratio), outward);
}

// Where a text stands; one that would leave the stage is pushed back into it.
QRectF SpaceAxes::roomFor(QSizeF const& size, QPointF const& at, QPointF const& outward) const
{
    QPointF const shift(outward.x() < -0.45  ? -1.0
                        : outward.x() > 0.45 ? 0.0
                                             : -0.5,
                        outward.y() < -0.45  ? -1.0
                        : outward.y() > 0.45 ? 0.0
                                             : -0.5);
    QRectF room(at + QPointF(shift.x() * size.width(), shift.y() * size.height()), size);
    double const air = 3.0 * m_ratio;
    room.moveLeft(std::max(air, std::min(room.left(), m_width - air - size.width())));
    room.moveTop(std::max(air, std::min(room.top(), m_height - air - size.height())));
    return room;
}

vtkTextActor& SpaceAxes::nextText()
{
    if (m_textCount == m_texts.size()) {
        m_texts.push_back(vtkSmartPointer<vtkTextActor>::New());
        m_texts.back()->PickableOff();
        m_texts.back()->GetPositionCoordinate()->SetCoordinateSystemToViewport();
        m_texts.back()->GetTextProperty()->SetJustificationToCentered();
        m_texts.back()->GetTextProperty()->SetVerticalJustificationToCentered();
        m_stage.AddActor2D(m_texts.back());
    }
    return *m_texts[m_textCount];
}

void SpaceAxes::addNumber(std::string const& text, QPointF const& at, QPointF const& outward)
{
    vtkTextActor& actor = nextText();
    PlotTheme::apply(*actor.GetTextProperty(), PlotTheme::quietText(), PlotTheme::labelSize);
    show(actor, QString::fromStdString(text), at, outward, false);
}

void SpaceAxes::addName(QString const& name, QPointF const& at, QPointF const& outward)
{
    constexpr int mostLines = 3;
    vtkTextActor& actor = nextText();
    vtkTextProperty& property = *actor.GetTextProperty();
    PlotTheme::apply(property, PlotTheme::text(), PlotTheme::titleSize, true);
    TextFit const fit = TextFit::into(0.4 * m_width, name, property, m_ratio, mostLines);
    property.SetFontSize(fit.size);
    show(actor, fit.text, at, outward, true);
}

// It has no numbers, and those of the other axes are near: the name stands where there is room beside its edge.
void SpaceAxes::addNameOfShortEdge(QString const& name, QPointF const& middle, QPointF const& outward)
{
    vtkTextActor& actor = nextText();
    PlotTheme::apply(*actor.GetTextProperty(), PlotTheme::text(), PlotTheme::titleSize, true);
    QSizeF const size = TextFit::sizeOf(name, *actor.GetTextProperty(), m_ratio);
    QPointF const aside(-outward.y(), outward.x());
    for (double distance = 12.0; distance < 90.0; distance += 8.0)
        for (QPointF const& direction : {outward, unit(outward + aside), unit(outward - aside), aside, -aside}) {
            QPointF const at = middle + direction * (distance * m_ratio);
            if (isFree(roomFor(size, at, direction))) {
                addName(name, at, direction);
                return;
            }
        }
    addName(name, middle + outward * (12.0 * m_ratio), outward);
}

bool SpaceAxes::isFree(QRectF const& room) const
{
    return std::none_of(m_taken.begin(), m_taken.end(),
                        [&room](QRectF const& taken) { return taken.intersects(room); });
}

void SpaceAxes::show(vtkTextActor& actor, QString const& text, QPointF const& at, QPointF const& outward, bool always)
{
    QRectF const room = roomFor(TextFit::sizeOf(text, *actor.GetTextProperty(), m_ratio), at, outward);
    if (!always && !isFree(room))
        return;
    m_taken.push_back(room);
    actor.SetInput(text.toUtf8().constData());
    actor.SetPosition(std::round(room.center().x()), std::round(room.center().y()));
    actor.VisibilityOn();
    ++m_textCount;
}

} // namespace veldraw::app
