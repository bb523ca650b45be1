#include "app/window/AssignmentPanel.h"

#include "app/window/BlankingBox.h"
#include "app/window/ContourBox.h"
#include "app/window/LineAxesBox.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetContourColours.h"
#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValueBlanking.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace veldraw::app {

namespace {

bool isFieldPlot(kernel::Frame const& frame)
{
    return frame.plotType == PlotType_Cartesian2D || frame.plotType == PlotType_Cartesian3D;
}

} // namespace

AssignmentPanel::AssignmentPanel(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_notice(new QLabel)
    , m_fieldGroup(makeFieldGroup())
    , m_lineGroup(makeLineGroup())
    , m_contour(new ContourBox)
    , m_lineAxes(new LineAxesBox)
    , m_blanking(new BlankingBox)
    , m_area(new QScrollArea)
    , m_follower(session, [this] { refresh(); })
{
    m_notice->setWordWrap(true);
    m_notice->setEnabled(false);
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_notice);
    layout->addWidget(m_fieldGroup);
    layout->addWidget(m_lineGroup);
    layout->addWidget(m_contour);
    layout->addWidget(m_lineAxes);
    layout->addWidget(m_blanking);
    layout->addStretch();
    m_area->setWidget(content);
    m_area->setWidgetResizable(true); // scrolls where the window is low
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->viewport()->setAutoFillBackground(false); // the dock's own is seen
    content->setAutoFillBackground(false);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_area);
    connect(m_contour, &ContourBox::chosen, this, &AssignmentPanel::chooseColours);
    followLineAxes();
    connect(m_blanking, &BlankingBox::chosen, this, &AssignmentPanel::chooseBlanking);
    refresh();
}

NumberChooser* AssignmentPanel::makeAssignment(char assignment, QString const& text)
{
    QString const letter = QString(QLatin1Char(assignment));
    auto* const chooser = new NumberChooser(QStringLiteral("assignment") + letter, text);
    m_assignments[assignment] = chooser;
    connect(chooser, &NumberChooser::chosen, this, [this, assignment](int variable) { assign(assignment, variable); });
    return chooser;
}

QGroupBox* AssignmentPanel::makeFieldGroup()
{
    auto* const group = new QGroupBox(QStringLiteral("Field plot"));
    auto* const form = new QFormLayout(group);
    for (char const letter : {'X', 'Y', 'Z', 'U', 'V', 'W', 'C'}) {
        QString const text = letter == 'C'  ? QStringLiteral("Contour variable")
                             : letter < 'X' ? QStringLiteral("Vector %1").arg(QLatin1Char(letter))
                                            : QStringLiteral("Axis %1").arg(QLatin1Char(letter));
        NumberChooser* const chooser = makeAssignment(letter, text);
        form->addRow(letter == 'C' ? QStringLiteral("Contour:") : text + QLatin1Char(':'), chooser);
        m_labels[letter] = qobject_cast<QLabel*>(form->labelForField(chooser));
    }
    return group;
}

QGroupBox* AssignmentPanel::makeLineGroup()
{
    auto* const group = new QGroupBox(QStringLiteral("Line plot"));
    auto* const form = new QFormLayout(group);
    m_lineZone = new NumberChooser(QStringLiteral("lineZone"), QStringLiteral("Zone of the line plot"));
    m_lineX = new NumberChooser(QStringLiteral("lineX"), QStringLiteral("Horizontal variable of the line plot"));
    m_lineY = new NumberChooser(QStringLiteral("lineY"), QStringLiteral("Vertical variable of the line plot"));
    form->addRow(QStringLiteral("Zone:"), m_lineZone);
    form->addRow(QStringLiteral("Horizontal:"), m_lineX);
    form->addRow(QStringLiteral("Vertical:"), m_lineY);
    for (NumberChooser* chooser : {m_lineZone, m_lineX, m_lineY})
        connect(chooser, &NumberChooser::chosen, this, &AssignmentPanel::assignLine);
    return group;
}

void AssignmentPanel::takeFocus()
{
    NumberChooser* const first = m_fieldGroup->isHidden() ? m_lineZone : m_assignments.at('X');
    first->setFocus(Qt::ShortcutFocusReason);
    m_area->ensureWidgetVisible(first);
}

NumberChooser::Choices AssignmentPanel::zoneChoices(kernel::Session const& session)
{
    NumberChooser::Choices choices;
    auto const dataSet = session.activeDataSet();
    if (!dataSet)
        return choices;
    for (int const zone : dataSet->enabledZones())
        choices.emplace_back(zone,
                             QStringLiteral("%1: ").arg(zone) + QString::fromStdString(dataSet->zone(zone)->name));
    return choices;
}

NumberChooser::Choices AssignmentPanel::variableChoices(kernel::Session const& session, QString const& firstText)
{
    NumberChooser::Choices choices;
    if (!firstText.isEmpty())
        choices.emplace_back(0, firstText);
    auto const dataSet = session.activeDataSet();
    if (!dataSet)
        return choices;
    for (int const variable : dataSet->enabledVariables())
        choices.emplace_back(variable, QStringLiteral("%1: ").arg(variable) +
                                           QString::fromStdString(dataSet->variable(variable)->name));
    return choices;
}

void AssignmentPanel::refresh()
{
    auto const frame = m_session.activeFrame();
    bool const hasData = frame && frame->dataSet;
    bool const isField = hasData && isFieldPlot(*frame);
    bool const isLine = hasData && frame->plotType == PlotType_XYLine;
    m_fieldGroup->setVisible(isField);
    m_lineGroup->setVisible(isLine);
    m_contour->setVisible(isField);
    m_lineAxes->setVisible(isLine);
    m_blanking->setVisible(isField);
    m_notice->setVisible(!isField && !isLine);
    m_notice->setText(hasData ? QStringLiteral("This plot type shows no variables.")
                              : QStringLiteral("The active frame has no data. Open a file to plot it."));
    if (isField)
        refreshField(*frame);
    if (isLine)
        refreshLine(*frame);
    m_area->setMinimumWidth(m_area->widget()->minimumSizeHint().width() +
                            m_area->verticalScrollBar()->sizeHint().width());
}

void AssignmentPanel::refreshField(kernel::Frame const& frame)
{
    auto const choices = variableChoices(m_session, noneText());
    bool const inSpace = frame.plotType == PlotType_Cartesian3D;
    for (auto const& [assignment, chooser] : m_assignments) {
        chooser->show(choices, frame.variableNumber(assignment));
        bool const isUsed = inSpace || (assignment != 'Z' && assignment != 'W');
        chooser->setVisible(isUsed);
        m_labels.at(assignment)->setVisible(isUsed);
    }
    m_contour->show(frame);
    m_blanking->show(frame, variableChoices(m_session, {}));
}

void AssignmentPanel::refreshLine(kernel::Frame const& frame)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    auto const variables = variableChoices(m_session, {});
    bool const hasMap = !frame.lineMaps.empty();
    m_lineZone->show(zoneChoices(m_session), hasMap ? dataSet.zoneNumber(frame.lineMaps.front().zone) : 0);
    m_lineX->show(variables, hasMap ? dataSet.variableNumber(frame.lineMaps.front().xVariable) : 0);
    m_lineY->show(variables, hasMap ? dataSet.variableNumber(frame.lineMaps.front().yVariable) : 0);
    m_lineAxes->show(frame);
}

void AssignmentPanel::assign(char assignment, int variable)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (frame->variableNumber(assignment) != variable &&
        !m_session.perform(kernel::AssignVariable(frame->id, assignment, variable))) {
        m_follower.schedule();
        Q_EMIT editRefused();
    }
}

void AssignmentPanel::chooseColours(kernel::ContourColours const& colours)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(kernel::SetContourColours(frame->id, colours)))
        Q_EMIT editRefused();
    m_follower.schedule(); // limits that were typed may be those that are shown already
}

void AssignmentPanel::followLineAxes()
{
    connect(m_lineAxes, &LineAxesBox::chosen, this, [this](kernel::LineAxisKind kind, kernel::LineAxis const& axis) {
        if (auto const frame = m_session.activeFrame())
            perform(kernel::SetLineAxis(frame->id, kind, axis));
    });
    connect(m_lineAxes, &LineAxesBox::titleChosen, this, [this](QString const& title) {
        if (auto const frame = m_session.activeFrame())
            perform(kernel::SetPlotTitle(frame->id, title.toStdString()));
    });
    connect(m_lineAxes, &LineAxesBox::fitWanted, this, &AssignmentPanel::fitLineAxes);
}

void AssignmentPanel::perform(kernel::Operation&& operation)
{
    m_follower.schedule(); // what was typed may be what is there already
    if (sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(operation))
        Q_EMIT editRefused();
}

// As one step.
void AssignmentPanel::fitLineAxes()
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return;
    m_session.history().beginGroup("Fit");
    for (int n = 0; n < kernel::lineAxisCount; ++n) {
        kernel::LineAxis axis = frame->lineAxes.axes[static_cast<std::size_t>(n)];
        axis.isFixed = false;
        perform(kernel::SetLineAxis(frame->id, static_cast<kernel::LineAxisKind>(n), axis));
    }
    m_session.history().endGroup();
}

void AssignmentPanel::chooseBlanking(kernel::ValueBlanking const& blanking)
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(kernel::SetValueBlanking(frame->id, blanking)))
        Q_EMIT editRefused();
    m_follower.schedule(); // the fields show what is in force
}

void AssignmentPanel::assignLine()
{
    auto const frame = m_session.activeFrame();
    if (!frame || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(
            kernel::SetLinePlot(frame->id, m_lineZone->number(), m_lineX->number(), m_lineY->number()))) {
        m_follower.schedule();
        Q_EMIT editRefused();
    }
}

} // namespace veldraw::app
