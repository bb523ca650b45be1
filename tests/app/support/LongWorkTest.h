#pragma once

#include "app/window/ProgressWindow.h"
#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QTimer>

#include <functional>

namespace veldraw::tests {

/// A main window over work that takes long enough for the progress window to show.
class LongWorkTest : public WindowTest
{
protected:
    static app::ProgressWindow* progressWindow()
    {
        return dynamic_cast<app::ProgressWindow*>(QApplication::activeModalWidget());
    }

    /// Runs @p user once the progress window is there.
    void whenItShows(std::function<void()> const& user)
    {
        QTimer::singleShot(5, window.get(), [this, user] {
            if (progressWindow())
                user();
            else
                whenItShows(user);
        });
    }
};

} // namespace veldraw::tests
