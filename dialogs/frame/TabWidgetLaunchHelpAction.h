#pragma once

#include "dialogs/frame/LaunchHelpAction.h"
#include "dialogs/property/DialogsApi.h"

#include <QPointer>

#include <map>

class QTabWidget;
class QWidget;

namespace veldraw::dialogs::common {

/// Opens the help topic of the page that a tab widget shows. For a page without a topic the last one stays.
class VDSDKDIALOGS_DATA_QT_API TabWidgetLaunchHelpAction : public LaunchHelpAction
{
public:
    /// @param topicByPage file name of the topic of each page
    /// @param tabs may die before the action
    /// @param parent owns the action
    TabWidgetLaunchHelpAction(std::map<QWidget*, std::string> const& topicByPage, QTabWidget* tabs, QObject& parent);
    ~TabWidgetLaunchHelpAction() override;

private:
    virtual void onQTabWidgetCurrentChanged(int index);
    void takeTopicOfPage(int index);

    std::map<QWidget*, std::string> m_topicByPage;
    QPointer<QTabWidget> m_tabs;
};

} // namespace veldraw::dialogs::common
