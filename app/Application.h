#pragma once

#include <QApplication>

namespace veldraw::app {

/// The process's QApplication: fixes the number locale once and tells the user of exceptions that reach the event loop.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// Delivers the event; a std::exception that escapes is shown (unless its text is empty) and the loop goes on.
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace veldraw::app
