#pragma once

#include <QObject>

#include <memory>
#include <vector>

class QAction;

namespace veldraw::sdk::ui::dialogs::propertybindings {
class RelevanceApplier;
}

namespace veldraw {
class DialogInterface;
}

namespace veldraw::app {

struct DataOperation;

/// The data operations as the Data menu offers them: each opens its dialog and is available when the dialog says so.
/// None opens while an AppLock is held.
class DataActions : public QObject
{
    Q_OBJECT

public:
    /// @param window parent of the dialogs, which owns the actions
    explicit DataActions(QWidget& window);
    ~DataActions() override;

    /// In the order of the menu.
    std::vector<QAction*> const& actions() const { return m_actions; }

Q_SIGNALS:
    /// One sentence for the status bar.
    void told(QString const& text);

private:
    void open(DataOperation const& operation);
    void launch(DialogInterface& dialog);

    QWidget& m_window;
    std::vector<QAction*> m_actions;
    std::vector<std::unique_ptr<sdk::ui::dialogs::propertybindings::RelevanceApplier>> m_appliers;
};

} // namespace veldraw::app
