#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

/// @file
/// Style reads and writes by argument lists, for the implementation of the platform's style values.

namespace veldraw::kernel::api {

/// Names of the arguments of a style read or write, all of them needed except where told.
namespace styleArgument {
constexpr char frame[] = "Frame";     ///< unique identifier; 0: the active frame
constexpr char name[] = "Name";       ///< with 1 to 7 behind it: identifiers of the path's names, from the top down
constexpr char offset1[] = "Offset1"; ///< one-based number in the path's first collection; -1: none
constexpr char offset2[] = "Offset2"; ///< the same for the second collection
constexpr char assignOperator[] = "AssignOperator"; ///< writes only
constexpr char whole[] =
    "IValue"; ///< write: the value as a whole number; read: address of a long long for it, may be absent
constexpr char real[] = "DValue"; ///< write: the value as a double; read: address of a double for it, may be absent
} // namespace styleArgument

/// The only assign operator: the value becomes the given one.
constexpr long long plainAssignment = 255;

/// Maximum number of names in a path.
constexpr int maxStyleNames = 7;

/// Identifier of a name of the style tree, 0 for a name that is in no path.
int styleNameId(std::string const& name) noexcept;

/// Whether the list's names are a path with a value at it or below it.
bool isStylePath(ArgList_s const* list) noexcept;

/// Writes a value. A refusal leaves its reason for VelUtilStyleGetLastErrorString().
SetValueReturnCode_e setStyleValue(ArgList_s const* list) noexcept;

/// Reads a value into the addresses in the list, which stay as they are when there is no such value.
GetValueReturnCode_e getStyleValue(ArgList_s const* list) noexcept;

} // namespace veldraw::kernel::api
