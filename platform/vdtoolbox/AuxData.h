#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

namespace veldraw::toolbox {

/// Auxiliary data (named texts) of one owner: a zone, a variable, a line map, the data set, the frame, the page or the
/// layout. It refers to the owner by its place and looks it up at each call, so it never dangles.
class VELDRAW_PLATFORM_API AuxData
{
public:
    /// @param location kind of owner; zones, variables and maps are those of the active frame
    /// @param object one-based number of the zone, variable or line map; 1 for the other kinds
    AuxData(AuxDataLocation_e location, int object);

    /// Whether the owner exists now.
    bool isValid() const;

    /// Number of items, 0 without an owner.
    int size() const;

    /// Name of an item, empty for a number that does not exist.
    /// @param n one-based, in the order of the names
    std::string name(int n) const;

    /// Value of an item, empty for a number that does not exist.
    /// @param n one-based
    std::string value(int n) const;

    /// Value of an item as a flag: true for "TRUE", "YES", "ON" and "1" in any case.
    /// @param n one-based
    bool boolValue(int n) const;

    /// One-based number of the item of this name (in any case), 0 when there is none.
    int indexOf(std::string const& name) const;

    /// Writes a flag as "TRUE" or "FALSE".
    /// @param retain whether it is saved with its owner
    /// @return false when the owner does not exist, the name is not allowed, or another operation is running
    bool set(std::string const& name, bool value, bool retain) const;

    /// Writes a text.
    /// @param retain whether it is saved with its owner
    /// @return false when the owner does not exist, the name or the value (one with zero bytes) is not allowed, or another operation
    /// is running
    bool setText(std::string const& name, std::string const& value, bool retain) const;

    /// Deletes an item. @param name in any case
    /// @return false when the owner or the item does not exist, or another operation is running
    bool remove(std::string const& name) const;

private:
    AuxDataLocation_e m_location;
    int m_object;
};

} // namespace veldraw::toolbox
