#include "app/window/JournalPanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldraw::app {

namespace {

QListWidget* makeList()
{
    auto* const list = new QListWidget;
    list->setObjectName(QStringLiteral("journalView"));
    list->setAccessibleName(QStringLiteral("Journal"));
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    list->setToolTip(QStringLiteral("What has been done, as commands; what is undone is struck out"));
    list->setContextMenuPolicy(Qt::ActionsContextMenu);
    return list;
}

} // namespace

JournalPanel::JournalPanel(kernel::Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_list(makeList())
    , m_save(new QPushButton(QStringLiteral("Sa&ve Script...")))
    , m_run(new QPushButton(QStringLiteral("R&un Script...")))
    , m_follower(session, [this] { refresh(); })
{
    makeButtons();
    auto* const copy = new QAction(QStringLiteral("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &JournalPanel::copySelected);
    m_list->addAction(copy);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_save);
    buttons->addWidget(m_run);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    m_listener = m_session.journal().addListener([this] { m_follower.schedule(); });
    refresh();
}

JournalPanel::~JournalPanel()
{
    m_session.journal().removeListener(m_listener);
}

void JournalPanel::makeButtons()
{
    m_save->setObjectName(QStringLiteral("saveScriptButton"));
    m_save->setToolTip(QStringLiteral("Save what is not undone as a script, which does the same again"));
    connect(m_save, &QPushButton::clicked, this, &JournalPanel::saveWanted);
    m_run->setObjectName(QStringLiteral("runScriptButton"));
    m_run->setToolTip(QStringLiteral("Do what a script says, command by command"));
    connect(m_run, &QPushButton::clicked, this, &JournalPanel::runWanted);
}

void JournalPanel::takeFocus()
{
    m_list->setFocus(Qt::ShortcutFocusReason);
    m_list->scrollToBottom(); // which a list does not do while it is hidden
}

void JournalPanel::refresh()
{
    auto const& entries = m_session.journal().entries();
    auto const count = static_cast<int>(entries.size());
    if (m_list->count() > count)
        m_list->clear();
    bool const isLonger = m_list->count() < count;
    while (m_list->count() < count)
        m_list->addItem(new QListWidgetItem);
    for (int row = 0; row < count; ++row)
        showState(row);
    m_save->setEnabled(count > 0);
    if (isLonger)
        m_list->scrollToBottom();
}

// Of a drag the text follows the newest moment.
void JournalPanel::showState(int row)
{
    auto const& entry = *m_session.journal().entries()[static_cast<std::size_t>(row)];
    QListWidgetItem& item = *m_list->item(row);
    QString const text = QString::fromStdString(entry.text);
    if (item.text() != text)
        item.setText(text);
    if (item.font().strikeOut() != entry.isUndone) {
        QFont font = item.font();
        font.setStrikeOut(entry.isUndone);
        item.setFont(font);
    }
    Qt::ItemFlags const flags = entry.isCommand && !entry.isUndone ? Qt::ItemIsSelectable | Qt::ItemIsEnabled
                                                                   : Qt::ItemFlags(Qt::ItemIsSelectable);
    if (item.flags() != flags)
        item.setFlags(flags);
    QString const tip = entry.isUndone ? QStringLiteral("Undone")
                        : entry.isCommand
                            ? QString()
                            : QStringLiteral("No command stands for this, so that no script can repeat it");
    if (item.toolTip() != tip)
        item.setToolTip(tip);
}

void JournalPanel::copySelected()
{
    QStringList texts;
    for (int row = 0; row < m_list->count(); ++row)
        if (m_list->item(row)->isSelected())
            texts.push_back(m_list->item(row)->text());
    QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

} // namespace veldraw::app
