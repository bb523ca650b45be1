#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

/// @file
/// Style reads and writes by argument lists, for the implementation of the platform's style values.

namespace veldraw::kernel::api {

/// Names of the arguments of a style read or write. All are needed unless the comment says otherwise.
namespace styleArgument {
constexpr char frame[] = "Frame";     ///< unique identifier; 0: the active frame
constexpr char name[] = "Name";       ///< followed by 1 to 7: identifiers of the names in the path, from the top
constexpr char offset1[] = "Offset1"; ///< one-based number in the first collection of the path; -1 for none
constexpr char offset2[] = "Offset2"; ///< the same for the second collection
constexpr char assignOperator[] = "AssignOperator"; ///< writes only
constexpr char whole[] =
    "IValue"; ///< write: the value as a whole number; read: address of a long long for it, may be absent
constexpr char real[] = "DValue"; ///< write: the value as a double; read: address of a double for it, may be absent
} // namespace styleArgument

/// The only assign operator: the given value replaces the present one.
constexpr long long plainAssignment = 255;

/// Maximum number of names in a path.
constexpr int maxStyleNames = 7;

/// Identifier of a name in the style tree; 0 for a name that no path has.
int styleNameId(std::string const& name) noexcept;

/// Whether the names in the list are a path of a value, or the start of one.
bool isStylePath(ArgList_s const* list) noexcept;

/// Writes a value. If it is refused, VelUtilStyleGetLastErrorString() has the reason.
SetValueReturnCode_e setStyleValue(ArgList_s const* list) noexcept;

/// Reads a value to the addresses in the list. If there is no such value nothing is written.
GetValueReturnCode_e getStyleValue(ArgList_s const* list) noexcept;

} // namespace veldraw::kernel::api
