#pragma once

#include "dialogs/models/ZoneVarListModelAbstract.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The field maps of the active frame that have an enabled zone: one a time strand and one a zone that belongs to no strand.
/// A value is a field map number, which `VelUtilFieldMapGetZones` turns into its enabled zones.
///
/// Rows read "<number>: <name of the first enabled zone> (strand <number>)", without the bracket for a zone on its own.
class StrandListModel : public ZoneVarListModelAbstract
{
public:
    StrandListModel();

private:
    template <typename Maps>
    explicit StrandListModel(boost::shared_ptr<Maps> const& maps);
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
