#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::kernel {

/// Why a number cannot be stored as @p type without becoming quite another one, in words that name the limits; empty when it
/// can. Whole numbers are rounded first. Single precision takes infinities, and what is no number, but nothing finite that it
/// would make infinite.
std::string reasonAgainstStoring(double value, FieldDataType_e type);

} // namespace veldraw::kernel
