#include "app/window/CutPanel.h"

#include "app/window/AssignmentPanel.h"
#include "app/window/CutDescription.h"
#include "kernel/operations/CutOperation.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace veldraw::app {

namespace {

constexpr int idRole = Qt::UserRole;

bool canBeCut(kernel::Frame const* frame)
{
    return frame && frame->dataSet &&
           (frame->plotType == PlotType_Cartesian2D || frame->plotType == PlotType_Cartesian3D);
}

} // namespace

CutPanel::CutPanel(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_notice(new QLabel)
    , m_list(new QListWidget)
    , m_add(new QToolButton)
    , m_delete(new QPushButton(QStringLiteral("Delete")))
    , m_place(new CutPlace)
    , m_follower(session, [this] { refresh(); })
{
    m_notice->setWordWrap(true);
    m_notice->setEnabled(false);
    m_list->setObjectName(QStringLiteral("cutList"));
    m_list->setAccessibleName(QStringLiteral("Slices"));
    makeButtons();
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_delete);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_notice);
    layout->addLayout(buttons);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_place);
    connect(m_list, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { showOrHide(*item); });
    connect(m_list, &QListWidget::currentRowChanged, this, &CutPanel::showCurrent);
    connect(m_place, &CutPlace::altered, this, &CutPanel::alter);
    connect(m_place, &CutPlace::variableChosen, this, &CutPanel::chooseVariable);
    connect(m_place, &CutPlace::dragBegins, this, &CutPanel::beginDrag);
    connect(m_place, &CutPlace::dragEnds, this, &CutPanel::endDrag);
    refresh();
}

CutPanel::~CutPanel()
{
    endDrag();
}

void CutPanel::makeButtons()
{
    auto* const kinds = new QMenu(m_add);
    for (int kind = 0; kind < kernel::cutKindCount; ++kind) {
        auto const ofKind = static_cast<kernel::CutKind>(kind);
        QAction* const action =
            kinds->addAction(CutDescription::kindText(ofKind), this, [this, ofKind] { add(ofKind); });
        action->setObjectName(QStringLiteral("addCut%1").arg(kind));
    }
    m_add->setObjectName(QStringLiteral("addCut"));
    m_add->setText(QStringLiteral("Add"));
    m_add->setToolTip(QStringLiteral("Add a slice or an iso-surface to the active frame"));
    m_add->setMenu(kinds);
    m_add->setPopupMode(QToolButton::InstantPopup);
    m_delete->setObjectName(QStringLiteral("deleteCut"));
    m_delete->setToolTip(QStringLiteral("Delete the slice that is selected"));
    connect(m_delete, &QPushButton::clicked, this, &CutPanel::deleteCurrent);
    auto* const byKey = new QAction(m_list);
    byKey->setShortcut(QKeySequence::Delete);
    byKey->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(byKey);
    connect(byKey, &QAction::triggered, this, &CutPanel::deleteCurrent);
}

void CutPanel::takeFocus()
{
    QWidget* const target = m_list->count() > 0 ? static_cast<QWidget*>(m_list) : m_add;
    target->setFocus(Qt::ShortcutFocusReason);
}

kernel::Cut const* CutPanel::currentCut() const
{
    auto const frame = m_session.activeFrame();
    if (!frame)
        return nullptr;
    auto const found = std::find_if(frame->cuts.begin(), frame->cuts.end(),
                                    [this](kernel::Cut const& cut) { return cut.id == m_current; });
    return found == frame->cuts.end() ? nullptr : &*found;
}

void CutPanel::perform(kernel::Operation&& operation)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    if (m_session.perform(operation))
        return;
    m_follower.schedule();
    Q_EMIT editRefused();
}

void CutPanel::add(kernel::CutKind kind)
{
    auto const frame = m_session.activeFrame();
    if (!canBeCut(frame.get()) || sdk::AppLock::depth() > 0)
        return;
    kernel::Cut const cut = kernel::defaultCut(kind, *frame);
    m_current = cut.id; // selected as soon as it is listed
    perform(kernel::AddCut(frame->id, cut));
}

void CutPanel::deleteCurrent()
{
    auto const frame = m_session.activeFrame();
    if (frame && currentCut() && sdk::AppLock::depth() == 0)
        perform(kernel::DeleteCut(frame->id, m_current));
}

void CutPanel::showOrHide(QListWidgetItem const& item)
{
    auto const frame = m_session.activeFrame();
    bool const isShown = item.checkState() == Qt::Checked;
    if (frame && sdk::AppLock::depth() == 0)
        perform(kernel::ChangeCut(frame->id, item.data(idRole).toLongLong(),
                                  [isShown](kernel::Cut& cut) { cut.isShown = isShown; }, {"Cut", "Show"}));
}

void CutPanel::alter(CutPlace::Alteration const& alter)
{
    auto const frame = m_session.activeFrame();
    if (frame && currentCut() && sdk::AppLock::depth() == 0)
        perform(kernel::ChangeCut(frame->id, m_current, alter));
}

void CutPanel::chooseVariable(int variable)
{
    auto const frame = m_session.activeFrame();
    kernel::Cut const* const cut = currentCut();
    auto const chosen = frame && frame->dataSet ? frame->dataSet->variable(variable) : nullptr;
    if (!cut || !chosen)
        return;
    // A value of the one variable is seldom one of the other.
    kernel::Cut other = *cut;
    other.variable = chosen->id;
    kernel::CutLimits const limits = kernel::limitsOf(other, *frame);
    other.position = 0.5 * limits.min + 0.5 * limits.max;
    alter([other](kernel::Cut& altered) {
        altered.variable = other.variable;
        altered.position = other.position;
    });
}

void CutPanel::beginDrag()
{
    if (!std::exchange(m_isDragging, true))
        m_session.history().beginGroup("Slice");
}

void CutPanel::endDrag()
{
    if (std::exchange(m_isDragging, false))
        m_session.history().endGroup();
}

void CutPanel::refresh()
{
    auto const frame = m_session.activeFrame();
    bool const isPossible = canBeCut(frame.get());
    m_add->setEnabled(isPossible);
    m_list->setEnabled(isPossible);
    m_notice->setVisible(!isPossible);
    m_notice->setText(QStringLiteral("Slices are shown in 2D and 3D plots of data."));
    refreshList(isPossible ? frame.get() : nullptr);
    showCurrent();
}

// Items are kept where the cuts are the same ones, so that the row stays while a slider moves.
void CutPanel::refreshList(kernel::Frame const* frame)
{
    std::vector<kernel::Cut> const none;
    std::vector<kernel::Cut> const& cuts = frame ? frame->cuts : none;
    QSignalBlocker const quiet(m_list);
    while (m_list->count() > static_cast<int>(cuts.size()))
        delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < static_cast<int>(cuts.size()))
        m_list->addItem(new QListWidgetItem);
    int current = cuts.empty() ? -1 : 0;
    for (int row = 0; row < m_list->count(); ++row) {
        kernel::Cut const& cut = cuts[static_cast<std::size_t>(row)];
        QListWidgetItem& item = *m_list->item(row);
        item.setData(idRole, cut.id);
        item.setText(CutDescription::textOf(cut, *frame));
        item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item.setCheckState(cut.isShown ? Qt::Checked : Qt::Unchecked);
        current = cut.id == m_current ? row : current;
    }
    m_list->setCurrentRow(current);
}

void CutPanel::showCurrent()
{
    QListWidgetItem const* const item = m_list->currentItem();
    m_current = item ? item->data(idRole).toLongLong() : 0;
    auto const frame = m_session.activeFrame();
    kernel::Cut const* const cut = currentCut();
    m_delete->setEnabled(cut);
    m_place->show(cut, frame.get(), AssignmentPanel::variableChoices(m_session, {}));
}

} // namespace veldraw::app
