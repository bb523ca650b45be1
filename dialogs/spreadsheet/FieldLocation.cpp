#include "dialogs/spreadsheet/FieldLocation.h"

#include "platform/exception/IOException.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

std::optional<ValueLocation_e> knownFieldLocation(int zone, int variable)
{
    constexpr int tries = 2;
    for (int attempt = 0; attempt < tries; ++attempt) {
        int const location = VelUtilDataValueGetLocation(zone, variable);
        if (location == ValueLocation_CellCentered || location == ValueLocation_Nodal)
            return static_cast<ValueLocation_e>(location);
    }
    return std::nullopt;
}

ValueLocation_e fieldLocation(int zone, int variable)
{
    if (auto const location = knownFieldLocation(zone, variable))
        return *location;
    throw IOException("Failed to get the location of the values.");
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
