// How the plots of a page view are looked at: fitted, from sides, as before, like others.
#include "app/plot/FrameView.h"
#include "app/plot/PageView.h"

namespace veldraw::app {

namespace {

constexpr qint64 pause = 1000; // ms; turns of the wheel and keys within it are one change

} // namespace

void PageView::keepView(kernel::UniqueId frame, Gesture gesture)
{
    bool const isQuick = m_sinceKept.isValid() && m_sinceKept.elapsed() < pause;
    bool const goesOn = frame == m_keptFrame && gesture == m_keptGesture && isQuick &&
                        (gesture == Gesture::Wheel || gesture == Gesture::Key);
    m_keptFrame = frame;
    m_keptGesture = gesture;
    m_sinceKept.start();
    FrameView* const view = frameView(frame);
    std::optional<ViewPoint> const now = view ? view->viewPoint() : std::nullopt;
    if (now && !goesOn)
        m_slots.at(frame).views.keep(*now);
}

// To be called after each change of a view by the user.
void PageView::followView(kernel::UniqueId frame)
{
    scheduleRefresh();
    FrameView* const view = m_areLinked ? frameView(frame) : nullptr;
    std::optional<ViewPoint> const now = view ? view->viewPoint() : std::nullopt;
    for (auto& [id, slot] : m_slots)
        if (now && id != frame && slot.view)
            slot.view->setViewPoint(*now);
}

bool PageView::showView(kernel::UniqueId frame, ViewPoint const& view)
{
    FrameView* const shown = frameView(frame);
    std::optional<ViewPoint> const now = shown ? shown->viewPoint() : std::nullopt;
    if (!now || now->inSpace != view.inSpace)
        return false;
    shown->setViewPoint(view);
    followView(frame);
    return true;
}

std::optional<ViewPoint> PageView::activeView()
{
    auto const frame = m_session.activeFrame();
    FrameView* const view = frame ? frameView(frame->id) : nullptr;
    return view ? view->viewPoint() : std::nullopt;
}

bool PageView::goToView(ViewStep step)
{
    std::optional<ViewPoint> const now = activeView();
    if (!now)
        return false;
    kernel::UniqueId const frame = m_session.activeFrame()->id;
    m_keptFrame = 0; // the next turn of the wheel is another change
    ViewHistory& views = m_slots.at(frame).views;
    std::optional<ViewPoint> const other = step == ViewStep::Back ? views.back(*now) : views.on(*now);
    return other && showView(frame, *other);
}

bool PageView::copyView()
{
    std::optional<ViewPoint> const now = activeView();
    if (now)
        m_copiedView = now;
    return now.has_value();
}

bool PageView::pasteView()
{
    if (!m_copiedView || !activeView())
        return false;
    kernel::UniqueId const frame = m_session.activeFrame()->id;
    keepView(frame, Gesture::Command);
    return showView(frame, *m_copiedView);
}

int PageView::rememberView()
{
    std::optional<ViewPoint> const now = activeView();
    if (!now || static_cast<int>(m_rememberedViews.size()) == mostRemembered)
        return 0;
    m_rememberedViews.push_back(*now);
    return static_cast<int>(m_rememberedViews.size());
}

bool PageView::recallView(int number)
{
    if (number < 1 || number > static_cast<int>(m_rememberedViews.size()) || !activeView())
        return false;
    kernel::UniqueId const frame = m_session.activeFrame()->id;
    keepView(frame, Gesture::Command);
    return showView(frame, m_rememberedViews[static_cast<std::size_t>(number - 1)]);
}

void PageView::linkViews(bool isOn)
{
    m_areLinked = isOn;
    if (auto const frame = m_session.activeFrame())
        followView(frame->id);
}

void PageView::fitActiveFrame()
{
    auto const frame = m_session.activeFrame();
    if (!frame)
        return;
    freeAxes(*frame);
    keepView(frame->id, Gesture::Command);
    if (FrameView* const view = frameView(frame->id))
        view->fit();
    fitFrame(frame->id);
    followView(frame->id);
}

void PageView::lookFrom(ViewSide side)
{
    auto const frame = m_session.activeFrame();
    FrameView* const view = frame ? frameView(frame->id) : nullptr;
    if (!view)
        return;
    keepView(frame->id, Gesture::Command);
    view->lookFrom(side);
    followView(frame->id);
}

void PageView::fitAllFrames()
{
    for (auto& [id, slot] : m_slots) {
        keepView(id, Gesture::Command);
        slot.isToFit = true;
    }
    scheduleRefresh();
}

void PageView::fitFrame(kernel::UniqueId frame)
{
    auto const slot = m_slots.find(frame);
    if (slot != m_slots.end())
        slot->second.isToFit = true;
    scheduleRefresh();
}

} // namespace veldraw::app
