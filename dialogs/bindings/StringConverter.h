#pragma once

#include "platform/exception/InvalidArgumentException.h"

#include <boost/core/demangle.hpp>

#include <string>
#include <type_traits>
#include <typeinfo>

namespace veldraw::sdk::ui::dialogs::propertybindings::intern {

/// A text, UTF-8, that becomes a value.
///
/// A number begins with the first character and is written as in C, whatever the locale; what follows it isn't looked
/// at. A text that doesn't begin with a number, or whose number the type can't hold, throws `InvalidArgumentException`.
class StringConverter
{
public:
    explicit StringConverter(std::string const& text);
    virtual ~StringConverter();

    virtual std::string toString() const;
    virtual double toDouble() const;
    virtual long long toLongLong() const;
    virtual int toInt() const;
    virtual float toFloat() const;

private:
    std::string m_text;
};

/// The value that a text stands for. An enumeration can't be read from a text: `InvalidArgumentException`.
template <typename T>
T convertTo(StringConverter const& text)
{
    if constexpr (std::is_same_v<T, std::string>)
        return text.toString();
    else if constexpr (std::is_same_v<T, double>)
        return text.toDouble();
    else if constexpr (std::is_same_v<T, long long>)
        return text.toLongLong();
    else if constexpr (std::is_same_v<T, int>)
        return text.toInt();
    else if constexpr (std::is_same_v<T, float>)
        return text.toFloat();
    else
        throw InvalidArgumentException("Unsupported type for conversion: " + boost::core::demangle(typeid(T).name()));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::intern
