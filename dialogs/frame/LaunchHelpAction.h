#pragma once

#include "dialogs/property/DialogsApi.h"

#include <QAction>

#include <string>

namespace veldraw::dialogs::common {

/// Opens one help topic when it is triggered, through whatever the application has installed for that.
class VDSDKDIALOGS_DATA_QT_API LaunchHelpAction : public QAction
{
public:
    /// @param helpTopic file name of the topic, such as "delete_variable.html"
    /// @param parent owns the action
    LaunchHelpAction(std::string const& helpTopic, QObject& parent);
    ~LaunchHelpAction() override;

protected:
    void setHelpTopic(std::string const& helpTopic);

private:
    virtual void perform();

    std::string m_helpTopic;
};

} // namespace veldraw::dialogs::common
