#pragma once

#include <QDialog>

class QProgressBar;
class QPushButton;

namespace veldraw::app {

/// Tells how far a long operation has come and offers to cancel it. It stands over all windows of the program and lets no
/// input through to them.
///
/// Cancel, Esc and the window's own close all mean the same, and the window stays until whoever made it takes it away: an
/// operation is over when it has ended, not when the user has asked for it.
class ProgressWindow : public QDialog
{
    Q_OBJECT

public:
    /// @param operation name as the undo menu shows it
    explicit ProgressWindow(QString const& operation, QWidget* parent = nullptr);

    /// From 0 to 1. As long as it is 0 the bar only shows that something goes on.
    void showFraction(double fraction);

    bool isCancelled() const { return m_isCancelled; }

public Q_SLOTS:
    /// Asks for the cancel instead of closing the window.
    void reject() override;

Q_SIGNALS:
    /// The user has cancelled; sent once.
    void cancelled();

private:
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    bool m_isCancelled = false;
};

} // namespace veldraw::app
