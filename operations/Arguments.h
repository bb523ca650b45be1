#pragma once

#include "kernel/base/NumberSet.h"
#include "operations/Command.h"
#include "operations/Parameter.h"

#include <array>
#include <map>
#include <string>
#include <variant>

namespace veldraw::kernel {
class DataSet;
}

namespace veldraw::operations {

/// The checked values of the parameters of an operation, by their names.
class Arguments
{
public:
    using Triple = std::array<double, 3>;
    using Texts = std::vector<std::string>;
    using Value = std::variant<bool, long long, double, std::string, Triple, Texts, kernel::NumberSet>;

    /// Whether the parameter was given, or starts with a value.
    bool has(std::string const& name) const { return m_values.count(name) > 0; }

    // The value of a parameter that has one; the operation knows of which kind it is. Numbers of zones and variables are one-based.
    kernel::NumberSet const& numbers(std::string const& name) const { return get<kernel::NumberSet>(name); }
    int number(std::string const& name) const { return static_cast<int>(get<long long>(name)); }
    long long whole(std::string const& name) const { return get<long long>(name); }
    double real(std::string const& name) const { return get<double>(name); }
    bool flag(std::string const& name) const { return get<bool>(name); }
    Triple const& triple(std::string const& name) const { return get<Triple>(name); }
    std::string const& text(std::string const& name) const { return get<std::string>(name); }
    Texts const& texts(std::string const& name) const { return get<Texts>(name); }

    /// Position of the word of a choice among the words of its parameter.
    int choice(std::string const& name) const { return number(name); }

    void set(std::string const& name, Value value) { m_values[name] = std::move(value); }

private:
    template <typename Type>
    Type const& get(std::string const& name) const
    {
        return std::get<Type>(m_values.at(name));
    }

    std::map<std::string, Value> m_values;
};

/// Checks what a command says for its parameters, and gives back the values.
/// @param dataSet where zones and variables are looked for; null to check the form alone: then values that are about them are left out
/// @throws CommandError for an unknown parameter, one that is missing, a value of another kind or beyond the limits, and a zone or variable
/// that is not there
Arguments readArguments(std::vector<Parameter> const& parameters, Command const& command,
                        kernel::DataSet const* dataSet);

} // namespace veldraw::operations
