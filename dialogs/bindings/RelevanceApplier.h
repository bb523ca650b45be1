#pragma once

#include "dialogs/bindings/BindingInterface.h"
#include "dialogs/bindings/WidgetVote.h"
#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"
#include "platform/vdsdkuicommon/OnIdleActionPerformerSingleShot.h"

#include <boost/shared_ptr.hpp>
#include <boost/signals2/connection.hpp>

#include <memory>
#include <vector>

class QObject;

namespace veldraw::sdk::ui::dialogs::propertybindings {

using propertymanager::RelevanceInterface;

/// Lets widgets, or the actions of menus, follow a rule: by enabling and disabling or by showing and hiding them.
///
/// The rule is applied once at the end of the constructor, so that nothing is ever seen in the wrong state, and then
/// after each of its signals: at once, or at the next idle moment. Several appliers on one widget combine: it is
/// enabled, or shown, only if every one of them says so. Widgets may die before the applier.
class VDSDKDIALOGS_DATA_QT_API RelevanceApplier : public BindingInterface
{
public:
    enum Manifestation
    {
        EnableDisable = 0,
        ShowHide = 1
    };
    using Rule = boost::shared_ptr<RelevanceInterface const>;

    /// The rule must not be empty; it is kept alive. Null widgets are left out.
    RelevanceApplier(Rule rule, std::vector<QObject*> const& widgets, Manifestation manifestation,
                     WidgetUpdateMode_e mode);
    RelevanceApplier(Rule rule, QObject* widget, Manifestation manifestation, WidgetUpdateMode_e mode);
    RelevanceApplier(Rule rule, QObject* first, QObject* second, Manifestation manifestation, WidgetUpdateMode_e mode);
    RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third, Manifestation manifestation,
                     WidgetUpdateMode_e mode);
    RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third, QObject* fourth,
                     Manifestation manifestation, WidgetUpdateMode_e mode);
    RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third, QObject* fourth, QObject* fifth,
                     Manifestation manifestation, WidgetUpdateMode_e mode);
    ~RelevanceApplier() override;
    RelevanceApplier(RelevanceApplier const&) = delete;
    RelevanceApplier& operator=(RelevanceApplier const&) = delete;

    /// Asks the rule now and sets the widgets' state.
    void apply();

private:
    void onRelevanceChanged();

    Rule m_rule;
    WidgetUpdateMode_e m_mode;
    std::vector<std::unique_ptr<WidgetVote>> m_votes;
    common::OnIdleActionPerformerSingleShot m_updater;
    boost::signals2::scoped_connection m_connection;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
