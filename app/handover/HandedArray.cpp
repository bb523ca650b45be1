#include "app/handover/HandedArray.h"

namespace veldraw::app {

std::uint64_t bytesOf(HandedArray::Type type, std::uint64_t values)
{
    switch (type) {
    case HandedArray::Type::Bit:
        return values / 8 + (values % 8 > 0 ? 1 : 0);
    case HandedArray::Type::Int8:
    case HandedArray::Type::UInt8:
        return values;
    case HandedArray::Type::Int16:
    case HandedArray::Type::UInt16:
        return 2 * values;
    case HandedArray::Type::Int32:
    case HandedArray::Type::UInt32:
    case HandedArray::Type::Float32:
        return 4 * values;
    case HandedArray::Type::Int64:
    case HandedArray::Type::UInt64:
    case HandedArray::Type::Float64:
    case HandedArray::Type::Id:
        return 8 * values;
    case HandedArray::Type::Text:
        break;
    }
    return 0;
}

} // namespace veldraw::app
