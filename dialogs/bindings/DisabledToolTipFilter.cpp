#include "dialogs/bindings/DisabledToolTipFilter.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

DisabledToolTipFilter::DisabledToolTipFilter(boost::shared_ptr<propertymanager::RelevanceInterface const> rule,
                                             std::function<QString()> text, QObject& widget)
    : QObject(&widget)
    , m_rule(std::move(rule))
    , m_text(std::move(text))
{
}

bool DisabledToolTipFilter::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::ToolTip || !widget || m_rule->isRelevant())
        return false;
    QString const text = m_text();
    if (text.isEmpty())
        return false;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, widget);
    return true;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
