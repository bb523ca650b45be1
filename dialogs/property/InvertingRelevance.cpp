#include "dialogs/property/InvertingRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

InvertingRelevance::InvertingRelevance(boost::shared_ptr<RelevanceInterface const> inner)
    : m_inner(std::move(inner))
    , m_innerConnection(m_inner->connectRelevanceChanged([this] { signalRelevanceChanged(); }))
{
}

bool InvertingRelevance::isRelevant() const
{
    return !m_inner->isRelevant();
}

} // namespace veldraw::sdk::ui::propertymanager
