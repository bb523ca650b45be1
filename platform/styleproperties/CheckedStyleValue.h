#pragma once

#include "platform/PlatformApi.h"
#include "platform/styleproperties/StyleValue.h"

namespace veldraw::toolbox {

/// A style address that a property holds. The kernel knows the address: an unknown one is a defect of the caller.
class VELDRAW_PLATFORM_API CheckedStyleValue
{
public:
    /// @throws InvalidArgumentException for an address that the kernel does not know, as the other constructor
    CheckedStyleValue(StyleValue const& value);
    CheckedStyleValue(char const* n1, char const* n2, char const* n3, char const* n4, char const* n5, char const* n6,
                      char const* n7);

    StyleValue& get();
    StyleValue const& get() const;

    /// Reads a value one level below the address.
    /// @return false when it cannot be read; @p value is unchanged then
    bool read(char const* childName, long long& value) const;
    bool read(char const* childName, double& value) const;

private:
    StyleValue m_value;
};

} // namespace veldraw::toolbox
