#include "app/import/raw/RawType.h"

namespace veldraw::app {

int bytesOf(RawType type)
{
    switch (type) {
    case RawType::Int8:
    case RawType::UInt8:
        return 1;
    case RawType::Int16:
    case RawType::UInt16:
        return 2;
    case RawType::Int32:
    case RawType::UInt32:
    case RawType::Float32:
        return 4;
    case RawType::Int64:
    case RawType::UInt64:
    case RawType::Float64:
        break;
    }
    return 8;
}

FieldDataType_e kernelTypeOf(RawType type)
{
    switch (type) {
    case RawType::UInt8:
        return FieldDataType_Byte;
    case RawType::Int8:
    case RawType::Int16:
        return FieldDataType_Int16;
    case RawType::UInt16:
    case RawType::Int32:
        return FieldDataType_Int32;
    case RawType::Float32:
        return FieldDataType_Float;
    case RawType::UInt32:
    case RawType::Int64:
    case RawType::UInt64:
    case RawType::Float64:
        break;
    }
    return FieldDataType_Double;
}

bool isKernelType(RawType type)
{
    return conversionRemark(type).empty();
}

std::string conversionRemark(RawType type)
{
    switch (type) {
    case RawType::Int8:
        return "8-bit signed integers are converted to 16-bit integers";
    case RawType::UInt16:
        return "16-bit unsigned integers are converted to 32-bit integers";
    case RawType::UInt32:
        return "32-bit unsigned integers are converted to double";
    case RawType::Int64:
    case RawType::UInt64:
        return "64-bit integers are converted to double, which is exact up to 2^53";
    default:
        return {};
    }
}

} // namespace veldraw::app
