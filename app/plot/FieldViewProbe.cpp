// What a field plot is asked: how it is looked at, which zone is seen at a position, and where in it; and its marks of picked zones.
#include "app/plot/FieldView.h"
#include "app/plot/PlaceOnRay.h"

#include <vtkCamera.h>

#include <algorithm>

namespace veldraw::app {

std::optional<ViewPoint> FieldView::viewPoint() const
{
    if (!m_isShown)
        return std::nullopt;
    vtkCamera& camera = *m_stage->GetActiveCamera();
    ViewPoint view;
    view.inSpace = m_inSpace;
    view.isFitted = m_isFitted;
    camera.GetFocalPoint(view.focus.data());
    camera.GetPosition(view.eye.data());
    camera.GetViewUp(view.up.data());
    camera.GetWindowCenter(view.middle.data());
    view.halfHeight = camera.GetParallelScale();
    view.space = space();
    view.stage = {m_stageWidth, m_stageHeight};
    return view;
}

bool FieldView::isOfThisPlace(ViewPoint const& view) const
{
    return view.inSpace == m_inSpace && view.space == space() &&
           view.stage == std::array<double, 2>{m_stageWidth, m_stageHeight};
}

std::optional<SeenQuestion> FieldView::questionAt(QPointF const& inArea) const
{
    QPointF const position = onStage(inArea);
    if (position.x() < 0.0 || position.x() > 1.0 || position.y() < 0.0 || position.y() > 1.0)
        return std::nullopt;
    constexpr double reach = 5.0; // logical pixels
    int const* const origin = m_stage->GetOrigin();
    SeenQuestion question{
        PickRay(*m_stage, origin[0] + position.x() * m_stageWidth, origin[1] + position.y() * m_stageHeight),
        reach * area().pixelRatio,
        {}};
    for (auto const& zone : zones())
        question.things.push_back(zone->geometry());
    return question;
}

std::optional<std::array<double, 3>> FieldView::sceneAt(QPointF const& inArea) const
{
    std::optional<SeenQuestion> const question = questionAt(inArea);
    std::optional<SeenCell> const seen = question ? seenCell(*question) : std::nullopt;
    if (!seen)
        return std::nullopt;
    return question->ray.at(seen->distance);
}

std::optional<QPointF> FieldView::seenAt(std::array<double, 3> const& place) const
{
    m_stage->SetWorldPoint(space().toScene(0, place[0]), space().toScene(1, place[1]),
                           m_inSpace ? space().toScene(2, place[2]) : 0.0, 1.0);
    m_stage->WorldToDisplay();
    double const* const shown = m_stage->GetDisplayPoint();
    int const* const origin = m_stage->GetOrigin();
    QPointF const onStage((shown[0] - origin[0]) / m_stageWidth, (shown[1] - origin[1]) / m_stageHeight);
    bool const isSeen = onStage.x() >= 0.0 && onStage.x() <= 1.0 && onStage.y() >= 0.0 && onStage.y() <= 1.0 &&
                        shown[2] >= 0.0 && shown[2] <= 1.0;
    if (!isSeen)
        return std::nullopt;
    double const ratio = area().pixelRatio;
    return QPointF((onStage.x() * m_stageWidth + ratio * m_margins.left()) / area().width,
                   (onStage.y() * m_stageHeight + ratio * m_margins.bottom()) / area().height);
}

int FieldView::zoneAt(QPointF const& inArea) const
{
    std::optional<SeenQuestion> const question = questionAt(inArea);
    std::optional<SeenCell> const seen = question ? seenCell(*question) : std::nullopt;
    return seen ? zones()[seen->thing]->zoneNumber() : 0;
}

std::optional<ZonePlace> FieldView::placeOf(kernel::DataSet const& dataSet, SeenQuestion const& question,
                                            SeenCell const& seen) const
{
    auto const& geometry = question.things[seen.thing];
    auto const drawing =
        std::find_if(zones().begin(), zones().end(), [&](auto const& each) { return each->geometry() == geometry; });
    if (drawing == zones().end())
        return std::nullopt;
    int const number = (*drawing)->zoneNumber();
    auto const zone = dataSet.zone(number);
    GeometryKey const& key = geometry->key();
    if (!zone || geometryKeyOf(dataSet, number, m_look, key.cut ? &*key.cut : nullptr) != key)
        return std::nullopt;
    return PlaceOnRay(question.ray, *geometry, *zone, m_look.axes).in(seen.cell);
}

void FieldView::markZones(std::set<int> const& wanted)
{
    std::set<int> shown;
    for (auto const& zone : zones())
        if (wanted.count(zone->zoneNumber()) != 0)
            shown.insert(zone->zoneNumber());
    if (shown == m_markedZones)
        return;
    std::vector<PickMarks::Box> boxes;
    for (auto const& zone : zones())
        if (shown.count(zone->zoneNumber()) != 0 && zone->cellCount() > 0)
            boxes.push_back(zone->geometry()->bounds());
    m_marks.show(boxes, m_inSpace);
    m_stage->RemoveActor(m_marks.actor());
    if (!boxes.empty())
        m_stage->AddActor(m_marks.actor());
    m_markedZones = std::move(shown);
}

void FieldView::clearMarks()
{
    m_stage->RemoveActor(m_marks.actor());
    m_markedZones.clear();
}

} // namespace veldraw::app
