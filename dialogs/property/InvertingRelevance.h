#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>
#include <boost/signals2/connection.hpp>

namespace veldraw::sdk::ui::propertymanager {

/// The opposite of another rule, whose signal it passes on.
class VDSDKDIALOGS_DATA_QT_API InvertingRelevance : public virtual RelevanceInterface
{
public:
    /// `inner` must not be empty; it is kept alive.
    explicit InvertingRelevance(boost::shared_ptr<RelevanceInterface const> inner);
    bool isRelevant() const override;

private:
    boost::shared_ptr<RelevanceInterface const> m_inner;
    boost::signals2::scoped_connection m_innerConnection;
};

} // namespace veldraw::sdk::ui::propertymanager
