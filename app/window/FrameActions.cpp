#include "app/window/FrameActions.h"

#include "app/window/Icons.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QActionGroup>

#include <algorithm>

namespace veldraw::app {

FrameActions::FrameActions(kernel::Session& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_newFrame(makeAction("newFrameAction", makeIcon(Glyph::NewFrame), QStringLiteral("&New Frame"),
                            [this] { return createFrame(); }))
    , m_deleteFrame(makeAction(
          "deleteFrameAction", makeIcon(Glyph::DeleteFrame), QStringLiteral("&Delete Frame"),
          [this] { return withActiveFrame([this](auto& frame) { return m_session.deleteFrame(frame.id); }); }))
    , m_tileFrames(makeAction("tileFramesAction", makeIcon(Glyph::TileFrames), QStringLiteral("&Tile Frames"),
                              [this] {
                                  m_session.tileFrames();
                                  return true;
                              }))
    , m_nextFrame(
          makeAction("nextFrameAction", {}, QStringLiteral("Ne&xt Frame"), [this] { return activateNextFrame(); }))
    , m_contour(makeAction("contourAction", makeIcon(Glyph::Contour), QStringLiteral("&Contour"),
                           [this] {
                               return withActiveFrame([this](auto& frame) {
                                   return m_session.setShowContour(frame.id, m_contour->isChecked());
                               });
                           }))
    , m_mesh(makeAction("meshAction", makeIcon(Glyph::Mesh), QStringLiteral("&Mesh"),
                        [this] {
                            return withActiveFrame(
                                [this](auto& frame) { return m_session.setShowMesh(frame.id, m_mesh->isChecked()); });
                        }))
    , m_stretchAxes(makeAction("stretchAxesAction", {}, QStringLiteral("Str&etch Axes"),
                               [this] {
                                   return withActiveFrame([this](auto& frame) {
                                       return m_session.setStretchAxes(frame.id, m_stretchAxes->isChecked());
                                   });
                               }))
    , m_follower(session, [this] { refresh(); })
{
    makePlotTypes();
    m_stretchAxes->setCheckable(true);
    m_stretchAxes->setToolTip(QStringLiteral("Give each axis a scale of its own, so that the plot fills the frame"));
    m_contour->setCheckable(true);
    m_mesh->setCheckable(true);
    m_newFrame->setShortcut(Qt::CTRL + Qt::Key_N);
    m_nextFrame->setShortcut(Qt::Key_F6);
    refresh();
}

QAction* FrameActions::makeAction(char const* name, QIcon const& icon, QString const& text,
                                  std::function<bool()> const& function)
{
    auto* const action = new QAction(icon, text, this);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, function] {
        if (sdk::AppLock::depth() > 0) {
            m_follower.schedule();
            return;
        }
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        if (!function()) {
            m_follower.schedule(); // a check mark that the click has changed goes back
            Q_EMIT refused();
        }
    });
    return action;
}

void FrameActions::makePlotTypes()
{
    struct Entry
    {
        PlotType_e type;
        char const* name;
        Glyph glyph;
        char const* text;
    };
    auto* const group = new QActionGroup(this);
    for (Entry const& entry : {Entry{PlotType_Cartesian3D, "plotType3DAction", Glyph::Plot3D, "&3D Cartesian"},
                               Entry{PlotType_Cartesian2D, "plotType2DAction", Glyph::Plot2D, "&2D Cartesian"},
                               Entry{PlotType_XYLine, "plotTypeLineAction", Glyph::PlotLine, "XY &Line"},
                               Entry{PlotType_Sketch, "plotTypeSketchAction", Glyph::PlotSketch, "&Sketch"}}) {
        QAction* const action =
            makeAction(entry.name, makeIcon(entry.glyph), QString::fromLatin1(entry.text), [this, type = entry.type] {
                return withActiveFrame(
                    [&](auto& frame) { return frame.plotType == type || m_session.setPlotType(frame.id, type); });
            });
        action->setCheckable(true);
        group->addAction(action);
        m_plotTypes[entry.type] = action;
    }
}

bool FrameActions::withActiveFrame(std::function<bool(kernel::Frame&)> const& function)
{
    auto const frame = m_session.activeFrame();
    return frame && function(*frame);
}

// In the middle of the paper, over what is there, half as wide and high.
bool FrameActions::createFrame()
{
    auto const page = m_session.activePage();
    if (!page)
        return false;
    kernel::Rectangle const middle{page->paperWidth / 4, page->paperHeight / 4, page->paperWidth / 2,
                                   page->paperHeight / 2};
    std::string const name = "Frame " + std::to_string(page->frames.size() + 1);
    return m_session.createFrame(name, middle) != nullptr;
}

bool FrameActions::activateNextFrame()
{
    auto const page = m_session.activePage();
    if (!page || page->frames.empty())
        return false;
    auto const isActive = [&](auto const& frame) { return frame->id == page->activeFrame; };
    auto const current = std::find_if(page->frames.begin(), page->frames.end(), isActive);
    auto const next = current == page->frames.end() || std::next(current) == page->frames.end() ? page->frames.begin()
                                                                                                : std::next(current);
    return m_session.activateFrame((*next)->id);
}

void FrameActions::refresh()
{
    auto const page = m_session.activePage();
    auto const frame = m_session.activeFrame();
    bool const hasData = frame && frame->dataSet;
    bool const isField =
        hasData && (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D);
    m_newFrame->setEnabled(page != nullptr);
    m_deleteFrame->setEnabled(frame != nullptr);
    m_tileFrames->setEnabled(frame != nullptr);
    m_nextFrame->setEnabled(page && page->frames.size() > 1);
    for (auto const& [type, action] : m_plotTypes) {
        action->setEnabled(hasData);
        action->setChecked(hasData && frame->plotType == type);
    }
    m_contour->setEnabled(isField);
    m_mesh->setEnabled(isField);
    m_stretchAxes->setEnabled(isField);
    m_stretchAxes->setChecked(isField && frame->stretchAxes);
    m_contour->setChecked(isField && frame->showContour);
    m_mesh->setChecked(isField && frame->showMesh);
}

} // namespace veldraw::app
