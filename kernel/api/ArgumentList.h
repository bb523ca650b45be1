#pragma once

#include "kernel/base/NumberSet.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <map>
#include <optional>
#include <string>
#include <variant>

namespace veldraw::kernel {

/// Named arguments of a call. Setting a name again replaces its value, also by one of another kind.
class ArgumentList
{
public:
    /// @throws std::bad_alloc, with the list as it was; so for all of these
    void setInt(std::string const& name, long long value) { m_values.insert_or_assign(name, Value(value)); }
    void setDouble(std::string const& name, double value) { m_values.insert_or_assign(name, Value(value)); }
    void setNumbers(std::string const& name, NumberSet value);
    void setText(std::string const& name, std::string value);

    /// The value of a name; none if the list has no such name or its value is of another kind.
    std::optional<long long> intValue(std::string const& name) const { return value<long long>(name); }
    std::optional<double> doubleValue(std::string const& name) const { return value<double>(name); }
    std::optional<NumberSet> numbers(std::string const& name) const { return value<NumberSet>(name); }
    std::optional<std::string> text(std::string const& name) const { return value<std::string>(name); }

    int size() const { return static_cast<int>(m_values.size()); }
    void clear() { m_values.clear(); }

private:
    using Value = std::variant<long long, double, NumberSet, std::string>;

    template <typename Kind>
    std::optional<Kind> value(std::string const& name) const
    {
        auto const found = m_values.find(name);
        Kind const* const held = found == m_values.end() ? nullptr : std::get_if<Kind>(&found->second);
        return held == nullptr ? std::nullopt : std::optional<Kind>(*held);
    }

    std::map<std::string, Value> m_values;
};

} // namespace veldraw::kernel

/// The handle ArgList of the C interface.
struct ArgList_s
{
    veldraw::kernel::ArgumentList arguments;
};
