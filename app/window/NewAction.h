#pragma once

#include <QIcon>
#include <QString>

#include <functional>

class QAction;
class QObject;

namespace veldraw::app {

/// An action that runs @p function. @param parent owns it and ends the connection; @param name for tests and the tour
QAction* newAction(QObject& parent, char const* name, QIcon const& icon, QString const& text,
                   std::function<void()> const& function);

} // namespace veldraw::app
