#include "app/plot/PageView.h"

#include "app/plot/LineView.h"
#include "app/plot/PageOnScreen.h"
#include "app/plot/PageOverlay.h"
#include "app/plot/PlaceSearch.h"
#include "app/plot/PlaneView.h"
#include "app/plot/PlotTheme.h"
#include "app/plot/SpaceView.h"

#include <QGuiApplication>
#include <QResizeEvent>
#include <QTimer>
#include <QVTKOpenGLNativeWidget.h>
#include <vtkRenderWindowInteractor.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::app {

namespace {

// Qt's platforms without a screen offer OpenGL that draws nothing, or none at all.
bool hasScreen()
{
    QString const platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

} // namespace

PageView::PageView(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_display(session, *this)
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    setAccessibleName(tr("Page"));

    setPalette(QPalette(PlotTheme::text(), PlotTheme::desk()));
    setAutoFillBackground(true);
    m_desk->SetBackground(PlotTheme::desk().redF(), PlotTheme::desk().greenF(), PlotTheme::desk().blueF());
    m_window->AddRenderer(m_desk);
    if (hasScreen())
        createCanvas();
    m_overlay = new PageOverlay(this);

    setMouseTracking(true);
    m_tipSearch = new PlaceSearch(this);
    m_probeSearch = new PlaceSearch(this);
    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);
    m_timer->setInterval(0);
    connect(m_timer, &QTimer::timeout, this, &PageView::refresh);
    m_subscription = m_session.events().subscribe([this](kernel::StateChangeEvent const& event) { onEvent(event); });
    scheduleRefresh();
}

void PageView::createCanvas()
{
    m_canvas = new QVTKOpenGLNativeWidget(this);
    m_canvas->setFormat(QVTKOpenGLNativeWidget::defaultFormat());
    m_canvas->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_canvas->setFocusPolicy(Qt::NoFocus);
    m_window->SetMultiSamples(4);
    m_canvas->setRenderWindow(m_window);
    m_canvas->interactor()->SetInteractorStyle(nullptr);
}

PageView::~PageView()
{
    m_session.events().unsubscribe(m_subscription);
    for (auto& [id, slot] : m_slots)
        if (slot.view)
            slot.view->removeFrom(*m_window);
}

// ---- what is out of date -------------------------------------------------------------------------------------------

void PageView::onEvent(kernel::StateChangeEvent const& event)
{
    switch (event.kind) {
    case StateChange_MouseMode:
    case StateChange_DataSetTitle:
    case StateChange_DataSetLock:
    case StateChange_SharingChanged:
    case StateChange_AuxDataAdded:
    case StateChange_AuxDataDeleted:
    case StateChange_AuxDataAltered:
    case StateChange_AuxDataOwnersReplaced:
        return;
    case StateChange_PickList:
    case StateChange_NewActiveFrame:
    case StateChange_FrameMovedOrRenamed:
    case StateChange_FrameCreated:
    case StateChange_FrameDeleted:
    case StateChange_PageReplaced:
        break;
    default:
        markFrames(event);
    }
    scheduleRefresh();
}

void PageView::markFrames(kernel::StateChangeEvent const& event)
{
    bool const carriesVariables = event.kind == StateChange_ValuesAltered ||
                                  event.kind == StateChange_VariablesLoaded ||
                                  event.kind == StateChange_VariablesRenamed;
    for (auto& [id, slot] : m_slots) {
        if (event.frame != 0 && event.frame != id)
            continue;
        auto const frame = m_session.frame(id);
        bool const isTouched = !carriesVariables || event.variables.empty() || !frame || !slot.view ||
                               std::any_of(event.variables.begin(), event.variables.end(),
                                           [&](int variable) { return slot.view->dependsOn(*frame, variable); });
        if (isTouched)
            slot.isStale = true;
    }
}

void PageView::markAll()
{
    for (auto& [id, slot] : m_slots)
        slot.isStale = true;
    scheduleRefresh();
}

// A background computation for a frame is done.
void PageView::markReady(kernel::UniqueId frame)
{
    auto const slot = m_slots.find(frame);
    if (slot == m_slots.end())
        return;
    slot->second.isStale = true;
    scheduleRefresh();
}

void PageView::scheduleRefresh()
{
    if (!m_timer->isActive())
        m_timer->start();
}

// ---- bringing it up to date ----------------------------------------------------------------------------------------

void PageView::refresh()
{
    m_timer->stop();
    if (!m_session.isDrawing())
        return;
    bringUpToDate();
    if (!m_canvas)
        return;
    try {
        m_window->Render();
    } catch (std::exception const& failure) {
        giveUpDrawing(failure);
    }
}

// Drawing failed as a whole, most likely for lack of memory. The frames say so until the next change.
void PageView::giveUpDrawing(std::exception const& failure)
{
    for (auto& [id, slot] : m_slots)
        slot.message = FrameMessage::ofFailure(failure);
    orderRenderers();
    updateOverlay();
}

void PageView::bringUpToDate()
{
    syncFrames();
    layOut();
    updateStale();
    markPicks();
    updateOverlay();
}

void PageView::syncFrames()
{
    auto const page = m_session.activePage();
    auto const isOnPage = [&page](kernel::UniqueId id) {
        return page && std::any_of(page->frames.begin(), page->frames.end(),
                                   [id](std::shared_ptr<kernel::Frame> const& frame) { return frame->id == id; });
    };
    for (auto slot = m_slots.begin(); slot != m_slots.end();) {
        if (isOnPage(slot->first)) {
            ++slot;
            continue;
        }
        if (slot->second.view)
            takeOff(*slot->second.view);
        slot = m_slots.erase(slot);
    }
    if (!page)
        return;
    for (auto const& frame : page->frames)
        m_slots[frame->id];
}

void PageView::placePicture(Slot& slot) const
{
    slot.picture = slot.content.adjusted(0, m_overlay->strip(slot.content, slot.message).height(), 0, 0);
}

void PageView::updateStale()
{
    auto const page = m_session.activePage();
    if (!page)
        return;
    for (auto const& frame : page->frames) {
        Slot& slot = m_slots[frame->id];
        slot.isStale = slot.isStale || slot.plotType != frame->plotType;
        if (!slot.isStale)
            continue;
        try {
            updatePlot(*frame, slot);
            slot.isStale = false;
        } catch (std::exception const& failure) {
            slot.isStale = false;
            slot.message = FrameMessage::ofFailure(failure);
        }
    }
    orderRenderers();
}

void PageView::markPicks()
{
    auto const page = m_session.activePage();
    if (!page)
        return;
    std::set<kernel::UniqueId> picked;
    if (!m_sheet)
        for (kernel::Pick const& pick : m_session.picks())
            picked.insert(pick.zone);
    for (auto const& frame : page->frames) {
        FrameView* const view = m_slots[frame->id].view.get();
        std::set<int> zones;
        for (int number = 1; view && frame->dataSet && number <= frame->dataSet->zoneCount(); ++number)
            if (picked.count(frame->dataSet->zone(number)->id) != 0)
                zones.insert(number);
        if (view)
            view->markZones(zones);
    }
}

void PageView::updatePlot(kernel::Frame const& frame, Slot& slot)
{
    if (slot.plotType != frame.plotType || !slot.view) {
        if (slot.view)
            takeOff(*slot.view);
        slot.view = createView(frame);
        slot.plotType = frame.plotType;
        slot.views = {};
    }
    if (slot.view) {
        slot.view->setArea(areaOf(slot));
        slot.message = slot.view->show(frame);
        return;
    }
    if (!frame.dataSet)
        slot.message = {tr("This frame has no data set."), true};
    else if (frame.plotType == PlotType_PolarLine)
        slot.message = {tr("Polar line plots are not drawn. Choose another plot type."), true};
    else
        slot.message = {tr("A sketch shows no data. Choose another plot type."), true};
}

std::unique_ptr<FrameView> PageView::createView(kernel::Frame const& frame)
{
    // Called on another thread, but never after the view is destroyed.
    auto const ready = [this, id = frame.id] {
        QMetaObject::invokeMethod(
            this, [this, id] { markReady(id); }, Qt::QueuedConnection);
    };
    switch (frame.plotType) {
    case PlotType_Cartesian3D:
        return std::make_unique<SpaceView>(ready);
    case PlotType_Cartesian2D:
        return std::make_unique<PlaneView>(ready);
    case PlotType_XYLine:
        return std::make_unique<LineView>();
    default:
        return nullptr;
    }
}

void PageView::takeOff(FrameView& view)
{
    view.removeFrom(*m_window);
    m_drawn.erase(std::remove(m_drawn.begin(), m_drawn.end(), &view), m_drawn.end());
}

// Has the plots drawn in the order of the frames, so that the last frame lies on top, and gives each its place. A plot that is
// taken off loses what it has on the graphics card, so that all stay where the order is right.
void PageView::orderRenderers()
{
    std::vector<FrameView*> wanted;
    auto const page = m_session.activePage();
    for (auto const& frame : page ? page->frames : std::vector<std::shared_ptr<kernel::Frame>>()) {
        Slot& slot = m_slots[frame->id];
        placePicture(slot); // what is said above it may have come or gone
        QRect const& picture = slot.picture;
        if (!slot.view || slot.hidesPicture() || picture.width() < 8 || picture.height() < 8 ||
            !sheetRect().intersects(picture))
            continue;
        slot.view->setArea(areaOf(slot));
        slot.view->setTransparent(isTransparent());
        if (slot.isToFit)
            slot.view->fit();
        slot.isToFit = false;
        wanted.push_back(slot.view.get());
    }
    if (wanted == m_drawn)
        return;
    for (FrameView* const view : m_drawn)
        view->removeFrom(*m_window);
    for (FrameView* const view : wanted)
        view->addTo(*m_window);
    m_drawn = std::move(wanted);
}

ViewArea PageView::areaOf(Slot const& slot) const
{
    return PageOnScreen::viewAreaOf(slot.picture, sheetRect().size(), pixelRatio());
}

void PageView::updateOverlay()
{
    std::vector<PageOverlay::Mark> marks;
    QStringList sentences;
    if (auto const page = m_session.activePage())
        for (auto const& frame : page->frames) {
            Slot const& slot = m_slots[frame->id];
            if (slot.area.width() < 4 || slot.area.height() < 4)
                continue;
            QString const name = QString::fromStdString(frame->name);
            FrameMessage const shown = m_canvas || slot.hidesPicture()
                                           ? slot.message
                                           : FrameMessage{tr("Plots cannot be drawn without a screen."), true};
            marks.push_back({slot.area, slot.content, name, shown, frame->id == page->activeFrame, m_isMaximized,
                             probesIn(frame->id)});
            for (QString const& sentence : {shown.sentence, shown.remark})
                if (!sentence.isEmpty())
                    sentences << name + QStringLiteral(": ") + sentence;
        }
    QString const emptyText = m_opening.isEmpty() ? tr("Open a file to begin.") : tr("Opening %1…").arg(m_opening);
    setAccessibleDescription(marks.empty() ? emptyText : sentences.join(QLatin1Char('\n')));
    m_overlay->setMarks(std::move(marks), emptyText);
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_canvas)
        m_canvas->setGeometry(rect());
    m_overlay->setGeometry(rect());
    m_overlay->raise();
    scheduleRefresh();
}

void PageView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    scheduleRefresh();
}

} // namespace veldraw::app
