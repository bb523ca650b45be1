#include "app/window/CopyAsCommand.h"

#include "host/MessagePresenter.h"
#include "kernel/session/Rehearsal.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QMenu>
#include <QPointer>
#include <QPushButton>

namespace veldraw::app {

namespace {

/// The button that carries out what the dialog is for; null where there is none.
QPushButton* applyButtonOf(QDialogButtonBox const& box)
{
    for (QAbstractButton* const button : box.buttons()) {
        QDialogButtonBox::ButtonRole const role = box.buttonRole(button);
        if (role == QDialogButtonBox::ActionRole || role == QDialogButtonBox::ApplyRole ||
            role == QDialogButtonBox::AcceptRole)
            return qobject_cast<QPushButton*>(button);
    }
    return nullptr;
}

QString scriptOf(std::vector<std::string> const& commands)
{
    QStringList lines;
    for (std::string const& command : commands)
        lines << QString::fromStdString(command);
    return lines.join(QLatin1Char('\n'));
}

} // namespace

CopyAsCommand::CopyAsCommand(QWidget& dialog)
    : QObject(&dialog)
{
    for (QDialogButtonBox* const box : dialog.findChildren<QDialogButtonBox*>())
        box->installEventFilter(this);
}

bool CopyAsCommand::eventFilter(QObject* watched, QEvent* event)
{
    auto* const box = qobject_cast<QDialogButtonBox*>(watched);
    if (event->type() != QEvent::ContextMenu || !box)
        return QObject::eventFilter(watched, event);
    showMenu(*box, static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

void CopyAsCommand::showMenu(QDialogButtonBox& box, QPoint const& place)
{
    QPushButton* const button = applyButtonOf(box);
    auto* const menu = new QMenu(&box);
    menu->setObjectName(QStringLiteral("copyAsCommandMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const action = menu->addAction(QStringLiteral("&Copy as Command"));
    action->setEnabled(button && sdk::AppLock::depth() == 0);
    QPointer<QPushButton> const target(button);
    connect(action, &QAction::triggered, this, [this, target] {
        if (target)
            copy(*target);
    });
    menu->popup(place);
}

void CopyAsCommand::copy(QPushButton& button)
{
    using host::MessagePresenter;
    button.setFocus(Qt::OtherFocusReason); // what is typed counts, as with a click
    std::vector<std::string> commands;
    std::vector<MessagePresenter::Message> messages;
    {
        kernel::Rehearsal const rehearsal;
        MessagePresenter::Capture const capture;
        button.click();
        commands = rehearsal.commands();
        messages = capture.messages();
    }
    if (!commands.empty()) {
        QGuiApplication::clipboard()->setText(scriptOf(commands));
        Q_EMIT told(QStringLiteral("Copied: %1").arg(QString::fromStdString(commands.front())));
    } else if (!messages.empty()) {
        MessagePresenter::Details const details(messages.front().details);
        MessagePresenter::present(messages.front().text, messages.front().type);
    } else {
        Q_EMIT told(QStringLiteral("There is nothing to copy: the choices are not complete."));
    }
}

} // namespace veldraw::app
