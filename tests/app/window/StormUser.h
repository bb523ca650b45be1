#pragma once

#include "tests/app/window/StormDice.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace veldraw::tests {

/// Clicks, types and resizes at random through the windows on the screen, as a user can: clicks go to the window under them.
class StormUser
{
public:
    /// @param window of the application, of which only the size is changed @param launch opens one of so many dialogs
    StormUser(StormDice& dice, QWidget& window, int dialogs, std::function<void(int)> launch);

    /// Does something.
    void act();

    /// Opens all dialogs.
    void launchAll();

private:
    QWidget* someDialog();
    QWidget* somePlaceIn(QWidget& dialog);
    void click(QWidget& widget);
    void use(QWidget& widget);
    void type(QWidget& widget);
    void pressKey(QWidget& widget);
    void resize(QWidget& widget);
    void closeModal();

    StormDice& m_dice;
    QWidget& m_window;
    int m_dialogs;
    std::function<void(int)> m_launch;
    QTimer m_closer;
};

} // namespace veldraw::tests
