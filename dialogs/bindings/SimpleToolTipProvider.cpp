#include "dialogs/bindings/SimpleToolTipProvider.h"

#include "dialogs/bindings/DisabledToolTipFilter.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

using propertymanager::RelevanceInterface;

void SimpleToolTipProvider::installDisabledToolTip(boost::shared_ptr<RelevanceInterface const> const& rule,
                                                   std::vector<QObject*> const& widgets, QString const& text)
{
    installDynamicDisabledToolTip(rule, widgets, [text] { return text; });
}

void SimpleToolTipProvider::installDynamicDisabledToolTip(boost::shared_ptr<RelevanceInterface const> const& rule,
                                                          std::vector<QObject*> const& widgets,
                                                          std::function<QString()> const& text)
{
    for (QObject* const widget : widgets)
        if (widget)
            widget->installEventFilter(new DisabledToolTipFilter(rule, text, *widget));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
