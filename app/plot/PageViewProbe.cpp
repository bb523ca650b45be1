// What a page view tells of a place under the mouse.
#include "app/plot/FieldView.h"
#include "app/plot/PageView.h"
#include "app/plot/PlaceSearch.h"
#include "app/plot/PlaceText.h"

#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace veldraw::app {

namespace {

constexpr int around = 8; // logical pixels; a box beside the mouse goes when the mouse leaves them

} // namespace

void PageView::showTip(QHelpEvent const& event)
{
    dropTip();
    auto const frame = frameAt(event.pos());
    FrameView const* const view = frame ? shownView(frame->id) : nullptr;
    if (auto const* const field = dynamic_cast<FieldView const*>(view))
        return searchForTip(frame->id, *field, event);
    tellAt(event.pos(), view == nullptr ? QString() : view->tipAt(inPicture(m_slots.at(frame->id), event.pos())));
}

void PageView::tellAt(QPoint const& position, QString const& tip)
{
    QToolTip::showText(mapToGlobal(position), tip, this,
                       QRect(position, QSize(1, 1)).adjusted(-around, -around, around, around));
}

void PageView::searchForTip(kernel::UniqueId frame, FieldView const& field, QHelpEvent const& event)
{
    std::optional<SeenQuestion> question = field.questionAt(inPicture(m_slots.at(frame), event.pos()));
    if (!question)
        return tellAt(event.pos(), {});
    m_tipPosition = event.pos();
    m_tipSearch->start(std::move(*question), [this, frame](SeenQuestion const& asked, auto const& found) {
        auto const place = placeOf(frame, asked, found);
        tellAt(m_tipPosition, place ? PlaceText::tip(*m_session.frame(frame), *place) : QString());
    });
}

void PageView::probeAt(QPoint const& position)
{
    kernel::UniqueId const frame = m_draggedFrame;
    auto const* const field = dynamic_cast<FieldView const*>(frameView(frame));
    if (!field)
        return;
    std::optional<SeenQuestion> question = field->questionAt(inPicture(m_slots.at(frame), position));
    if (!question)
        return;
    m_probeSearch->start(std::move(*question), [this, frame](SeenQuestion const& asked, auto const& found) {
        auto const place = placeOf(frame, asked, found);
        if (!place)
            return;
        auto const shown = m_session.frame(frame);
        ProbedPlace probe{shown->dataSet, {}, *place, frame};
        std::array<int, 3> const axes = shown->axisVariables();
        for (std::size_t axis = 0; axis < axes.size(); ++axis)
            if (auto const variable = shown->dataSet->variable(axes[axis]))
                probe.axes[axis] = variable->id;
        Q_EMIT probed(probe);
    });
}

void PageView::markProbes(std::vector<ProbedPlace> places)
{
    if (places.empty() && m_probes.empty())
        return;
    m_probes = std::move(places);
    scheduleRefresh();
}

// Where the marked places of a frame are seen, in logical pixels of this widget.
std::vector<std::pair<int, QPointF>> PageView::probesIn(kernel::UniqueId frame) const
{
    std::vector<std::pair<int, QPointF>> found;
    auto const* const field = dynamic_cast<FieldView const*>(shownView(frame));
    auto const shown = m_session.frame(frame);
    if (!field || !shown || !m_canvas)
        return found;
    QRectF const picture = m_slots.at(frame).picture;
    int number = 0;
    for (ProbedPlace const& probe : m_probes) {
        ++number;
        auto const position =
            probe.frame == frame && probe.axisVariables() == shown->axisVariables() ? probe.position() : std::nullopt;
        auto const at = position ? field->seenAt(*position) : std::nullopt;
        if (at)
            found.emplace_back(number, QPointF(picture.left() + at->x() * picture.width(),
                                               picture.bottom() - at->y() * picture.height()));
    }
    return found;
}

// A box that is still searched for is not wanted any more.
void PageView::dropTip()
{
    m_tipSearch->drop();
}

void PageView::dropTipBeside(QPoint const& mouse)
{
    QPoint const way = mouse - m_tipPosition;
    if (m_tipSearch->isSearching() && std::max(std::abs(way.x()), std::abs(way.y())) > around)
        dropTip();
}

std::optional<ZonePlace> PageView::placeOf(kernel::UniqueId frame, SeenQuestion const& question,
                                           std::optional<SeenCell> const& seen) const
{
    auto const shown = m_session.frame(frame);
    auto const* const field = dynamic_cast<FieldView const*>(shownView(frame));
    if (!seen || !shown || !shown->dataSet || !field)
        return std::nullopt;
    return field->placeOf(*shown->dataSet, question, *seen);
}

} // namespace veldraw::app
