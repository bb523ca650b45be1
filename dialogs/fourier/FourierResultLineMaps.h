#pragma once

#include "platform/vdtoolbox/Set.h"

namespace veldraw::sdk::ui::propertymanager {

/// Appends line maps to the active frame: in each zone the second over the first variable of each group of three. Each map has the
/// name of its zone and leaves out the first point, which stands for the mean and would dwarf the others.
/// @param resultZones numbers of zones
/// @param resultVars  numbers of variables, three for each that was transformed, in ascending order
/// @return false after the first map that could not be made; those before it stay
/// @throws std::out_of_range when the last group has a single variable
bool addResultLineMaps(toolbox::Set const& resultZones, toolbox::Set const& resultVars);

} // namespace veldraw::sdk::ui::propertymanager
