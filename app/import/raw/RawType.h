#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::app {

/// How a number stands in a file.
enum class RawType
{
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Int64,
    UInt64,
    Float32,
    Float64
};

/// Bytes of one number.
int bytesOf(RawType type);

/// The kernel's type for such numbers, found without looking at them: one that holds each of them exactly. Only integers
/// of 64 bits have none; they become doubles, which are exact up to 2^53.
FieldDataType_e kernelTypeOf(RawType type);

/// Whether the kernel's type has the same bits.
bool isKernelType(RawType type);

/// What is lost or changed, in words for the user; empty for the kernel's own types.
std::string conversionRemark(RawType type);

} // namespace veldraw::app
