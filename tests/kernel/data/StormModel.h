#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace veldraw::tests {

namespace storm {

constexpr std::int64_t iPoints = 4;
constexpr std::int64_t jPoints = 3;
constexpr std::int64_t slots = iPoints * jPoints;

using Bits = std::uint64_t;
using Values = std::array<Bits, slots>;

/// What @p value is stored as; written down apart from the kernel.
Bits storedBits(FieldDataType_e type, double value);

/// Whether a number can be stored without being cut.
bool isWithinLimits(FieldDataType_e type, double value);

/// The number that stored bits stand for.
double numberOf(FieldDataType_e type, Bits bits);

/// Whether there is a value at a slot of a zone of 4 x 3 points.
bool isUsed(ValueLocation_e location, std::int64_t slot);

struct Storage
{
    FieldDataType_e type = FieldDataType_Double;
    ValueLocation_e location = ValueLocation_Nodal;
    Values values{};

    /// Smallest and largest finite number; nothing when there is none.
    std::optional<std::pair<double, double>> range() const;
};

/// Whether a storage is in memory, and why it stays there; no part of what is undone.
struct Holding
{
    bool canBeLoaded = false;
    bool isLoaded = true;
    bool isAltered = false;
    bool isMapped = false;
    bool isRead = false; // somebody holds the buffer
};

/// Values by fields, each on a numbered storage; a state is all of it, so that undo is to take an older one.
struct State
{
    std::map<int, Storage> storages;
    std::vector<std::vector<int>> zones; // of numbers of storages; 0: passive
    std::vector<bool> hasDeferredSize;   // by zones

    int users(int storage) const;
    Storage& at(int zone, int variable) { return storages.at(number(zone, variable)); }
    int& number(int zone, int variable)
    {
        return zones.at(static_cast<std::size_t>(zone - 1)).at(static_cast<std::size_t>(variable - 1));
    }
};

} // namespace storm

} // namespace veldraw::tests
