#include "platform/styleproperties/CheckedStyleValue.h"

#include "kernel/api/StyleAccess.h"
#include "platform/exception/InvalidArgumentException.h"
#include "platform/vdtoolbox/ArgList.h"

namespace veldraw::toolbox {

namespace {

// Looks into an address: what the kernel is asked with is known to derived classes only.
class AddressProbe : private StyleValue
{
public:
    explicit AddressProbe(StyleValue const& value)
        : StyleValue(value)
    {
    }

    bool isKnown() const
    {
        ArgList list;
        setupGetValueArgList(list, -1, -1);
        return kernel::api::isStylePath(list.getRef());
    }
};

void check(StyleValue const& value)
{
    if (!AddressProbe(value).isKnown())
        throw InvalidArgumentException("The kernel knows no such style value.");
}

} // namespace

CheckedStyleValue::CheckedStyleValue(StyleValue const& value)
    : m_value(value)
{
    check(m_value);
}

CheckedStyleValue::CheckedStyleValue(char const* n1, char const* n2, char const* n3, char const* n4, char const* n5,
                                     char const* n6, char const* n7)
    : m_value(n1, n2, n3, n4, n5, n6, n7)
{
    check(m_value);
}

StyleValue& CheckedStyleValue::get()
{
    return m_value;
}

StyleValue const& CheckedStyleValue::get() const
{
    return m_value;
}

bool CheckedStyleValue::read(char const* childName, long long& value) const
{
    return StyleValue::returnCodeOk(m_value.child(childName).getValue(value));
}

bool CheckedStyleValue::read(char const* childName, double& value) const
{
    return StyleValue::returnCodeOk(m_value.child(childName).getValue(value));
}

} // namespace veldraw::toolbox
