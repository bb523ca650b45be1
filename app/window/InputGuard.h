#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace veldraw::app {

/// Lets the user's input reach one window only, for a scope: mouse, keys, shortcuts, dropped files and requests to close that
/// go to any other window come to nothing. Modality alone does not stop files that are dropped, nor events that a program
/// makes.
class InputGuard : public QObject
{
    Q_OBJECT

public:
    /// @param allowed may go while the guard stands; then nothing is let through
    explicit InputGuard(QWidget& allowed);
    ~InputGuard() override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool isAllowed(QObject const* receiver) const;

    QPointer<QWidget> m_allowed;
};

} // namespace veldraw::app
