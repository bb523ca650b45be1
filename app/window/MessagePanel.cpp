#include "app/window/MessagePanel.h"

#include <QAction>
#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace veldraw::app {

namespace {

QStyle::StandardPixmap pictureOf(MessageBoxType_e type)
{
    switch (type) {
    case MessageBoxType_Error:
        return QStyle::SP_MessageBoxCritical;
    case MessageBoxType_Warning:
        return QStyle::SP_MessageBoxWarning;
    case MessageBoxType_Information:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

QString timeText(std::chrono::system_clock::time_point time)
{
    auto const sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toString(QStringLiteral("HH:mm:ss"));
}

} // namespace

MessagePanel::MessagePanel(QWidget* parent)
    : QWidget(parent)
    , m_list(new QListWidget)
{
    m_list->setObjectName(QStringLiteral("messageView"));
    m_list->setAccessibleName(QStringLiteral("Messages"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setWordWrap(true);
    auto* const copy = new QAction(QStringLiteral("&Copy"), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &MessagePanel::copySelected);
    m_list->addAction(copy);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->addWidget(m_list);

    for (host::MessageLog::Entry const& entry : host::MessageLog::instance().entries())
        append(entry);
    m_connections.add(host::MessageLog::instance().connectEntryAdded(
        [this](host::MessageLog::Entry const& entry) { append(entry); }));
}

void MessagePanel::append(host::MessageLog::Entry const& entry)
{
    QString const text = QStringLiteral("%1  %2").arg(timeText(entry.time), QString::fromStdString(entry.text));
    m_list->addItem(new QListWidgetItem(style()->standardIcon(pictureOf(entry.type)), text));
    m_list->scrollToBottom();
}

void MessagePanel::copySelected()
{
    QStringList texts;
    for (int row = 0; row < m_list->count(); ++row)
        if (m_list->item(row)->isSelected())
            texts.push_back(m_list->item(row)->text());
    QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}

} // namespace veldraw::app
