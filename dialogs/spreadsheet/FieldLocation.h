#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <optional>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// Where the values of a variable in a zone are. The kernel is asked once more when it gives none. Nothing for a field that does not exist.
std::optional<ValueLocation_e> knownFieldLocation(int zone, int variable);

/// The same for a field that exists. @throws IOException where its location cannot be had
ValueLocation_e fieldLocation(int zone, int variable);

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
