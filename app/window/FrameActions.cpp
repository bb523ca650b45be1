#include "app/window/FrameActions.h"

#include "app/window/Icons.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

#include <algorithm>

namespace veldraw::app {

FrameActions::FrameActions(kernel::Session& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_newFrame(makeAction("newFrameAction", makeIcon(Glyph::NewFrame), QStringLiteral("&New Frame"),
                            [this] {
                                auto const active = m_session.activeFrame();
                                return createFrame(active ? active->dataSet : nullptr);
                            }))
    , m_newFrameWith(std::make_unique<QMenu>(QStringLiteral("New Frame &With")))
    , m_deleteFrame(makeAction("deleteFrameAction", makeIcon(Glyph::DeleteFrame), QStringLiteral("&Delete Frame"),
                               [this] {
                                   return withActiveFrame([this](auto& frame) {
                                       return m_session.perform(kernel::DeleteFrame(frame.id));
                                   });
                               }))
    , m_tileFrames(makeAction("tileFramesAction", makeIcon(Glyph::TileFrames), QStringLiteral("&Tile Frames"),
                              [this] {
                                  m_session.tileFrames();
                                  return true;
                              }))
    , m_nextFrame(
          makeAction("nextFrameAction", {}, QStringLiteral("Ne&xt Frame"), [this] { return activateNextFrame(); }))
    , m_follower(session, [this] { refresh(); })
{
    makePlotTypes();
    makePlotOptions();
    m_newFrame->setToolTip(QStringLiteral("A frame for the data set of the active one"));
    m_newFrameWith->setObjectName(QStringLiteral("newFrameWithMenu"));
    connect(m_newFrameWith.get(), &QMenu::aboutToShow, this, &FrameActions::fillNewFrameWith);
    m_newFrame->setShortcut(Qt::CTRL + Qt::Key_N);
    m_nextFrame->setShortcut(Qt::Key_F6);
    refresh();
}

FrameActions::~FrameActions() = default;

// A menu that opens has what is open now.
void FrameActions::fillNewFrameWith()
{
    m_newFrameWith->clear();
    for (auto const& dataSet : m_session.pages().dataSets()) {
        QString title = QString::fromStdString(dataSet->title());
        title.replace(QLatin1Char('&'), QLatin1String("&&"));
        connect(m_newFrameWith->addAction(title), &QAction::triggered, this,
                [this, dataSet] { guarded([&] { return createFrame(dataSet); }); });
    }
    m_newFrameWith->addSeparator();
    connect(m_newFrameWith->addAction(QStringLiteral("&No Data Set")), &QAction::triggered, this,
            [this] { guarded([&] { return createFrame(nullptr); }); });
}

// Does nothing while an AppLock is held.
void FrameActions::guarded(std::function<bool()> const& function)
{
    if (sdk::AppLock::depth() > 0) {
        m_follower.schedule();
        return;
    }
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!function()) {
        m_follower.schedule(); // a check mark that the click has changed goes back
        Q_EMIT refused();
    }
}

QAction* FrameActions::makeAction(char const* name, QIcon const& icon, QString const& text,
                                  std::function<bool()> const& function)
{
    auto* const action = new QAction(icon, text, this);
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, function] { guarded(function); });
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
                return withActiveFrame([&](auto& frame) {
                    return frame.plotType == type || m_session.perform(kernel::SetPlotType(frame.id, type));
                });
            });
        action->setCheckable(true);
        group->addAction(action);
        m_plotTypes[entry.type] = action;
    }
}

void FrameActions::makePlotOptions()
{
    for (kernel::PlotOption const& option : kernel::plotOptions()) {
        if (*option.text == '\0')
            continue;
        QByteArray const name = QByteArray(option.value) + "Action";
        QAction* const action =
            makeAction(name.constData(), iconNamed(option.icon), QString::fromLatin1(option.text), [this, &option] {
                return withActiveFrame([&](auto& frame) {
                    bool const isOn = !(frame.*option.member); // the click has changed the check mark, not the frame
                    return m_session.perform(kernel::SetPlotOption(frame.id, option.member, isOn));
                });
            });
        action->setCheckable(true);
        if (*option.toolTip != '\0')
            action->setToolTip(QString::fromLatin1(option.toolTip));
        m_plotOptions.push_back({&option, action});
    }
}

QList<QAction*> FrameActions::plotOptions() const
{
    QList<QAction*> actions;
    for (auto const& [option, action] : m_plotOptions)
        actions.push_back(action);
    return actions;
}

bool FrameActions::withActiveFrame(std::function<bool(kernel::Frame&)> const& function)
{
    auto const frame = m_session.activeFrame();
    return frame && function(*frame);
}

// In the middle of the paper, over what is there, half as wide and high.
bool FrameActions::createFrame(std::shared_ptr<kernel::DataSet> const& dataSet)
{
    auto const page = m_session.activePage();
    if (!page)
        return false;
    auto const frame = kernel::AddFrame::frameFor(*page, dataSet);
    return m_session.perform(kernel::AddFrame(frame, kernel::AddFrame::Place::AsItStands));
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
    m_newFrameWith->setEnabled(page != nullptr);
    m_deleteFrame->setEnabled(frame != nullptr);
    m_tileFrames->setEnabled(frame != nullptr);
    m_nextFrame->setEnabled(page && page->frames.size() > 1);
    for (auto const& [type, action] : m_plotTypes) {
        action->setEnabled(hasData);
        action->setChecked(hasData && frame->plotType == type);
    }
    bool const isLine = hasData && frame->plotType == PlotType_XYLine;
    for (auto const& [option, action] : m_plotOptions) {
        bool const applies = option->plots == kernel::PlotOption::Plots::Fields ? isField : isLine;
        action->setEnabled(applies);
        action->setChecked(applies && (*frame).*option->member);
    }
}

} // namespace veldraw::app
