// The program itself. It ends by itself once it has opened its files, and tells how its window stands on the screen: a line "NAME X Y
// WIDTH HEIGHT" for the screen and each part of the window, in logical pixels of the screen.
#include "app/commandline/Program.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>

#include <cstdio>

namespace {

QMainWindow* mainWindow()
{
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == QLatin1String("mainWindow"))
            return qobject_cast<QMainWindow*>(widget);
    return nullptr;
}

void tell(QString const& name, QRect const& place)
{
    QTextStream(stdout) << name << ' ' << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height()
                        << '\n';
}

void tell(QString const& name, QWidget const& part)
{
    tell(name, QRect(part.mapToGlobal(QPoint(0, 0)), part.size()));
}

void report(QMainWindow& window)
{
    tell(QStringLiteral("screen"), window.screen()->availableGeometry());
    tell(QStringLiteral("window"), window.frameGeometry());
    tell(QStringLiteral("menuBar"), *window.menuBar());
    tell(QStringLiteral("statusBar"), *window.statusBar());
    tell(QStringLiteral("page"), *window.centralWidget());
    for (QToolBar const* const bar : window.findChildren<QToolBar*>())
        tell(bar->objectName(), *bar);
    for (QDockWidget* const dock : window.findChildren<QDockWidget*>()) {
        dock->raise(); // some share a place
        QApplication::processEvents();
        tell(dock->objectName(), *dock);
        tell(dock->objectName() + QStringLiteral(".seen"),
             dock->visibleRegion().boundingRect().translated(dock->mapToGlobal(QPoint(0, 0))));
        tell(dock->objectName() + QStringLiteral(".needed"),
             QRect(dock->mapToGlobal(QPoint(0, 0)), dock->minimumSizeHint()));
    }
}

void look()
{
    QMainWindow* const window = mainWindow();
    auto const* const zones = window ? window->findChild<QAbstractItemView*>(QStringLiteral("zoneView")) : nullptr;
    if (!zones || zones->model()->rowCount() == 0) {
        QTimer::singleShot(50, look);
        return;
    }
    report(*window);
    window->close();
}

void startLooking()
{
    QTimer::singleShot(50, look);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startLooking)

int main(int argc, char** argv)
{
    return veldraw::app::runProgram(argc, argv);
}
