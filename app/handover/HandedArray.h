#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::app {

/// An array that one process hands over to another: what it is, and where its values stand in the segments of shared memory that
/// go with it.
struct HandedArray
{
    enum class Type : std::uint8_t
    {
        Bit, ///< the highest of a byte first
        Int8,
        UInt8,
        Int16,
        UInt16,
        Int32,
        UInt32,
        Int64,
        UInt64,
        Float32,
        Float64,
        Id,  ///< numbers of points and cells, 64 bits
        Text ///< stands in texts
    };

    std::string name; ///< UTF-8
    Type type = Type::Float64;
    std::int32_t components = 1;
    std::int64_t tuples = 0;
    std::vector<std::string> componentNames; ///< empty where they have none
    std::uint32_t purposes = 0;              ///< bit n: the n-th of the purposes that data sets have for arrays
    std::uint32_t segment = 0;
    std::uint64_t offset = 0;       ///< of the first value in its segment, in bytes
    std::vector<std::string> texts; ///< any bytes
};

/// Bytes that so many values of a type take. @param values 0 or more, and few enough for the result
std::uint64_t bytesOf(HandedArray::Type type, std::uint64_t values);

/// Limits of what can be handed over.
namespace handover {
constexpr std::size_t longestName = 1 << 16;
constexpr std::int32_t mostComponents = 1000000;
constexpr std::size_t mostArrays = 20000;    // in one list: VTK compares each with all others
constexpr std::int64_t mostFields = 4000000; // components of all arrays
constexpr std::size_t mostBlocks = 200000;   // in all
constexpr std::uint64_t alignment = 64;      // of values in a segment
constexpr int mostFieldData = 2000;          // beside those that are always read
} // namespace handover

} // namespace veldraw::app
