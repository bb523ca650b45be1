#include "app/window/PlotActions.h"

#include "app/window/AssignmentPanel.h"
#include "app/window/Icons.h"
#include "app/window/NewAction.h"
#include "app/window/NumberChooser.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QWidget>

namespace veldraw::app {

PlotActions::PlotActions(kernel::Session& session, CentralView const& view, QWidget& window)
    : QObject(&window)
    , m_session(session)
    , m_window(window)
    , m_fit(newAction(*this, "fitAction", makeIcon(Glyph::Fit), QStringLiteral("&Fit"), view.fitActiveFrame))
    , m_fitAll(newAction(*this, "fitAllAction", {}, QStringLiteral("Fit &All Frames"), view.fitAllFrames))
    , m_maximize(newAction(*this, "maximizeFrameAction", {}, QStringLiteral("&Maximize Frame"), [] {}))
    , m_lookFrom(new ViewMenu(view, &window))
    , m_assignAxes(newAction(*this, "assignAxesAction", {}, QStringLiteral("Assign A&xes..."),
                             [this] { assign(AssignmentDialog::Kind::Axes); }))
    , m_assignVector(newAction(*this, "assignVectorAction", {}, QStringLiteral("Assign &Vector..."),
                               [this] { assign(AssignmentDialog::Kind::Vector); }))
    , m_contourChooser(new NumberChooser(QStringLiteral("contourChooser"), QStringLiteral("Contour variable"), &window))
    , m_follower(session, [this] { refresh(); })
{
    m_fit->setShortcut(Qt::CTRL + Qt::Key_F);
    m_fit->setToolTip(QStringLiteral("Show the whole plot of the active frame (Ctrl+F)"));
    m_fitAll->setShortcut(Qt::CTRL + Qt::SHIFT + Qt::Key_F);
    m_maximize->setCheckable(true);
    m_maximize->setShortcut(Qt::CTRL + Qt::Key_M);
    connect(m_maximize, &QAction::toggled, this, view.maximizeFrame);
    view.onMaximized([this](bool isOn) { m_maximize->setChecked(isOn); });
    m_contourChooser->setMinimumContentsLength(18);
    connect(m_contourChooser, &NumberChooser::chosen, this, &PlotActions::chooseContour);
    refresh();
}

PlotActions::~PlotActions() = default;

void PlotActions::assign(AssignmentDialog::Kind kind)
{
    if (sdk::AppLock::depth() > 0 || !AssignmentDialog::isPossible(m_session))
        return;
    AssignmentDialog dialog(m_session, kind, &m_window);
    if (dialog.exec() != QDialog::Accepted || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!dialog.assign())
        Q_EMIT refused();
}

void PlotActions::chooseContour(int variable)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0 || frame->variableNumber('C') == variable)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(kernel::AssignVariable(frame->id, 'C', variable))) {
        m_follower.schedule();
        Q_EMIT refused();
    }
}

void PlotActions::refresh()
{
    auto const frame = m_session.activeFrame();
    bool const hasData = frame && frame->dataSet;
    bool const isField =
        hasData && (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D);
    m_fit->setEnabled(hasData);
    m_fitAll->setEnabled(hasData);
    m_maximize->setEnabled(frame != nullptr);
    bool const isInSpace = hasData && frame->plotType == PlotType_Cartesian3D;
    m_lookFrom->enable(isField, isInSpace);
    m_assignAxes->setEnabled(isField);
    m_assignVector->setEnabled(isField);
    m_contourChooser->setEnabled(isField && frame->hasContour());
    m_contourChooser->show(AssignmentPanel::variableChoices(m_session, {}), hasData ? frame->variableNumber('C') : 0);
}

} // namespace veldraw::app
