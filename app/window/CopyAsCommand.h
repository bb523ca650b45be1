#pragma once

#include <QObject>
#include <QString>

class QDialogButtonBox;
class QPushButton;

namespace veldraw::app {

/// Gives the context menu of each button box of a dialog the entry "Copy as Command": what the button of the dialog would do with the
/// present choices, as a command on the clipboard. Nothing is carried out. Where the dialog would tell why it cannot, it does.
class CopyAsCommand : public QObject
{
    Q_OBJECT

public:
    /// @param dialog which owns the object
    explicit CopyAsCommand(QWidget& dialog);

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showMenu(QDialogButtonBox& box, QPoint const& place);
    void copy(QPushButton& button);
};

} // namespace veldraw::app
