#pragma once

/// @file
/// Which controls of the data spreadsheet apply, by what has been chosen and what the data set is like. Each call makes a
/// rule of its own.

#include "dialogs/property/RelevanceInterface.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::propertymanager::spreadsheet {

using Rule = boost::shared_ptr<RelevanceInterface const>;

/// Some values of the zone are another zone's, too.
Rule alterRule();
/// The zone is a volume, so that there is a plane to choose.
Rule planeIndexRule();
/// The table shows one variable. True for a disabled zone as well.
Rule variableRule();
/// The format has a number of digits.
Rule precisionRule();
/// The table shows many variables, and not all of them have their values at the same place.
Rule valueLocationRule();
/// The table shows many variables.
Rule lineOrFiniteElementRule();

} // namespace veldraw::sdk::ui::propertymanager::spreadsheet
