#pragma once

namespace veldraw::sdk::ui::propertymanager {

/// Numbers of points and elements; each is -1 while it is not known, since a zone reads its dimensions when they are first used.
struct DataSetTotals
{
    long long points = 0;
    long long elements = 0;
};

/// Of one zone, loading nothing.
/// @param zone one-based number
DataSetTotals totalsOfZone(int zone);

/// Of all enabled zones of the active data set. One that does not know its number makes the sum unknown.
DataSetTotals totalsOfEnabledZones();

} // namespace veldraw::sdk::ui::propertymanager
