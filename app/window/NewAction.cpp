#include "app/window/NewAction.h"

#include <QAction>

namespace veldraw::app {

QAction* newAction(QObject& parent, char const* name, QIcon const& icon, QString const& text,
                   std::function<void()> const& function)
{
    auto* const action = new QAction(icon, text, &parent);
    action->setObjectName(QString::fromLatin1(name));
    QObject::connect(action, &QAction::triggered, &parent, function);
    return action;
}

} // namespace veldraw::app
