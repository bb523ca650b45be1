#include "app/window/DataActions.h"

#include "app/window/CopyAsCommand.h"
#include "app/window/DataOperation.h"
#include "app/window/NewAction.h"
#include "dialogs/bindings/RelevanceApplier.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QAction>
#include <QWidget>

namespace veldraw::app {

using sdk::ui::dialogs::propertybindings::RelevanceApplier;

DataActions::DataActions(QWidget& window)
    : QObject(&window)
    , m_window(window)
{
    for (DataOperation const& operation : dataOperations()) {
        m_actions.push_back(newAction(*this, operation.name, {}, QString::fromUtf8(operation.text),
                                      [this, &operation] { open(operation); }));
        m_appliers.push_back(std::make_unique<RelevanceApplier>(
            operation.relevance(), m_actions.back(), RelevanceApplier::EnableDisable, RelevanceApplier::UpdateOnIdle));
    }
}

DataActions::~DataActions() = default;

void DataActions::open(DataOperation const& operation)
{
    if (sdk::AppLock::depth() > 0)
        Q_EMIT told(QStringLiteral("Another operation is still running."));
    else
        launch(operation.dialog(m_window));
}

void DataActions::launch(DialogInterface& dialog)
{
    dialog.launch();
    auto* const widget = dynamic_cast<QWidget*>(&dialog);
    if (!widget || widget->findChild<CopyAsCommand*>())
        return;
    connect(new CopyAsCommand(*widget), &CopyAsCommand::told, this, &DataActions::told);
}

} // namespace veldraw::app
