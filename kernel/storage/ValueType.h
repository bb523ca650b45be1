#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::kernel {

/// Whether values of a type are whole numbers; bits are.
bool isOfWholeNumbers(FieldDataType_e type);

/// The least and the largest finite number that a type can store.
double leastOf(FieldDataType_e type);
double largestOf(FieldDataType_e type);

/// The narrowest type that holds each value of both types; for 32-bit whole numbers and single precision that is double.
FieldDataType_e commonType(FieldDataType_e a, FieldDataType_e b);

} // namespace veldraw::kernel
