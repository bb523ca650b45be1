#include "app/window/ProbePanel.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/ProbeLine.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace veldraw::app {

namespace {

constexpr int usualPoints = 200;

} // namespace

ProbePanel::ProbePanel(kernel::Session& session, CentralView const& view, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_probeByClick(view.probeByClick)
    , m_markProbes(view.markProbes)
    , m_notice(new QLabel(QStringLiteral(
          "Shift with a click in a 2D or 3D plot tells all values there; a second one also how far it is.")))
    , m_byClick(new QCheckBox(QStringLiteral("Also without Shift")))
    , m_list(new QTreeWidget)
    , m_load(new QPushButton(QStringLiteral("Load")))
    , m_copy(new QPushButton(QStringLiteral("Copy")))
    , m_forget(new QPushButton(QStringLiteral("Clear")))
    , m_points(new QSpinBox)
    , m_line(new QPushButton(QStringLiteral("Plot along Line")))
    , m_follower(session, [this] { refresh(); })
{
    makeFields();
    layOut();
    refresh();
}

ProbePanel::~ProbePanel() = default;

void ProbePanel::makeFields()
{
    m_notice->setWordWrap(true);
    m_notice->setEnabled(false);
    m_byClick->setObjectName(QStringLiteral("probeByClick"));
    m_byClick->setToolTip(
        QStringLiteral("Have a click alone tell them; zones are picked by Ctrl with a click meanwhile"));
    connect(m_byClick, &QCheckBox::toggled, this, [this](bool isOn) { m_probeByClick(isOn); });
    m_list->setObjectName(QStringLiteral("probeList"));
    m_list->setAccessibleName(QStringLiteral("Values"));
    m_list->setHeaderLabels({QStringLiteral("Name"), QStringLiteral("Value")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto* const byKey = new QAction(QStringLiteral("&Copy"), m_list);
    byKey->setShortcut(QKeySequence::Copy);
    byKey->setShortcutContext(Qt::WidgetShortcut);
    connect(byKey, &QAction::triggered, this, &ProbePanel::copy);
    m_list->addAction(byKey);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_load->setObjectName(QStringLiteral("probeLoad"));
    m_load->setToolTip(QStringLiteral("Load the variables of the zone whose values are not in memory"));
    connect(m_load, &QPushButton::clicked, this, &ProbePanel::load);
    m_copy->setObjectName(QStringLiteral("probeCopy"));
    m_copy->setToolTip(QStringLiteral("Copy all lines as text, with all digits"));
    connect(m_copy, &QPushButton::clicked, this, &ProbePanel::copy);
    m_forget->setObjectName(QStringLiteral("probeForget"));
    m_forget->setToolTip(QStringLiteral("Forget both places"));
    connect(m_forget, &QPushButton::clicked, this, &ProbePanel::forget);
    m_points->setObjectName(QStringLiteral("probePoints"));
    m_points->setAccessibleName(QStringLiteral("Points of the line"));
    m_points->setToolTip(QStringLiteral("Number of points, both places included"));
    m_points->setRange(2, kernel::ProbeLine::mostPoints);
    m_points->setValue(usualPoints);
    m_points->setSuffix(QStringLiteral(" points"));
    m_line->setObjectName(QStringLiteral("probeLine"));
    m_line->setToolTip(QStringLiteral("Plot the values from the place before to the last one in a new frame"));
    connect(m_line, &QPushButton::clicked, this, &ProbePanel::probeLine);
}

void ProbePanel::layOut()
{
    auto* const buttons = new QHBoxLayout;
    for (QPushButton* const button : {m_load, m_copy, m_forget})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_notice);
    layout->addWidget(m_byClick);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_points);
    layout->addWidget(m_line);
}

void ProbePanel::takeFocus()
{
    m_list->setFocus(Qt::ShortcutFocusReason);
}

void ProbePanel::add(ProbedPlace const& place)
{
    m_before = std::exchange(m_last, place);
    refresh();
}

void ProbePanel::forget()
{
    m_before.reset();
    m_last.reset();
    refresh();
}

void ProbePanel::refresh()
{
    ProbeReport::Lines lines;
    if (m_last)
        lines = ProbeReport::ofPlace(*m_last);
    if (m_before) {
        ProbeReport::Lines const way = ProbeReport::ofDistance(*m_before, *m_last);
        lines.insert(lines.begin() + (way.empty() ? 0 : 3), way.begin(), way.end());
    }
    showLines(lines);
    std::vector<ProbedPlace> places;
    for (auto const* const place : {&m_before, &m_last})
        if (*place)
            places.push_back(**place);
    m_markProbes(std::move(places));
    m_load->setEnabled(!missingVariables().empty());
    m_copy->setEnabled(m_last.has_value());
    m_forget->setEnabled(m_last.has_value());
    m_line->setEnabled(canProbeLine());
}

// Items are kept, so that the list stays where it is scrolled to while values change.
void ProbePanel::showLines(ProbeReport::Lines const& lines)
{
    while (m_list->topLevelItemCount() > static_cast<int>(lines.size()))
        delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
    while (m_list->topLevelItemCount() < static_cast<int>(lines.size()))
        m_list->addTopLevelItem(new QTreeWidgetItem);
    for (std::size_t n = 0; n < lines.size(); ++n) {
        QTreeWidgetItem& item = *m_list->topLevelItem(static_cast<int>(n));
        item.setText(0, lines[n].name);
        item.setText(1, lines[n].value);
        item.setToolTip(1, lines[n].exact);
    }
    m_lines = lines;
}

kernel::NumberSet ProbePanel::missingVariables() const
{
    kernel::NumberSet missing;
    auto const zone = m_last ? m_last->zone() : nullptr;
    for (std::size_t n = 0; zone && n < zone->fields.size(); ++n)
        if (!zone->fields[n].isLoaded())
            missing.insert(static_cast<int>(n) + 1);
    return missing;
}

void ProbePanel::load()
{
    kernel::NumberSet const missing = missingVariables();
    if (missing.empty() || sdk::AppLock::depth() > 0)
        return;
    auto const dataSet = m_last->dataSet.lock();
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (!m_session.perform(kernel::LoadVariables(*dataSet, {dataSet->zoneNumber(m_last->place.zone)}, missing)))
        Q_EMIT editRefused();
}

// The frame in which a place was pointed at tells where points are, and which zones are seen.
bool ProbePanel::canProbeLine() const
{
    auto const frame = m_last ? m_session.frame(m_last->frame) : nullptr;
    return frame && m_before && frame->dataSet && frame->dataSet == m_last->dataSet.lock() &&
           !ProbeReport::ofDistance(*m_before, *m_last).empty() && !kernel::ProbeLine::zonesFor(*frame).empty();
}

// One step for whoever undoes.
void ProbePanel::probeLine()
{
    if (!canProbeLine() || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    m_session.activateFrame(m_last->frame); // in which the line is probed, also when that is repeated as a command
    m_session.history().beginGroup("Plot along Line");
    auto const frame = m_session.frame(m_last->frame);
    bool const isProbed = m_session.perform(kernel::ProbeLine(frame->id, kernel::ProbeLine::zonesFor(*frame),
                                                              m_before->position().value(), m_last->position().value(),
                                                              m_points->value()));
    bool const isShown = isProbed && showLine();
    m_session.history().endGroup();
    if (!isShown)
        Q_EMIT editRefused();
}

// The contour variable of the plot, or the first one that has values and is on no axis, over the distance.
bool ProbePanel::showLine()
{
    auto const plot = m_session.frame(m_last->frame);
    kernel::DataSet const& dataSet = *plot->dataSet;
    int const zone = dataSet.zoneCount();
    int const distance = kernel::ProbeLine::distanceVariable(dataSet);
    std::array<int, 3> const axes = plot->axisVariables();
    auto const isCandidate = [&](int variable) {
        return variable != distance && std::count(axes.begin(), axes.end(), variable) == 0 &&
               !dataSet.field(zone, variable)->isPassive();
    };
    int shown = plot->variableNumber('C');
    for (int variable = 1; variable <= dataSet.variableCount() && (shown == 0 || !isCandidate(shown)); ++variable)
        shown = isCandidate(variable) ? variable : 0;
    auto const added = kernel::AddFrame::frameFor(*m_session.activePage(), plot->dataSet);
    return m_session.perform(kernel::AddFrame(added)) &&
           m_session.perform(kernel::SetPlotType(added->id, PlotType_XYLine)) &&
           m_session.perform(kernel::SetLinePlot(added->id, zone, distance, shown == 0 ? axes[0] : shown));
}

void ProbePanel::copy() const
{
    if (!m_lines.empty())
        QGuiApplication::clipboard()->setText(ProbeReport::text(m_lines));
}

} // namespace veldraw::app
