#include "app/window/ProbePanel.h"

#include "kernel/operations/LoadVariables.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <utility>

namespace veldraw::app {

ProbePanel::ProbePanel(kernel::Session& session, std::function<void(bool)> probeByClick, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_probeByClick(std::move(probeByClick))
    , m_notice(new QLabel(QStringLiteral(
          "Shift with a click in a 2D or 3D plot tells all values there; a second one also how far it is.")))
    , m_byClick(new QCheckBox(QStringLiteral("Also without Shift")))
    , m_list(new QTreeWidget)
    , m_load(new QPushButton(QStringLiteral("Load")))
    , m_copy(new QPushButton(QStringLiteral("Copy")))
    , m_forget(new QPushButton(QStringLiteral("Clear")))
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
    m_byClick->setToolTip(QStringLiteral("Have a click alone tell them; zones are picked by Ctrl with a click meanwhile"));
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
    m_load->setEnabled(!missingVariables().empty());
    m_copy->setEnabled(m_last.has_value());
    m_forget->setEnabled(m_last.has_value());
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

void ProbePanel::copy() const
{
    if (!m_lines.empty())
        QGuiApplication::clipboard()->setText(ProbeReport::text(m_lines));
}

} // namespace veldraw::app
