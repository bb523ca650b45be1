#include "dialogs/frame/TabWidgetLaunchHelpAction.h"

#include <QTabWidget>

namespace veldraw::dialogs::common {

TabWidgetLaunchHelpAction::TabWidgetLaunchHelpAction(std::map<QWidget*, std::string> const& topicByPage,
                                                     QTabWidget* tabs, QObject& parent)
    : LaunchHelpAction(std::string(), parent)
    , m_topicByPage(topicByPage)
    , m_tabs(tabs)
{
    connect(tabs, &QTabWidget::currentChanged, this, [this](int index) { onQTabWidgetCurrentChanged(index); });
    takeTopicOfPage(tabs->currentIndex());
}

TabWidgetLaunchHelpAction::~TabWidgetLaunchHelpAction() = default;

void TabWidgetLaunchHelpAction::onQTabWidgetCurrentChanged(int index)
{
    takeTopicOfPage(index);
}

void TabWidgetLaunchHelpAction::takeTopicOfPage(int index)
{
    auto const found = m_topicByPage.find(m_tabs ? m_tabs->widget(index) : nullptr);
    if (found != m_topicByPage.end())
        setHelpTopic(found->second);
}

} // namespace veldraw::dialogs::common
