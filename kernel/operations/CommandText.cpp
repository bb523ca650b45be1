#include "kernel/operations/CommandText.h"

#include "kernel/base/Text.h"

namespace veldraw::kernel {

CommandText& CommandText::numbers(char const* parameter, NumberSet const& numbers)
{
    return word(parameter, listText(numbers));
}

CommandText& CommandText::number(char const* parameter, long long number)
{
    return word(parameter, std::to_string(number));
}

CommandText& CommandText::real(char const* parameter, double number)
{
    return word(parameter, textOf(number));
}

CommandText& CommandText::reals(char const* parameter, std::array<double, 3> const& numbers)
{
    return word(parameter, textOf(numbers[0]) + ',' + textOf(numbers[1]) + ',' + textOf(numbers[2]));
}

CommandText& CommandText::flag(char const* parameter, bool isOn)
{
    return word(parameter, isOn ? "yes" : "no");
}

CommandText& CommandText::word(char const* parameter, std::string const& word)
{
    m_text += ' ';
    m_text += parameter;
    m_text += '=';
    m_text += word;
    return *this;
}

CommandText& CommandText::quoted(char const* parameter, std::string const& text)
{
    return word(parameter, quotedWhereNeeded(text));
}

std::string listText(NumberSet const& numbers)
{
    std::string text;
    auto const end = numbers.end();
    for (auto first = numbers.begin(); first != end;) {
        auto last = first;
        while (last + 1 != end && *(last + 1) == *last + 1) {
            ++last;
        }
        text += (text.empty() ? "" : ",") + std::to_string(*first);
        if (last != first) {
            text += (last == first + 1 ? ',' : ':') + std::to_string(*last);
        }
        first = last + 1;
    }
    return text;
}

std::string quotedWhereNeeded(std::string const& text)
{
    if (!text.empty() && text.find_first_of(" \t\n\r\"\\,#") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (char const letter : text) {
        if (letter == '\n' || letter == '\t' || letter == '\r') {
            quoted += letter == '\n' ? "\\n" : letter == '\t' ? "\\t" : "\\r";
            continue;
        }
        if (letter == '"' || letter == '\\') {
            quoted += '\\';
        }
        quoted += letter;
    }
    return quoted + '"';
}

} // namespace veldraw::kernel
