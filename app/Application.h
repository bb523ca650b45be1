#pragma once

#include <QApplication>

namespace veldraw::app {

/// The process's QApplication: fixes the number locale once and tells the user of exceptions that reach the event loop.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// Delivers the event. A std::exception that escapes on the user-interface thread is told, with the kernel's reason under
    /// "Show Details", unless its text is empty; the loop goes on.
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace veldraw::app
