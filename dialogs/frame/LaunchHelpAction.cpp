#include "dialogs/frame/LaunchHelpAction.h"

#include "platform/vdsdkuicommon/HelpLauncher.h"

namespace veldraw::dialogs::common {

LaunchHelpAction::LaunchHelpAction(std::string const& helpTopic, QObject& parent)
    : QAction(QStringLiteral("Help"), &parent)
    , m_helpTopic(helpTopic)
{
    connect(this, &QAction::triggered, this, [this] { perform(); });
}

LaunchHelpAction::~LaunchHelpAction() = default;

void LaunchHelpAction::setHelpTopic(std::string const& helpTopic)
{
    m_helpTopic = helpTopic;
}

void LaunchHelpAction::perform()
{
    sdk::ui::common::HelpLauncher::open(m_helpTopic);
}

} // namespace veldraw::dialogs::common
