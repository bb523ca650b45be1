#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <functional>
#include <vector>

class QObject;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Gives widgets a tool tip for the time that a rule is false, so that they tell why they cannot be used. While the
/// rule is true, or the text is empty, a widget shows its own tool tip.
class VDSDKDIALOGS_DATA_QT_API SimpleToolTipProvider
{
public:
    /// The rule is kept alive as long as the widgets live. Null widgets are left out.
    static void installDisabledToolTip(boost::shared_ptr<propertymanager::RelevanceInterface const> const& rule,
                                       std::vector<QObject*> const& widgets, QString const& text);

    /// The text is computed each time that the tool tip is about to show.
    static void installDynamicDisabledToolTip(boost::shared_ptr<propertymanager::RelevanceInterface const> const& rule,
                                              std::vector<QObject*> const& widgets,
                                              std::function<QString()> const& text);
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
