#include "dialogs/bindings/RelevanceApplier.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings {

RelevanceApplier::RelevanceApplier(Rule rule, std::vector<QObject*> const& widgets, Manifestation manifestation,
                                   WidgetUpdateMode_e mode)
    : m_rule(std::move(rule))
    , m_mode(mode)
    , m_updater([this] { apply(); })
    , m_connection(m_rule->connectRelevanceChanged([this] { onRelevanceChanged(); }))
{
    WidgetVote::Effect const effect = manifestation == ShowHide ? WidgetVote::Visible : WidgetVote::Enabled;
    for (QObject* const widget : widgets)
        m_votes.push_back(std::make_unique<WidgetVote>(widget, effect));
    apply();
}

RelevanceApplier::RelevanceApplier(Rule rule, QObject* widget, Manifestation manifestation, WidgetUpdateMode_e mode)
    : RelevanceApplier(std::move(rule), std::vector<QObject*>{widget}, manifestation, mode)
{
}

RelevanceApplier::RelevanceApplier(Rule rule, QObject* first, QObject* second, Manifestation manifestation,
                                   WidgetUpdateMode_e mode)
    : RelevanceApplier(std::move(rule), std::vector<QObject*>{first, second}, manifestation, mode)
{
}

RelevanceApplier::RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third,
                                   Manifestation manifestation, WidgetUpdateMode_e mode)
    : RelevanceApplier(std::move(rule), std::vector<QObject*>{first, second, third}, manifestation, mode)
{
}

RelevanceApplier::RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third, QObject* fourth,
                                   Manifestation manifestation, WidgetUpdateMode_e mode)
    : RelevanceApplier(std::move(rule), std::vector<QObject*>{first, second, third, fourth}, manifestation, mode)
{
}

RelevanceApplier::RelevanceApplier(Rule rule, QObject* first, QObject* second, QObject* third, QObject* fourth,
                                   QObject* fifth, Manifestation manifestation, WidgetUpdateMode_e mode)
    : RelevanceApplier(std::move(rule), std::vector<QObject*>{first, second, third, fourth, fifth}, manifestation, mode)
{
}

RelevanceApplier::~RelevanceApplier() = default;

void RelevanceApplier::apply()
{
    bool const isRelevant = m_rule->isRelevant();
    for (std::unique_ptr<WidgetVote> const& vote : m_votes)
        vote->cast(isRelevant);
}

void RelevanceApplier::onRelevanceChanged()
{
    if (m_mode == UpdateImmediately)
        apply();
    else
        m_updater.enableNotification();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
