#include "dialogs/bindings/StringConverter.h"

#include <locale>
#include <sstream>

namespace veldraw::sdk::ui::dialogs::propertybindings::intern {

namespace {

template <typename Number>
Number numberIn(std::string const& text, char const* typeName)
{
    std::stringstream stream(text);
    stream.imbue(std::locale::classic());
    Number number{};
    stream >> std::noskipws >> number;
    if (stream.fail())
        throw InvalidArgumentException("Cannot convert \"" + text + "\" to " + typeName);
    return number;
}

} // namespace

StringConverter::StringConverter(std::string const& text)
    : m_text(text)
{
}

StringConverter::~StringConverter() = default;

std::string StringConverter::toString() const
{
    return m_text;
}

double StringConverter::toDouble() const
{
    return numberIn<double>(m_text, "double");
}

long long StringConverter::toLongLong() const
{
    return numberIn<long long>(m_text, "__int64");
}

int StringConverter::toInt() const
{
    return numberIn<int>(m_text, "int");
}

float StringConverter::toFloat() const
{
    return numberIn<float>(m_text, "float");
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::intern
